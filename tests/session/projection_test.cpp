// The project's coordinate system and the geometry that follows it.
#include "session_fixture.h"

namespace {

const char* const projection = "+proj=tmerc +lat_0=0 +lon_0=78.05 +k=1 +x_0=4500000 +y_0=-5811057.63 +ellps=krass "
                               "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +units=m +no_defs +type=crs";

class Projecting : public SessionTest {
protected:
    void SetUp() override
    {
        SessionTest::SetUp();
        ASSERT_TRUE(session_.connect());
        session_.proj4Text = projection;
    }

    /// Notes the text of every update of the tables that hold geometry.
    void noteUpdates()
    {
        database_.exec("create table noted (id serial, statement text);"
                       "create function note() returns trigger language plpgsql as $$ begin "
                       "insert into noted (statement) values (current_query()); return null; end $$;"
                       "do $$ declare t text; begin foreach t in array array['dm_elements','ts_elements',"
                       "'rp_elements','tss_elements','ggs_elements','tsg_elements','igs_elements','contours',"
                       "'deformation_profiles','termal_profiles'] loop execute format('create trigger note "
                       "before update on %I for each statement execute function note()', t); end loop; end $$");
    }
};

TEST_F(Projecting, AChangedTextIsInForceAtOnce)
{
    const char* const longitude =
        "select round(ST_X(ST_Transform(ST_SetSRID(ST_MakePoint(500000, 7000000), 9999), 4326)))";
    session_.proj4Text = "+proj=utm +zone=40 +datum=WGS84 +units=m +no_defs";
    ASSERT_TRUE(session_.saveProjection());
    EXPECT_EQ(session_.run(longitude).getvalue(0, 0), QString("57"));
    session_.proj4Text = "+proj=utm +zone=42 +datum=WGS84 +units=m +no_defs";
    ASSERT_TRUE(session_.saveProjection());
    EXPECT_EQ(session_.run(longitude).getvalue(0, 0), QString("69"));
}

TEST_F(Projecting, IsInsertedAndThenUpdated)
{
    const QString query = "select srid::text, auth_name, auth_srid::text, proj4text from spatial_ref_sys "
                          "where srid = 9999";
    EXPECT_EQ(database_.rows(query).size(), 0);
    EXPECT_TRUE(session_.saveProjection());
    EXPECT_EQ(database_.rows(query), (QVector<QStringList>{{"9999", "TERVA", "9999", projection}}));
    session_.proj4Text = "+proj=longlat";
    EXPECT_TRUE(session_.saveProjection());
    EXPECT_EQ(database_.rows(query), (QVector<QStringList>{{"9999", "TERVA", "9999", "+proj=longlat"}}));
    session_.proj4Text = "'";
    EXPECT_FALSE(session_.saveProjection());
}

TEST_F(Projecting, GeometryRunsSeventeenStatementsInOrder)
{
    session_.saveProjection();
    noteUpdates();
    EXPECT_TRUE(session_.updateGeometry());
    QStringList expected;
    for (const char* table : {"dm", "ts", "rp", "tss", "ggs", "tsg", "igs"})
        expected << QString("UPDATE ") + table
                + "_elements set geom = ST_Transform(ST_SetSRID(ST_MakePoint(x, y), 9999), 4326); ";
    for (const char* table : {"dm", "rp", "ts", "igs", "ggs", "tss", "tsg"})
        expected << QString("UPDATE ") + table + "_elements SET geom = ST_SetSRID(ST_MakePoint(x, y), 9999);";
    expected << "update contours set geom=ST_GeomFromText(build_contour_geometry(contour_id),9999); "
             << "update deformation_profiles set "
                "geom=ST_GeomFromText(build_deformation_profile_geometry(profile_id),9999); "
             << "update termal_profiles set geom=ST_GeomFromText(build_termal_profile_geometry(profile_id),9999); ";
    QStringList noted;
    for (const QStringList& row : database_.rows("select statement from noted order by id"))
        noted << row.first();
    EXPECT_EQ(noted, expected);
    EXPECT_EQ(noted.size(), 17);
}

TEST_F(Projecting, GeometryEndsInThePlansOwnCoordinates)
{
    makeHierarchy();
    session_.saveProjection();
    database_.exec(
        "insert into dm_elements (type_id, element_name, position_id, x, y) "
        "values ('dm', 'ДМ.1', 1, 4500000, 1500000);"
        "insert into contours (contour_id, position_id, contour_name) values (1, 1, 'К'), (2, 1, 'Один');"
        "insert into contours_points (contour_id, x, y, param) values (1, 5, 6, 2), (1, 1, 2, 1), (2, 1, 1, 1)");
    EXPECT_TRUE(session_.updateGeometry());
    EXPECT_EQ(database_.value("select ST_AsEWKT(geom) from dm_elements"), QString("SRID=9999;POINT(4500000 1500000)"));
    EXPECT_EQ(database_.value("select ST_AsEWKT(geom) from contours where contour_id = 1"),
              QString("SRID=9999;LINESTRING(1 2,5 6)"));
    EXPECT_EQ(database_.rows("select 1 from contours where contour_id = 2 and geom is null").size(), 1);
}

TEST_F(Projecting, AFailedStatementFailsTheWholeButTheOthersRun)
{
    makeHierarchy();
    database_.exec("insert into dm_elements (type_id, element_name, position_id, x, y) values ('dm', 'ДМ.1', 1, 3, 4)");
    EXPECT_FALSE(session_.updateGeometry()) << "no projection 9999 to transform from";
    EXPECT_EQ(database_.value("select ST_AsEWKT(geom) from dm_elements"), QString("SRID=9999;POINT(3 4)"));
}

TEST_F(Projecting, GeometryNeedsTheStateConnected)
{
    session_.saveProjection();
    noteUpdates();
    session_.connected = false;
    EXPECT_FALSE(session_.updateGeometry());
    EXPECT_EQ(database_.value("select count(*) from noted"), QString("0"));
}

} // namespace
