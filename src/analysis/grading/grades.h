// The technical state of a building as grades: what one well, mark or profile
// says, and how their grades make those of the position.
#pragma once

#include "analysis/grading/position_attributes.h"
#include "elements/measures/temperature_log.h"

#include <array>
#include <vector>

/// The numbers are stored and reported.
enum class Grade { Normal = 0, Limited = 1, LimitedII = 2, Fail = 3, NoMeasures = 4, NoAttributes = 5 };
constexpr size_t kGradeCount = 6;

struct GradeWords {
    const char* label;   ///< in tables
    const char* key;     ///< in templates of reports
    const char* meaning; ///< in titles of columns
};

/// The label of Grade::Fail is the Latin letter H: tables and reports are bound to it.
const GradeWords& gradeWords(Grade grade);
QString gradeLabel(Grade grade);

/// How many elements have each grade, by its number.
using GradeCounts = std::array<int, kGradeCount>;
GradeCounts countGrades(const std::vector<Grade>& grades);

/// The two temperatures that decide about a well, in °C.
struct WellTemperatures {
    bool known = false; ///< both could be computed
    double mean = 0.0;  ///< weighted by depth between the two depths of the attributes
    double base = 0.0;  ///< at the depth of the foundation's base, or at the lower of the two depths
};
WellTemperatures wellTemperatures(const TemperatureLog& log, const PositionAttributes& attributes);
/// The temperature at the foundation decides only once the mean has passed the
/// freezing point; one exactly at the freezing point then decides nothing.
Grade wellGrade(const WellTemperatures& temperatures, const PositionAttributes& attributes);

/// Limits of settlement in metres; infinite without a limit.
struct SettlementLimits {
    double normal = 0.0, limited = 0.0;
};
SettlementLimits settlementLimits(const PositionAttributes& attributes);
/// Of the absolute settlement in metres; infinite: not measured. Marks are
/// never LimitedII. No tolerance: 10.05 less 10 is more than 0.05.
Grade markGrade(double settlement, const SettlementLimits& limits);

/// Shares of the limit at which the grade of a profile changes.
constexpr double kProfileNormal = 0.25, kProfileLimited = 0.8, kProfileLimitedII = 1.0;
/// Of the greatest relative settlement along a profile against the limit.
Grade profileGrade(double relative, double limit);

/// The worst grade that any of them has; of wells and of profiles.
Grade worstGrade(const GradeCounts& counts);
/// Of marks: by the share of those that fail.
Grade settlementGrade(const GradeCounts& counts);
/// Of the position as a whole. Limited stands before LimitedII, although that is
/// the worse one: stored results are bound to this order.
Grade positionGrade(Grade thermal, Grade settlement, Grade relative);
