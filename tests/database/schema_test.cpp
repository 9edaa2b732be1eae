// What a new project database holds, and how the script that lays it behaves.
#include "base/placeholders.h"
#include "base/statement.h"
#include "support/test_database.h"

#include <gtest/gtest.h>

namespace {

class SchemaTest : public ::testing::Test {
protected:
    TestDatabase database_;
};

TEST_F(SchemaTest, ANewDatabaseHoldsTheOneStateAndNoProject)
{
    const auto states = database_.rows("select state_id, note, colorindex from states");
    ASSERT_EQ(states.size(), 1);
    EXPECT_EQ(states[0], QStringList({"exist", "Существующий", "5"}));
    for (const char* table : {"projects", "objects", "subobjects", "positions", "cycles", "devices", "performers",
                              "levelmaps", "ucs_data", "geology_ege_catalog", "tsg_catalog", "geometries", "audit_log"})
        EXPECT_EQ(database_.value(fill("select count(*) from %1", table)), QString("0")) << table;
}

TEST_F(SchemaTest, EachTypeOfTheFamiliesHasItsRow)
{
    const QVector<QPair<QString, QString>> families{{"dm", "dm,dm_gl,dm_pv,dm_t"},
                                                    {"ts", "ts,tt"},
                                                    {"rp", "rp_gl,rp_gr,rp_st,rp_vr"},
                                                    {"ggs", "ggs"},
                                                    {"tsg", "tsg,tsg_g,tsg_vs"},
                                                    {"tss", "tss_h,tss_p"},
                                                    {"igs", "skv"}};
    for (const auto& family : families) {
        EXPECT_EQ(database_.value(fill("select string_agg(type_id, ',' order by type_id) from %1_types", family.first)),
                  family.second);
        EXPECT_EQ(database_.value(fill("select count(*) from %1_types where name !~ '^[А-Я][а-я]+'", family.first)),
                  QString("0"));
        EXPECT_EQ(database_.value(fill("select count(*) - count(distinct name) from %1_types", family.first)),
                  QString("0"));
    }
}

TEST_F(SchemaTest, TheNormsHoldTheTableOfLimits)
{
    EXPECT_EQ(database_.value("select count(*) from norm_sp22_13330"), QString("26"));
    const auto limits = [this](const QString& code) {
        return database_
            .rows(fill("select relativediff, averagediff, roll from norm_sp22_13330 where code = '%1'", code))
            .value(0);
    };
    EXPECT_EQ(limits("1.1"), QStringList({"0.002", "10", QString()}));
    EXPECT_EQ(limits("1.4"), QStringList({"0.005", "18", QString()}));
    EXPECT_EQ(limits("3.1"), QStringList({"0.0016", "12", QString()}));
    EXPECT_EQ(limits("4.1"), QStringList({QString(), "40", "0.003"}));
    EXPECT_EQ(limits("8.2"), QStringList({"0.0025", QString(), "0.0025"}));
    EXPECT_EQ(database_.value("select count(*) from norm_sp22_13330"
                              " where relativediff is null and averagediff is null and roll is null"),
              QString("0"));
}

TEST_F(SchemaTest, EveryFamilyHasItsTables)
{
    const auto tables = [this](const QString& suffix) {
        return database_.value(fill("select string_agg(tablename, ',' order by tablename) from pg_tables"
                                    " where schemaname = 'public' and tablename ~ '^(dm|ts|rp|ggs|tsg|tss|igs)_%1$'",
                                    suffix));
    };
    for (const char* suffix : {"elements", "types", "dynprops"})
        EXPECT_EQ(tables(suffix).split(',').size(), 7) << suffix;
    for (const char* suffix : {"files", "meas", "inspection"}) {
        EXPECT_EQ(tables(suffix).split(',').size(), 6) << suffix;
        EXPECT_FALSE(tables(suffix).contains("igs")) << suffix;
    }
}

TEST_F(SchemaTest, FileTypesAreTheThreeKinds)
{
    EXPECT_EQ(database_.value("select array_to_string(enum_range(null::filetype), ',')"),
              QString("photo,abris,geocol"));
}

TEST_F(SchemaTest, AProjectGivesItsOwnKeyOnlyByOverriding)
{
    EXPECT_FALSE(database_.connection().run("insert into projects (project_id, name) values (5, 'a')").isCommand());
    EXPECT_TRUE(database_.connection()
                    .run("INSERT INTO projects (project_id, name) OVERRIDING SYSTEM VALUE"
                         " VALUES (1700000000, 'a')")
                    .isCommand());
}

TEST_F(SchemaTest, APlaceLeftOutGoesBehindAllOthersOfTheTable)
{
    database_.exec("insert into projects (name) values ('p');"
                   "insert into objects (project_id, object) values (1, 'a'), (1, 'b');"
                   "insert into objects (project_id, object, appearence) values (1, 'c', 40)");
    EXPECT_EQ(database_.value("insert into objects (project_id, object) values (1, 'd') returning appearence"),
              QString("41"));
    EXPECT_EQ(database_.value("select string_agg(object || appearence, ' ' order by appearence) from objects"),
              QString("a1 b2 c40 d41"));
    // The greatest place counts over the whole table, not among siblings.
    database_.exec("insert into subobjects (object_id, subobject) values (1, 'x'), (2, 'y')");
    EXPECT_EQ(database_.value("select appearence from subobjects where object_id = 2"), QString("2"));
    database_.exec("insert into positions (subobject_id, position) values (1, 'x'), (2, 'y')");
    EXPECT_EQ(database_.value("insert into positions (position, subobject_id, appearence) values ('z', 1,"
                              " (select max(appearence) + 1 from positions)) returning appearence"),
              QString("3"));
}

TEST_F(SchemaTest, TheFirstImportedPositionGetsAPlaceToo)
{
    database_.exec("insert into projects (name) values ('p'); insert into objects (project_id, object) values (1, 'a');"
                   "insert into subobjects (object_id, subobject) values (1, 'x')");
    EXPECT_EQ(database_.value("insert into positions (position, subobject_id, appearence) values ('z', 1,"
                              " (select max(appearence) + 1 from positions)) returning appearence"),
              QString("1"));
}

TEST_F(SchemaTest, ACycleWithoutAnEndGivesAnAbsentDate)
{
    database_.exec("insert into cycles (number, date_start) values (1, '2020-05-06')");
    const auto rows =
        database_.rows("select TO_CHAR(date_start::date, 'dd.mm.yy'), TO_CHAR(date_end::date, 'dd.mm.yy') from cycles");
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0][0], QString("06.05.20"));
    EXPECT_TRUE(rows[0][1].isNull());
}

