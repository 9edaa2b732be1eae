#include "analysis/grading/grades.h"

#include <cmath>

const GradeWords& gradeWords(Grade grade)
{
    static const std::array<GradeWords, kGradeCount> words = {{
        {"Р", "isNormal", "Рабочие"},
        {"ОР I", "isLimited", "Ограниченно \nРабочие I"},
        {"ОР II", "isLimitedII", "Ограниченно \nРабочие II"},
        {"H", "isFail", "Нерабочие"},
        {"НИ", "noMeas", "Нет \nИзмерений"},
        {"--", "noAttr", "Нет атрибутов"},
    }};
    return words[size_t(grade)];
}

QString gradeLabel(Grade grade) { return QString::fromUtf8(gradeWords(grade).label); }

GradeCounts countGrades(const std::vector<Grade>& grades)
{
    GradeCounts counts{};
    for (Grade grade : grades)
        ++counts[size_t(grade)];
    return counts;
}

WellTemperatures wellTemperatures(const TemperatureLog& log, const PositionAttributes& attributes)
{
    WellTemperatures found;
    const double base = std::isinf(attributes.baseDepth) ? attributes.deepMax : attributes.baseDepth;
    found.known = weightedMean(log, attributes.deepMin, attributes.deepMax, false, found.mean, EqualBounds::Interpolate)
        && interpolate(log, base, found.base);
    return found;
}

Grade wellGrade(const WellTemperatures& temperatures, const PositionAttributes& attributes)
{
    const double solid = attributes.temperatureH, freezing = attributes.temperatureBf;
    if (std::isinf(solid) || !temperatures.known)
        return Grade::NoMeasures;
    if (temperatures.mean <= solid)
        return Grade::Normal;
    if (temperatures.mean > solid && temperatures.mean <= freezing)
        return Grade::Limited;
    if (temperatures.mean > freezing && temperatures.base < freezing)
        return Grade::LimitedII;
    if (temperatures.base > freezing)
        return Grade::Fail;
    return Grade::NoMeasures;
}

SettlementLimits settlementLimits(const PositionAttributes& attributes)
{
    const double normal = attributes.averageDiff / 100.0;
    return {normal, 1.1 * normal};
}

Grade markGrade(double settlement, const SettlementLimits& limits)
{
    if (std::isinf(settlement))
        return Grade::NoMeasures;
    if (settlement <= limits.normal)
        return Grade::Normal;
    if (settlement > limits.normal && settlement <= limits.limited)
        return Grade::Limited;
    if (settlement > limits.limited)
        return Grade::Fail;
    return Grade::NoMeasures;
}

Grade profileGrade(double relative, double limit)
{
    if (std::isinf(relative) || limit == 0.0 || std::isinf(limit))
        return Grade::NoMeasures;
    const double share = relative / limit;
    if (share <= kProfileNormal)
        return Grade::Normal;
    if (share > kProfileNormal && share <= kProfileLimited)
        return Grade::Limited;
    if (share > kProfileLimited && share <= kProfileLimitedII)
        return Grade::LimitedII;
    if (share > kProfileLimitedII)
        return Grade::Fail;
    return Grade::NoMeasures;
}

Grade worstGrade(const GradeCounts& counts)
{
    for (Grade grade : {Grade::Fail, Grade::LimitedII, Grade::Limited, Grade::Normal}) {
        if (counts[size_t(grade)] > 0)
            return grade;
    }
    return Grade::NoMeasures;
}

Grade settlementGrade(const GradeCounts& counts)
{
    const int fail = counts[size_t(Grade::Fail)];
    const int all = fail + counts[size_t(Grade::Limited)] + counts[size_t(Grade::Normal)];
    if (all == 0)
        return Grade::NoMeasures;
    const double share = double(fail) / double(all);
    if (share > 0.5)
        return Grade::Fail;
    if (share > 0.25)
        return Grade::LimitedII;
    return share > 0.0 ? Grade::Limited : Grade::Normal;
}

Grade positionGrade(Grade thermal, Grade settlement, Grade relative)
{
    for (Grade grade :
         {Grade::NoAttributes, Grade::Fail, Grade::Limited, Grade::LimitedII, Grade::Normal, Grade::NoMeasures}) {
        if (thermal == grade || settlement == grade || relative == grade)
            return grade;
    }
    return Grade::NoAttributes;
}
