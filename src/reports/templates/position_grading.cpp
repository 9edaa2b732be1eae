#include "reports/templates/position_grading.h"

#include <array>
#include <utility>

namespace {

PositionGrader& registered()
{
    static PositionGrader grader;
    return grader;
}

} // namespace

QString grade::word(int state)
{
    static const std::array<const char*, 6> words = {"Р", "ОР I", "ОР II", "H", "НИ", "--"};
    const bool known = state >= working && state <= noAttributes;
    return QString::fromUtf8(words[size_t(known ? state : noAttributes)]);
}

PositionGrader setPositionGrader(PositionGrader grader) { return std::exchange(registered(), std::move(grader)); }

bool hasPositionGrader() { return bool(registered()); }

bool gradePosition(int positionId, int baseCycleId, int currentCycleId, PositionGrading& into)
{
    into = {};
    return registered() && registered()(positionId, baseCycleId, currentCycleId, into);
}