TEST_F(SchemaTest, DatesWrittenDayFirstAreRead)
{
    EXPECT_EQ(database_.value("show DateStyle"), QString("ISO, DMY"));
    EXPECT_EQ(database_.value("select '03-04-2020'::date"), QString("2020-04-03"));
    EXPECT_EQ(database_.value("select '31-12-2020'::date"), QString("2020-12-31"));
}

TEST_F(SchemaTest, TheCatalogueOfSoilsIsReadByItsComments)
{
    const auto columns = database_.rows(
        "SELECT a.attname, pg_catalog.format_type(a.atttypid, a.atttypmod), pg_catalog.col_description(a.attrelid, "
        "a.attnum),"
        " a.attnotnull FROM pg_catalog.pg_attribute a WHERE a.attrelid = 'geology_ege_catalog'::regclass AND a.attnum "
        "> 0"
        " AND NOT a.attisdropped AND pg_catalog.col_description(a.attrelid, a.attnum) IS NOT NULL ORDER BY a.attnum");
    QStringList names, required;
    for (const QStringList& column : columns) {
        names.append(column[0]);
        if (column[3] == "t")
            required.append(column[0]);
        EXPECT_TRUE(QStringList({"text", "character varying", "double precision", "numeric"}).contains(column[1]))
            << column[0];
        EXPECT_FALSE(column[2].isEmpty()) << column[0];
    }
    EXPECT_EQ(names.join(' '),
              QString("code name description hatch_pattern_name hatch_scale color_hex rho rho_s rho_d e_void"
                      " n_porosity w_tot sr w_l w_p ip il e_mod c_coh phi t_bf lambda_th lambda_f c_th_vol c_f_vol "
                      "q_ph salinization_type"
                      " d_sal i_tot i_i raf_exp r_c_exp soil_type_sp25 sand_granularity"));
    EXPECT_EQ(required, QStringList({"code", "name"}));
    EXPECT_TRUE(database_.exec("insert into geology_ege_catalog (code, name) values ('1', 'a')"));
}

