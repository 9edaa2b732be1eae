// The audit log that the triggers write, and its switch.
#include "base/placeholders.h"
#include "support/test_database.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

class AuditTriggersTest : public ::testing::Test {
protected:
    QVector<QStringList> log()
    {
        return database_.rows(
            "select table_name, operation, old_data::text, new_data::text from audit_log order by audit_id");
    }

    static QJsonObject object(const QString& json) { return QJsonDocument::fromJson(json.toUtf8()).object(); }

    // The switch holds for connections that are opened after it was thrown.
    void setSwitch(const QString& value)
    {
        database_.exec(fill("ALTER DATABASE %1 SET app.audit_enabled = '%2'", database_.name(), value));
        ASSERT_TRUE(database_.connection().open(database_.conninfo()));
    }

    TestDatabase database_;
};

TEST_F(AuditTriggersTest, InsertUpdateAndDeleteLeaveTheRowBeforeAndAfter)
{
    database_.exec("insert into devices (name, serial) values ('Коса', '1');"
                   "update devices set serial = '2'; delete from devices");
    const auto rows = log();
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0].mid(0, 2), QStringList({"devices", "INSERT"}));
    EXPECT_TRUE(rows[0][2].isNull());
    EXPECT_EQ(object(rows[0][3])["name"].toString(), QString("Коса"));
    EXPECT_EQ(object(rows[0][3])["serial"].toString(), QString("1"));
    EXPECT_EQ(object(rows[0][3]).keys(), QStringList({"description", "device_id", "name", "serial"}));
    EXPECT_EQ(rows[1][1], QString("UPDATE"));
    EXPECT_EQ(object(rows[1][2])["serial"].toString(), QString("1"));
    EXPECT_EQ(object(rows[1][3])["serial"].toString(), QString("2"));
    EXPECT_EQ(rows[2][1], QString("DELETE"));
    EXPECT_EQ(object(rows[2][2])["serial"].toString(), QString("2"));
    EXPECT_TRUE(rows[2][3].isNull());
}

TEST_F(AuditTriggersTest, AnEntryTellsWhoAndWhen)
{
    database_.exec("insert into devices (name) values ('a')");
    EXPECT_EQ(database_.value("select changed_by from audit_log"), TestServer::user());
    EXPECT_EQ(database_.value("select now()::timestamp - changed_at < interval '1 minute' from audit_log"),
              QString("t"));
    EXPECT_EQ(database_.value("select count(*) from audit_log where changed_at between '2200-01-01'::timestamp"
                              " and '2000-01-01'::timestamp"),
              QString("0"));
}

TEST_F(AuditTriggersTest, EveryTableIsWatchedButTheLogItself)
{
    EXPECT_EQ(
        database_.value(
            "select string_agg(relname, ',') from pg_class c where relnamespace = 'public'::regnamespace"
            " and relkind = 'r' and not exists (select 1 from pg_trigger where tgrelid = c.oid and tgname = 'audit')"),
        QString("audit_log"));
}

TEST_F(AuditTriggersTest, OffWritesNothingAndAnythingElseIsOn)
{
    EXPECT_TRUE(database_.value("select current_setting('app.audit_enabled', true)").isEmpty());
    setSwitch("off");
    database_.exec("insert into devices (name) values ('a'); update devices set name = 'b'; delete from devices");
    EXPECT_EQ(log().size(), 0);
    int expected = 0;
    for (const char* value : {"on", "", "false", "OFF", "0"}) {
        setSwitch(value);
        database_.exec("insert into devices (name) values ('a')");
        EXPECT_EQ(log().size(), ++expected) << "switch '" << value << "'";
    }
}

TEST_F(AuditTriggersTest, TheSwitchDoesNotReachOpenConnections)
{
    database_.exec(fill("ALTER DATABASE %1 SET app.audit_enabled = 'off'", database_.name()));
    database_.exec("insert into devices (name) values ('a')");
    EXPECT_EQ(log().size(), 1);
}

