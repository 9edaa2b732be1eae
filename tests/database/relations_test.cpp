// Which deletions take rows with them and which are refused; views and functions.
#include "base/placeholders.h"
#include "base/statement.h"
#include "support/test_database.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

const QStringList families{"dm", "ts", "rp", "ggs", "tsg", "tss", "igs"};
const QStringList measured{"dm", "ts", "rp", "ggs", "tsg", "tss"};

class RelationsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QFile file(QStringLiteral(TERVA_SOURCE_DIR "/tests/database/sample.sql"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        ASSERT_TRUE(database_.exec(QString::fromUtf8(file.readAll())));
    }

    QString count(const QString& table) { return database_.value(fill("select count(*) from %1", table)); }

    bool refuses(const QString& statement)
    {
        const sql::Result result = connection_.run(Statement::whole(statement));
        return !result.isCommand() && !result.isTuples();
    }

    TestDatabase database_;
    sql::Connection& connection_ = database_.connection();
};

TEST_F(RelationsTest, AnObjectWithSubobjectsRefuses)
{
    EXPECT_TRUE(refuses("DELETE FROM objects WHERE object_id=1"));
    EXPECT_EQ(count("objects"), QString("1"));
}

TEST_F(RelationsTest, ASubobjectWithPositionsRefuses)
{
    EXPECT_TRUE(refuses("DELETE FROM subobjects WHERE subobject_id=1"));
    EXPECT_EQ(count("subobjects"), QString("1"));
}

TEST_F(RelationsTest, AProjectWithObjectsRefuses) { EXPECT_TRUE(refuses("DELETE FROM projects WHERE project_id=1")); }

TEST_F(RelationsTest, EmptyNodesAreDeleted)
{
    ASSERT_TRUE(connection_.run("DELETE FROM positions WHERE position_id=1").isCommand());
    EXPECT_TRUE(connection_.run("DELETE FROM subobjects WHERE subobject_id=1").isCommand());
    EXPECT_TRUE(connection_.run("DELETE FROM objects WHERE object_id=1").isCommand());
}

TEST_F(RelationsTest, APositionTakesEverythingOfItsOwnWithIt)
{
    ASSERT_TRUE(connection_.run("DELETE FROM positions WHERE position_id=1").isCommand());
    QStringList tables{"positions_files",
                       "positions_attributes",
                       "positions_stat",
                       "contours",
                       "contours_points",
                       "deformation_profiles",
                       "deformation_profiles_points",
                       "termal_profiles",
                       "termal_profiles_points",
                       "dm_predictions_data",
                       "igs_geology_elements",
                       "igs_geology_layers",
                       "ts_geology_layers"};
    for (const QString& family : families)
        tables << family + "_elements" << family + "_dynprops";
    for (const QString& family : measured)
        tables << family + "_files" << family + "_meas" << family + "_inspection";
    for (const QString& table : tables)
        EXPECT_EQ(count(table), QString("0")) << table;
    for (const char* table :
         {"cycles", "devices", "performers", "states", "dm_predictions", "geology_ege_catalog", "tsg_catalog"})
        EXPECT_NE(count(table), QString("0")) << table;
}

TEST_F(RelationsTest, AnElementTakesItsDependantsWithItAndLeavesOthers)
{
    for (const QString& family : families) {
        ASSERT_TRUE(
            connection_.run(compose("delete from %1_elements where element_id=1", Identifier(family))).isCommand())
            << family;
        EXPECT_EQ(count(family + "_elements"), QString("1"));
        EXPECT_EQ(count(family + "_dynprops"), QString("0"));
        if (!measured.contains(family))
            continue;
        for (const char* suffix : {"_files", "_meas", "_inspection"})
            EXPECT_EQ(count(family + suffix), QString("0")) << family << suffix;
    }
    EXPECT_EQ(count("dm_predictions_data"), QString("0"));
    EXPECT_EQ(count("deformation_profiles_points"), QString("1"));
    EXPECT_EQ(count("termal_profiles_points"), QString("1"));
}