TEST_F(SchemaTest, GeometryOfElementsPassesThroughDegreesAndEndsInTheProjectsSystem)
{
    database_.exec("insert into projects (name) values ('p'); insert into objects (project_id, object) values (1, 'o');"
                   "insert into subobjects (object_id, subobject) values (1, 's');"
                   "insert into positions (subobject_id, position) values (1, 'p');"
                   "insert into ts_elements (type_id, element_name, state_id, position_id, x, y)"
                   " values ('ts', 'T', 'exist', 1, 4500000, 900000)");
    sql::Connection& connection = database_.connection();
    EXPECT_FALSE(
        connection.run("UPDATE ts_elements set geom = ST_Transform(ST_SetSRID(ST_MakePoint(x, y), 9999), 4326); ")
            .isCommand())
        << "there is no system 9999 before the project has one";
    ASSERT_TRUE(
        connection
            .run("insert into spatial_ref_sys (srid, auth_name, auth_srid, proj4text) values (9999,'TERVA',9999,"
                 "'+proj=tmerc +lat_0=0 +lon_0=78.05 +k=1 +x_0=4500000 +y_0=-5811057.63 +ellps=krass +units=m "
                 "+no_defs')")
            .isCommand());
    ASSERT_TRUE(
        connection.run("UPDATE ts_elements set geom = ST_Transform(ST_SetSRID(ST_MakePoint(x, y), 9999), 4326); ")
            .isCommand());
    EXPECT_EQ(database_.value("select ST_SRID(geom) from ts_elements"), QString("4326"));
    ASSERT_TRUE(connection.run("UPDATE ts_elements SET geom = ST_SetSRID(ST_MakePoint(x, y), 9999);").isCommand());
    EXPECT_EQ(database_.value("select ST_SRID(geom) from ts_elements"), QString("9999"));
    EXPECT_EQ(database_.value("SELECT ROUND(ST_X(ST_Transform(e.geom, 4326))::numeric, 7) from ts_elements e"),
              QString("78.0500000"));
}

// The server remembers a coordinate system for the life of a connection, so
// who changes the projection opens the connection anew.
TEST_F(SchemaTest, AChangedProjectionReachesOnlyNewConnections)
{
    const QString place = "select round(ST_X(ST_Transform(ST_SetSRID(ST_MakePoint(500000, 7000000), 9999), 4326)))";
    database_.exec("insert into spatial_ref_sys (srid, auth_name, auth_srid, proj4text)"
                   " values (9999,'TERVA',9999,'+proj=utm +zone=40 +datum=WGS84 +units=m +no_defs')");
    EXPECT_EQ(database_.value(place), QString("57"));
    database_.exec("update spatial_ref_sys set (srid, auth_name, auth_srid, proj4text) ="
                   " (9999,'TERVA',9999,'+proj=utm +zone=42 +datum=WGS84 +units=m +no_defs') where srid=9999");
    EXPECT_EQ(database_.value(place), QString("57"));
    ASSERT_TRUE(database_.connection().open(database_.conninfo()));
    EXPECT_EQ(database_.value(place), QString("69"));
}

TEST(SchemaIndexes, ServeEveryLookUp)
{
    TestDatabase fresh(TestDatabase::Content::Fresh);
    fresh.exec("set enable_seqscan = off; set enable_bitmapscan = off");
    for (const char* lookUp : {
             "select * from ts_elements where position_id = 1",
             "select * from ts_elements where element_name = 'a'",
             "select * from dm_elements where x between 1 and 2 and y between 1 and 2",
             "select state_id from ggs_elements where state_id = 'a'",
             "select * from tsg_dynprops where element_id = 1",
             "select * from rp_files where element_id = 1 and file_type = 'photo'",
             "select * from ts_meas where element_id = 1 and cycle_id = 1",
             "select * from tss_meas where cycle_id = 1",
             "select * from dm_meas where device_id = 1",
             "select * from dm_meas where performer_id = 1",
             "select * from dm_inspection where element_id = 1 and cycle_id = 1",
             "select * from dm_inspection where state_id = 'a'",
             "select * from objects where project_id = 1 order by appearence",
             "select max(appearence) from positions",
             "select * from subobjects where object_id = 1 order by appearence",
             "select * from positions where subobject_id = 1 order by appearence",
             "select * from positions where position = 'a'",
             "select * from positions_files where position_id = 1",
             "select * from positions_attributes where position_id = 1",
             "select * from positions_stat where position_id=1 and base_cycle_id=1 and current_cycle_id=1",
             "select * from contours where position_id = 1",
             "select * from contours_points where contour_id = 1 order by param",
             "select * from deformation_profiles where position_id = 1",
             "select * from termal_profiles where position_id = 1",
             "select * from deformation_profiles_points where profile_id = 1 order by param",
             "select * from termal_profiles_points where profile_id = 1 order by param",
             "select * from termal_profiles_points where element_id = 1",
             "select * from dm_predictions_data where element_id = 1 and prediction_id = 1",
             "select * from dm_predictions_data where prediction_id = 1",
             "select * from devices where serial = 'a'",
             "select * from tsg_catalog where name = 'a'",
             "select * from geology_ege_catalog where TRIM(code) = TRIM('a')",
             "select * from geology_ege_catalog where project_id = 1 and code = 'a'",
             "select * from igs_geology_elements where element_id = 1",
             "select * from igs_geology_layers where element_id = 1 order by depth_from",
             "select count(*) from geology_layers where ege_id = 1",
             "select * from audit_log where changed_at between now() and now()",
         }) {
        QStringList plan;
        for (const QStringList& row : fresh.rows(QString("explain ") + lookUp))
            plan.append(row[0]);
        EXPECT_TRUE(plan.join('\n').contains("Index")) << lookUp << "\n" << plan.join('\n');
        EXPECT_FALSE(plan.join('\n').contains("Seq Scan")) << lookUp << "\n" << plan.join('\n');
        EXPECT_FALSE(plan.join('\n').contains("Filter:")) << lookUp << "\n" << plan.join('\n');
    }
}

