#include "analysis/settlements/settlement_texts.h"

#include "analysis/maps/build_messages.h"
#include "analysis/maps/map_place.h"
#include "base/placeholders.h"
#include "geometry/point3.h"
#include "session/project_session.h"

namespace {

QString namesOf(const DeformationProfileClass& profile, const std::vector<int>& numbers)
{
    QStringList names;
    for (const DeformationProfilePoint& point : profile.points)
        names << point.name;
    return pointNames(numbers, names);
}

void tellUnmeasured(const DeformationProfileClass& profile, QStringList& lines)
{
    std::vector<int> without;
    for (size_t i = 0; i < profile.points.size(); ++i) {
        if (!profile.points[i].valid)
            without.push_back(int(i));
    }
    if (!without.empty() && !profile.isMeasured())
        lines << QStringLiteral("Ни у одной марки нет замеров с обеих сторон.");
    else if (!without.empty())
        lines << fill("Нет замера: %1.", namesOf(profile, without));
}

// Neighbours of the list alone: marks at one place are caught at one place.
void tellOnePlace(const DeformationProfileClass& profile, QStringList& lines)
{
    const auto& points = profile.points;
    std::vector<int> together;
    for (int i = 1; i < int(points.size()); ++i) {
        const geometry::Point3 one{points[size_t(i) - 1].x, points[size_t(i) - 1].y, 0.0};
        const geometry::Point3 next{points[size_t(i)].x, points[size_t(i)].y, 0.0};
        if (geometry::planDistance(one, next) >= geometry::GEOM_TOL)
            continue;
        if (together.empty() || together.back() != i - 1)
            together.push_back(i - 1);
        together.push_back(i);
    }
    if (!together.empty())
        lines << fill("В одном месте: %1.", namesOf(profile, together));
}

} // namespace

QString cycleTitle(int cycle)
{
    enum Place { Number, Start, End };
    const QStringList told = session().cycles.value(cycle);
    return fill("Цикл %1 %2-%3", told.value(Number), told.value(Start), told.value(End));
}

QString currentTitle(const Epochs& epochs)
{
    return epochs.forecast ? forecastColumn(forecastName(*epochs.forecast)) : cycleTitle(epochs.current);
}

MovementRange movementRange(const Epochs& epochs)
{
    return {epochs.base, epochs.forecast.value_or(epochs.current), epochs.forecast.has_value()};
}

QString settlementRemark(const SettlementState& state, const DeformationProfileClass& profile)
{
    if (!state.read)
        return QStringLiteral("Ошибка соединения с базой данных");
    QStringList lines;
    if (state.isOffered && !state.hasLine)
        lines << (state.offered > 0 ? QStringLiteral("Выберите профиль позиции.")
                                    : QStringLiteral("У позиции нет сохранённых профилей."));
    else if (!state.hasLine)
        lines << QStringLiteral("Линия не указана.");
    else if (profile.points.empty())
        lines << QStringLiteral("Вдоль линии нет ни одной марки.");
    if (state.lost > 0)
        lines << fill("Марок профиля больше нет в базе: %1.", state.lost);
    tellUnmeasured(profile, lines);
    lines << repeatedNote(profile.repeated, QStringLiteral("взят первый замер"));
    tellOnePlace(profile, lines);
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}