TEST_F(RelationsTest, APredictionTakesItsDataWithIt)
{
    EXPECT_EQ(connection_.run("delete from dm_predictions cascade where prediction_id in (1)").cmdTuples(),
              QString("1"));
    EXPECT_EQ(count("dm_predictions_data"), QString("0"));
}

TEST_F(RelationsTest, LinesTakeTheirPointsWithThem)
{
    connection_.run("delete from  contours where contour_id = 1");
    connection_.run("delete from  termal_profiles where profile_id = 1");
    connection_.run("delete from  deformation_profiles where profile_id = 1");
    for (const char* table : {"contours_points", "termal_profiles_points", "deformation_profiles_points"})
        EXPECT_EQ(count(table), QString("0")) << table;
}

TEST_F(RelationsTest, AUsedCycleIsKept)
{
    EXPECT_TRUE(refuses("delete from cycles where cycle_id=1"));
    EXPECT_TRUE(connection_.run("delete from cycles where cycle_id=3").isCommand());
}

TEST_F(RelationsTest, AnElementNeedsAPositionThatExists)
{
    EXPECT_TRUE(refuses("INSERT INTO rp_elements (type_id,element_name,state_id,position_id) VALUES "
                        "('rp_gl','Р','exist',-1) returning element_id"));
}

TEST_F(RelationsTest, NamesOfElementsMayRepeat)
{
    EXPECT_TRUE(connection_.run("update ts_elements set element_name='Т-2' where element_id=1").isCommand());
}

TEST_F(RelationsTest, AThermostabiliserNeedsNoCatalogueRow)
{
    EXPECT_TRUE(connection_.run("update tsg_elements set catalog_id=-1 where element_id=1").isCommand());
    EXPECT_TRUE(connection_.run("update tsg_elements set catalog_id=1 where element_id=1").isCommand());
    EXPECT_TRUE(connection_.run("delete from tsg_catalog where catalog_id=1").isCommand());
}

TEST_F(RelationsTest, MeasuresAndInspectionsNeedTheirElement)
{
    for (const QString& family : measured) {
        EXPECT_TRUE(refuses(fill("insert into %1_meas (cycle_id) values (1)", family))) << family;
        EXPECT_TRUE(refuses(fill("insert into %1_inspection (cycle_id) values (1)", family))) << family;
        EXPECT_TRUE(refuses(fill("insert into %1_meas (element_id) values (0)", family))) << family;
    }
}

TEST_F(RelationsTest, WhatMayBeUnknownMayBeAbsent)
{
    EXPECT_TRUE(connection_.run("insert into rp_meas (element_id,meas,precis) values (1,1,null)").isCommand());
    EXPECT_TRUE(
        connection_.run("insert into tsg_meas (element_id,env_temp,exchanger_temp) values (1,1,null)").isCommand());
    EXPECT_TRUE(
        connection_.run("insert into tss_meas (element_id,meas_density,meas_heigth) values (1,1,null)").isCommand());
    EXPECT_TRUE(
        connection_.run("update ts_elements set (depth, depth_proj) = (null, null) where element_id=1").isCommand());
    EXPECT_EQ(database_.value("select depth || ' ' || depth_proj from ts_elements where element_id=2"), QString("0 0"));
}

TEST_F(RelationsTest, EmptyQuotesAreNoDepth)
{
    EXPECT_TRUE(
        refuses("insert into ts_inspection (element_id,cycle_id,note,state_id,depth,h) values (1,2,'','exist','','')"));
}

TEST_F(RelationsTest, FlagsAreWrittenAsNumbers)
{
    EXPECT_TRUE(connection_.run("update dm_inspection set h_railset=1").isCommand());
    EXPECT_TRUE(connection_.run("update rp_inspection set sealing=0").isCommand());
    EXPECT_TRUE(connection_.run("update termal_profiles set (byelevation,tofooter)=(1,0)").isCommand());
    EXPECT_TRUE(connection_.run("update tsg_catalog set exchanger_switch=1").isCommand());
}

