#include "database/hierarchy/stored_lines.h"

#include "base/statement.h"
#include "database/hierarchy/contour_line.h"
#include "database/hierarchy/position_contours.h"
#include "session/project_session.h"

namespace {

// The lines of a position's profiles, vertex by vertex.
void drawProfiles(const char* table, int positionId)
{
    const sql::Result rows =
        session().run(compose("select profile_id, ST_X(vertex), ST_Y(vertex) from (select profile_id, "
                              "(ST_DumpPoints(geom)).geom as vertex, (ST_DumpPoints(geom)).path[1] as place from %1 "
                              "where position_id=%2) as vertices order by profile_id, place",
                              Identifier(table), positionId));
    geometry::PointList line;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        if (row > 0 && rows.toInt(row, 0) != rows.toInt(row - 1, 0)) {
            drawOpenLine(line);
            line.clear();
        }
        line.push_back({rows.toDouble(row, 1), rows.toDouble(row, 2), 0.0});
    }
    drawOpenLine(line);
}

} // namespace

void drawStoredLines(const QVector<int>& positions, const StoredLines& wanted)
{
    for (const int position : positions) {
        if (wanted.contours) {
            for (const auto& [id, name] : positionContours(position))
                drawOpenLine(contourPoints(id));
        }
        if (wanted.deformationProfiles)
            drawProfiles("deformation_profiles", position);
        if (wanted.temperatureProfiles)
            drawProfiles("termal_profiles", position);
    }
}
