#pragma once
// How a position is graded for a pair of cycles. The rules are the analysis's
// own; it registers them here, and the reports ask.

#include <QString>
#include <QVector>
#include <functional>

/// Codes of the states, the same in all grades.
namespace grade {
constexpr int working = 0;
constexpr int limited = 1;
constexpr int limitedII = 2;
constexpr int failed = 3;
constexpr int noMeasures = 4;
constexpr int noAttributes = 5;

/// "Р", "ОР I", "ОР II", "H" (a Latin letter), "НИ", "--".
QString word(int state);
} // namespace grade

struct PositionGrading {
    struct Item {
        int state = grade::noMeasures;
        double value = 0.0; ///< of wells the mean, °C; of marks the settlement, m; of profiles the ratio
    };
    bool hasAttributes = false;
    QVector<Item> wells, marks, profiles;
    int soil = grade::noAttributes;
    int settlement = grade::noAttributes;
    int relative = grade::noAttributes;
    int position = grade::noAttributes;
};

using PositionGrader = std::function<bool(int positionId, int baseCycleId, int currentCycleId, PositionGrading& into)>;

/// Returns the one before.
PositionGrader setPositionGrader(PositionGrader grader);
bool hasPositionGrader();
/// False when the position could not be graded, or nobody has registered.
bool gradePosition(int positionId, int baseCycleId, int currentCycleId, PositionGrading& into);
