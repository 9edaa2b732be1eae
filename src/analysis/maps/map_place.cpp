#include "analysis/maps/map_place.h"

#include "analysis/maps/build_messages.h"
#include "geometry/polygon.h"
#include "session/project_session.h"

#include <numeric>

bool MapPlace::contains(double x, double y) const
{
    return byPosition || geometry::pointInPolygon({x, y, 0.0}, border);
}

Statement stateCondition(const QStringList& states)
{
    if (states.isEmpty())
        return {};
    QVector<Statement> conditions;
    for (const QString& state : states)
        conditions << compose(" state_id='%1' ", state);
    return compose(" and (%1) ", joined(conditions, " or "));
}

Statement placeStatement(const MapPlace& place, const PlaceStatements& statements)
{
    const Statement states = stateCondition(place.states);
    if (place.byPosition)
        return compose(statements.ofPosition, place.positionId) + states;
    const geometry::Box3 box = geometry::boxOf(place.border);
    return compose(statements.insideBox, Numeral(box.minimum.x, 2), Numeral(box.maximum.x, 2),
                   Numeral(box.minimum.y, 2), Numeral(box.maximum.y, 2))
        + states;
}

std::optional<std::vector<MapElement>> elementsOf(const MapPlace& place, const PlaceStatements& statements)
{
    enum Column { Id, Name, X, Y, Z, H };
    std::vector<MapElement> elements;
    if (place.isNowhere())
        return elements;
    const sql::Result rows = session().run(placeStatement(place, statements));
    if (!rows.isTuples())
        return std::nullopt;
    for (int row = 0; row < rows.ntuples(); ++row) {
        if (place.contains(rows.toDouble(row, X), rows.toDouble(row, Y)))
            elements.push_back({rows.toInt(row, Id), rows.getvalue(row, Name), rows.toDouble(row, X),
                                rows.toDouble(row, Y), rows.toDouble(row, Z), rows.toDouble(row, H)});
    }
    return elements;
}

QString repeatedNote(const QStringList& names, const QString& consequence)
{
    if (names.isEmpty())
        return {};
    std::vector<int> all(size_t(names.size()));
    std::iota(all.begin(), all.end(), 0);
    return QStringLiteral("Измерены в одном цикле несколько раз (%1): %2.").arg(consequence, pointNames(all, names));
}
