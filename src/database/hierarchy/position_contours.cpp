#include "database/hierarchy/position_contours.h"

#include "base/statement.h"
#include "session/project_session.h"

Statement contoursStatement(int positionId)
{
    return compose("select contour_id,position_id,contour_name from contours where position_id=%1 order by contour_id",
                   positionId);
}

std::vector<std::pair<int, QString>> positionContours(int positionId)
{
    std::vector<std::pair<int, QString>> contours;
    const sql::Result result = session().run(contoursStatement(positionId));
    for (int row = 0; row < result.ntuples(); ++row)
        contours.emplace_back(result.toInt(row, 0), result.getvalue(row, 2));
    return contours;
}

geometry::PointList contourPoints(int contourId)
{
    geometry::PointList points;
    enum Column { Id, X, Y, Parameter, Distance };
    const sql::Result result = session().run(compose(
        "select point_id, x, y, param, dist from contours_points where contour_id = %1 order by param ", contourId));
    for (int row = 0; row < result.ntuples(); ++row)
        points.push_back({result.toDouble(row, X), result.toDouble(row, Y), 0.0});
    return points;
}
