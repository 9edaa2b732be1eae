// The project's coordinate system and the geometry that depends on it.
#include "session/project_session.h"

#include "base/statement.h"

namespace {

// The longitude and latitude first, the plan's own coordinates over them: the
// second run has the last word, and the order is meant.
const char* const toDegrees[] = {"dm_elements",  "ts_elements",  "rp_elements", "tss_elements",
                                 "ggs_elements", "tsg_elements", "igs_elements"};
const char* const toPlan[] = {"dm_elements",  "rp_elements",  "ts_elements", "igs_elements",
                              "ggs_elements", "tss_elements", "tsg_elements"};
const char* const lines[] = {
    "update contours set geom=ST_GeomFromText(build_contour_geometry(contour_id),9999); ",
    "update deformation_profiles set geom=ST_GeomFromText(build_deformation_profile_geometry(profile_id),9999); ",
    "update termal_profiles set geom=ST_GeomFromText(build_termal_profile_geometry(profile_id),9999); ",
};

QVector<Statement> geometryStatements()
{
    QVector<Statement> statements;
    for (const char* table : toDegrees)
        statements << compose("UPDATE %1 set geom = ST_Transform(ST_SetSRID(ST_MakePoint(x, y), 9999), 4326); ", table);
    for (const char* table : toPlan)
        statements << compose("UPDATE %1 SET geom = ST_SetSRID(ST_MakePoint(x, y), 9999);", table);
    for (const char* line : lines)
        statements << Statement(line);
    return statements;
}

} // namespace

bool ProjectSession::saveProjection()
{
    const bool known = run("select srid, auth_name, auth_srid from spatial_ref_sys where srid = 9999").ntuples() > 0;
    const char* const statement = known ? "update spatial_ref_sys set (srid, auth_name, auth_srid, proj4text) = "
                                          "(9999,'TERVA',9999,'%1') where srid=9999"
                                        : "insert into spatial_ref_sys (srid, auth_name, auth_srid, proj4text) values "
                                          "(9999,'TERVA',9999,'%1')";
    if (!run(compose(statement, proj4Text)).isCommand())
        return false;
    // The server keeps a coordinate system in mind for the life of a
    // connection: without a new one, transformations go on with the old text.
    if (known)
        openConnection(connection.conninfo());
    return true;
}

bool ProjectSession::updateGeometry()
{
    if (!connected)
        return false;
    const QVector<Statement> statements = geometryStatements();
    int done = 0;
    for (const Statement& statement : statements)
        done += run(statement).isCommand() ? 1 : 0;
    return done == statements.size();
}
