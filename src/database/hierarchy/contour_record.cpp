#include "database/hierarchy/contour_record.h"

#include "base/statement.h"
#include "base/text.h"
#include "session/project_session.h"

namespace {

QString decimals(double value) { return fixed(value, 6); }

} // namespace

bool ContourRecord::load(int contourId)
{
    const sql::Result row = session().run(
        compose("select contour_id,position_id,contour_name from contours where contour_id=%1 ", contourId));
    if (!row.hasRow())
        return false;
    id = contourId;
    positionId = row.toInt(0, 1);
    name = row.getvalue(0, 2);
    points.clear();
    enum Column { Id, X, Y, Parameter, Distance };
    const sql::Result rows = session().run(compose(
        "select point_id, x, y, param, dist from contours_points where contour_id = %1 order by param ", contourId));
    for (int i = 0; rows.isTuples() && i < rows.ntuples(); ++i)
        points.push_back(
            {rows.toDouble(i, X), rows.toDouble(i, Y), rows.toDouble(i, Parameter), rows.toDouble(i, Distance)});
    return true;
}

QString ContourRecord::lineText() const
{
    QStringList pairs;
    for (const ContourPoint& point : points)
        pairs << decimals(point.x) + QLatin1Char(' ') + decimals(point.y);
    return pairs.join(QLatin1Char(','));
}

bool ContourRecord::insertPoints() const
{
    QVector<Statement> rows;
    for (const ContourPoint& point : points)
        rows << compose("(%1,%2,%3,%4,%5)", id, Numeral(point.x, 6), Numeral(point.y, 6), Numeral(point.parameter, 6),
                        Numeral(point.distance, 6));
    return session()
        .run("insert into contours_points(contour_id, x, y, param, dist) values " + joined(rows, ","))
        .isCommand();
}

bool ContourRecord::insert()
{
    const sql::Result row =
        session().run(compose("insert into contours (position_id,contour_name,geom) values (%1,'%2', "
                              "ST_GeomFromText('LINESTRING(%3)',9999)) returning contour_id",
                              positionId, name, lineText()));
    if (!row.hasRow())
        return false;
    id = row.toInt(0, 0);
    return insertPoints();
}

bool ContourRecord::update() const
{
    if (points.empty())
        return session()
            .run(compose("update contours set (position_id,contour_name) = (%1,'%2') where contour_id=%3", positionId,
                         name, id))
            .isCommand();
    return session()
               .run(compose("update contours set (position_id,contour_name, geom) = (%1,'%2', "
                            "ST_GeomFromText('LINESTRING(%4)',9999)) where contour_id=%3",
                            positionId, name, id, lineText()))
               .isCommand()
        && session().run(compose("delete from contours_points where contour_id = %1", id)).isCommand()
        && insertPoints();
}