TEST_F(RelationsTest, APositionHasOneDrawingAndAnElementOneRecord)
{
    EXPECT_TRUE(refuses("insert into positions_files (position_id) values (1) returning file_id"));
    EXPECT_TRUE(refuses("INSERT INTO dm_dynprops (element_id,props) VALUES (1,'')"));
}

TEST_F(RelationsTest, CountsHoldWhatAPositionHolds)
{
    database_.exec("insert into positions (subobject_id, position) values (1, 'Пустая');"
                   "insert into rp_elements (type_id, position_id) values ('rp_gl', 1);"
                   "insert into contours (position_id) values (1), (1)");
    const QString columns = "dm_count,rp_count,ts_count,tss_count,tsg_count,ggs_count,igs_count,def_prof_count,"
                            "term_prof_count, contour_count";
    EXPECT_EQ(database_.rows(fill("select %1 from positions_counts where position_id=1", columns)).value(0).join(' '),
              QString("2 3 2 2 2 2 2 1 1 3"));
    EXPECT_EQ(database_.rows(fill("select %1 from positions_counts where position_id=2", columns)).value(0).join(' '),
              QString("0 0 0 0 0 0 0 0 0 0"));
    EXPECT_EQ(count("positions_counts"), QString("2"));
}

TEST_F(RelationsTest, LayersOfBothKindsOfWellsCount)
{
    EXPECT_EQ(database_.value("SELECT COUNT(*) FROM geology_layers WHERE ege_id = 1"), QString("2"));
    EXPECT_EQ(database_.value("SELECT COUNT(*) FROM geology_layers WHERE ege_id = 2"), QString("0"));
    EXPECT_TRUE(refuses("DELETE FROM geology_ege_catalog WHERE ege_id = 1"));
}

TEST_F(RelationsTest, LinesAreBuiltInTheOrderOfTheirParameter)
{
    database_.exec(
        "delete from contours_points;"
        "insert into contours_points (contour_id, x, y, param) values (1, 3, 0, 2), (1, 1, 0, 0), (1, 2.25, 0.1, 1)");
    EXPECT_EQ(database_.value("select build_contour_geometry(1)"), QString("LINESTRING(1 0, 2.25 0.1, 3 0)"));
    database_.exec("update deformation_profiles_points set param = 5 where element_id = 1");
    EXPECT_EQ(database_.value("select build_deformation_profile_geometry(1)"),
              QString("LINESTRING(4500200 900200, 4500100 900100)"));
    EXPECT_EQ(database_.value("select build_termal_profile_geometry(1)"),
              QString("LINESTRING(4500100 900100, 4500200 900200)"));
}

TEST_F(RelationsTest, LinesKeepEveryDigitOfTheirPoints)
{
    database_.exec("update contours_points set (x, y) = (4500100.123456789, 0.1 + 0.2::float8) where param = 0;"
                   "update contours set geom=ST_GeomFromText(build_contour_geometry(contour_id),9999)");
    EXPECT_EQ(
        database_.value("select ST_X(p) = x and ST_Y(p) = y from (select ST_StartPoint(geom) as p from contours) as s,"
                        " contours_points where param = 0"),
        QString("t"));
}

TEST_F(RelationsTest, ALineOfFewerThanTwoPointsHasNoGeometry)
{
    database_.exec("delete from contours_points where param = 1; delete from deformation_profiles_points;"
                   "delete from termal_profiles_points where element_id = 2");
    EXPECT_TRUE(database_.rows("select build_contour_geometry(1)")[0][0].isNull());
    EXPECT_TRUE(database_.rows("select build_deformation_profile_geometry(1)")[0][0].isNull());
    EXPECT_TRUE(database_.rows("select build_termal_profile_geometry(1)")[0][0].isNull());
    EXPECT_TRUE(database_.rows("select build_contour_geometry(77)")[0][0].isNull());
    EXPECT_TRUE(database_.exec("update contours set geom=ST_GeomFromText(build_contour_geometry(contour_id),9999); "));
    EXPECT_TRUE(database_.rows("select geom from contours")[0][0].isNull());
}

} // namespace
