#include "analysis/grading/position_grades.h"

#include <cmath>

namespace {

void count(GradedSide& side)
{
    for (const GradedElement& element : side.elements)
        ++side.counts[size_t(element.grade)];
}

} // namespace

GradedSide gradeWells(const std::vector<MeasuredWell>& wells, const PositionAttributes& attributes)
{
    GradedSide side;
    for (const MeasuredWell& well : wells) {
        const WellTemperatures temperatures = wellTemperatures(well.log, attributes);
        side.elements.push_back({well.id, well.name, wellGrade(temperatures, attributes),
                                 temperatures.known ? temperatures.mean : PositionAttributes::none});
    }
    count(side);
    side.grade = attributes.exist ? worstGrade(side.counts) : Grade::NoAttributes;
    return side;
}

GradedSide gradeMarks(const std::vector<MeasuredMark>& marks, const PositionAttributes& attributes)
{
    GradedSide side;
    const SettlementLimits limits = settlementLimits(attributes);
    for (const MeasuredMark& mark : marks) {
        const bool measured = std::isfinite(mark.base) && std::isfinite(mark.current);
        const double settlement = measured ? std::fabs(mark.current - mark.base) : PositionAttributes::none;
        side.elements.push_back({mark.id, mark.name, markGrade(settlement, limits), settlement});
    }
    count(side);
    side.grade = attributes.exist ? settlementGrade(side.counts) : Grade::NoAttributes;
    return side;
}

GradedSide gradeProfiles(const std::vector<MeasuredProfile>& profiles, const PositionAttributes& attributes)
{
    GradedSide side;
    for (const MeasuredProfile& profile : profiles) {
        const double relative = computeFigures(profile.points).relativeMax;
        side.elements.push_back({profile.id, profile.name, profileGrade(relative, attributes.relativeDiff), relative});
    }
    count(side);
    side.grade = attributes.exist && !profiles.empty() ? worstGrade(side.counts) : Grade::NoAttributes;
    return side;
}

void gradePosition(const PositionMeasures& measures, PositionGrades& grades)
{
    grades.thermal = gradeWells(measures.wells, grades.attributes);
    grades.settlement = gradeMarks(measures.marks, grades.attributes);
    grades.relative = gradeProfiles(measures.profiles, grades.attributes);
    grades.grade = positionGrade(grades.thermal.grade, grades.settlement.grade, grades.relative.grade);
}