TEST_F(SchemaTest, EveryForeignKeyStandsOnAnIndex)
{
    // But for those to small fixed catalogues, whose rows are not deleted.
    const auto missing = database_.rows(
        "select c.conrelid::regclass, a.attname from pg_constraint c"
        " join pg_attribute a on a.attrelid = c.conrelid and a.attnum = c.conkey[1]"
        " where c.contype = 'f' and a.attname not in ('type_id', 'norm_id')"
        "   and not exists (select 1 from pg_index i where i.indrelid = c.conrelid and i.indkey[0] = c.conkey[1])");
    for (const QStringList& row : missing)
        ADD_FAILURE() << row.join('.');
}

TEST(SchemaScript, RunsInOnePieceWhateverTheDateStyle)
{
    for (const char* style : {"ISO, MDY", "German, DMY", "SQL, MDY", "Postgres, YMD"}) {
        TestDatabase database(TestDatabase::Content::Empty);
        database.exec(fill("alter database %1 set DateStyle to '%2'", database.name(), style));
        ASSERT_TRUE(database.connection().open(database.conninfo()));
        ASSERT_TRUE(database.connection().runScript(TestDatabase::schemaScript()).isCommand()) << style;
        ASSERT_TRUE(database.connection().open(database.conninfo()));
        EXPECT_EQ(database.value("show DateStyle"), QString("ISO, DMY"));
    }
}

TEST(SchemaScript, RunTwiceIsRefusedAndChangesNothing)
{
    TestDatabase database;
    database.exec("insert into cycles (number) values (7)");
    EXPECT_FALSE(database.connection().runScript(TestDatabase::schemaScript()).isCommand());
    EXPECT_EQ(database.value("select number from cycles"), QString("7"));
    EXPECT_EQ(database.value("select count(*) from states"), QString("1"));
}

TEST(SchemaScript, LaysAllOrNothing)
{
    TestDatabase database(TestDatabase::Content::Empty);
    database.exec("create view positions_counts as select 1 as one");
    EXPECT_FALSE(database.connection().runScript(TestDatabase::schemaScript()).isCommand());
    EXPECT_EQ(database.value("select count(*) from pg_tables where schemaname = 'public'"), QString("0"));
    EXPECT_EQ(database.value("select count(*) from pg_extension where extname = 'postgis'"), QString("0"));
}

// A role of the test's own, gone with it.
class OwnerRole {
public:
    explicit OwnerRole(TestDatabase& database) : database_(database), name(database.name() + "_owner")
    {
        database.exec(
            fill("create role %1 login createdb password 'p'; alter database %2 owner to %1", name, database.name()));
    }
    ~OwnerRole()
    {
        database_.exec(
            fill("alter database %2 owner to current_user; drop owned by %1; drop role %1", name, database_.name()));
    }

    TestDatabase& database_;
    const QString name;
};

TEST(SchemaScript, GivesTheOwnerTheAuditSwitch)
{
    TestDatabase database(TestDatabase::Content::Empty);
    const OwnerRole owner(database);
    ASSERT_TRUE(database.exec(TestDatabase::schemaScript()));
    database.exec(fill("set role %1", owner.name));
    EXPECT_TRUE(database.connection()
                    .run(compose("ALTER DATABASE %1 SET app.audit_enabled = 'off'", Identifier(database.name())))
                    .isCommand());
    database.exec("reset role");
}

TEST(SchemaScript, WithoutTheRightTheOwnersSwitchFails)
{
    TestDatabase database;
    const OwnerRole owner(database);
    database.exec(fill("set role %1", owner.name));
    EXPECT_FALSE(database.connection()
                     .run(compose("ALTER DATABASE %1 SET app.audit_enabled = 'off'", Identifier(database.name())))
                     .isCommand());
    database.exec("reset role");
}

} // namespace