TEST_F(AuditTriggersTest, ACascadeIsLoggedRowByRow)
{
    database_.exec("insert into dm_predictions (name) values ('p'); insert into projects (name) values ('p');"
                   "insert into objects (project_id) values (1); insert into subobjects (object_id) values (1);"
                   "insert into positions (subobject_id) values (1);"
                   "insert into dm_elements (element_id, type_id, position_id) values (1, 'dm', 1);"
                   "insert into dm_meas (element_id) values (1);"
                   "truncate audit_log; delete from positions");
    QStringList deleted;
    for (const QStringList& row : log())
        deleted.append(row[0] + " " + row[1]);
    deleted.sort();
    EXPECT_EQ(deleted, QStringList({"dm_elements DELETE", "dm_meas DELETE", "positions DELETE"}));
}

TEST_F(AuditTriggersTest, OfFilesTheSizeIsKept)
{
    database_.exec("insert into projects (name) values ('p'); insert into objects (project_id) values (1);"
                   "insert into subobjects (object_id) values (1); insert into positions (subobject_id) values (1);"
                   "insert into ts_elements (element_id, type_id, position_id) values (1, 'ts', 1); "
                   "truncate audit_log;"
                   "insert into positions_files (position_id, content) values (1, '\\x010203');"
                   "insert into ts_files (element_id, content) values (1, null);"
                   "insert into ts_inspection (element_id, photos) values (1, '\\x0102')");
    const auto rows = log();
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(object(rows[0][3])["content"].toString(), QString("3 байт"));
    EXPECT_EQ(object(rows[0][3])["position_id"].toInt(), 1);
    EXPECT_TRUE(object(rows[1][3])["content"].isNull());
    EXPECT_EQ(object(rows[2][3])["photos"].toString(), QString("2 байт"));
}

TEST_F(AuditTriggersTest, GeometryIsLoggedBeforeTheProjectsSystemIsKnown)
{
    database_.exec("insert into projects (name) values ('p'); insert into objects (project_id) values (1);"
                   "insert into subobjects (object_id) values (1); insert into positions (subobject_id) values (1);"
                   "truncate audit_log;"
                   "insert into contours (position_id,contour_name,geom) values (1,'К', ST_GeomFromText('LINESTRING(0 "
                   "0, 1.5 1)',9999));"
                   "insert into ts_elements (type_id, position_id, x, y) values ('ts', 1, 1, 2);"
                   "update ts_elements set geom = ST_SetSRID(ST_MakePoint(x, y), 9999);"
                   "insert into geometries (geom) values (ST_GeomFromText('POINT(1 2)', 9999))");
    const auto rows = log();
    ASSERT_EQ(rows.size(), 4);
    EXPECT_EQ(object(rows[0][3])["geom"].toString(), QString("SRID=9999;LINESTRING(0 0,1.5 1)"));
    EXPECT_TRUE(object(rows[1][3])["geom"].isNull());
    EXPECT_EQ(object(rows[2][3])["geom"].toString(), QString("SRID=9999;POINT(1 2)"));
    EXPECT_EQ(object(rows[3][3])["geom"].toString(), QString("SRID=9999;POINT(1 2)"));
}

TEST_F(AuditTriggersTest, TheCoordinateSystemIsWatchedToo)
{
    database_.exec(
        "insert into spatial_ref_sys (srid, auth_name, auth_srid, proj4text) values (9999,'TERVA',9999,'+proj=utm')");
    EXPECT_EQ(log().value(0).value(0), QString("spatial_ref_sys"));
}

TEST_F(AuditTriggersTest, ARoleWithoutRightsOnTheLogIsLoggedUnderItsName)
{
    const QString role = database_.name() + "_worker";
    database_.exec(fill("create role %1 login password 'p'; grant all on devices to %1; grant all on sequence "
                        "devices_device_id_seq to %1",
                        role));
    {
        sql::Connection worker(fill("%1 user=%2 password=p", database_.conninfo(), role));
        ASSERT_TRUE(worker.isOk()) << worker.errorMessage();
        EXPECT_FALSE(worker.run("select * from audit_log").isTuples());
        EXPECT_TRUE(worker.run("insert into devices (name) values ('a')").isCommand()) << worker.errorMessage();
    }
    EXPECT_EQ(database_.value("select changed_by from audit_log where table_name = 'devices'"), role);
    database_.exec(fill("drop owned by %1; drop role %1", role));
}

TEST_F(AuditTriggersTest, TheLogIsEmptiedWithoutATrace)
{
    database_.exec("insert into devices (name) values ('a')");
    EXPECT_TRUE(database_.connection().run("TRUNCATE TABLE audit_log").isCommand());
    EXPECT_EQ(log().size(), 0);
}

} // namespace
