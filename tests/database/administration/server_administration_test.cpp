// Roles, databases, rights and owners on the real server, with names that need their quotes.
#include "database/administration/server_administration.h"

#include "base/placeholders.h"
#include "session/session_fixture.h"

#include <QCoreApplication>

namespace {

// Capitals, blanks, both quotes, a backslash and Cyrillic.
const char* const kHardName = "Тест \"Мой\" o'Neil\\ %1_%2";

AdminAccess access() { return {TestServer::host(), TestServer::port(), TestServer::user(), TestServer::password()}; }

bool always(int, int, const QString&) { return true; }

class Administration : public ::testing::Test {
protected:
    void SetUp() override
    {
        static int number = 0;
        hard_ = fill(kHardName, QCoreApplication::applicationPid(), ++number);
        plain_ = fill("terva_role_%1_%2", QCoreApplication::applicationPid(), number);
        ASSERT_TRUE(server_.connect(access())) << server_.errorMessage();
        root_.open(TestServer::conninfo("postgres"));
    }
    void TearDown() override
    {
        for (const QString& name : {hard_, plain_}) {
            const QString quoted = root_.escapeIdentifier(name);
            root_.runScript("alter database " + quoted + " allow_connections true");
            root_.runScript("drop database if exists " + quoted + " with (force)");
        }
        for (const QString& name : {hard_, plain_}) {
            const QString quoted = root_.escapeIdentifier(name);
            database_.connection().runScript("drop owned by " + quoted);
            root_.runScript("drop owned by " + quoted);
            root_.runScript("drop role if exists " + quoted);
        }
    }

    QString value(const QString& query, const QString& name)
    {
        return root_.runScript(fill(query, root_.escapeLiteral(name))).getvalue(0, 0);
    }
    QString ownerOf(const QString& database)
    {
        return value("select pg_get_userbyid(datdba) from pg_database where datname = %1", database);
    }
    bool hasRole(const QString& name) { return value("select count(*) from pg_roles where rolname = %1", name) == "1"; }
    void makeDatabase(const QString& name)
    {
        EXPECT_TRUE(
            root_.runScript("create database " + root_.escapeIdentifier(name) + " template template0").isCommand())
            << root_.errorMessage();
    }
    DatabaseSummary summaryOf(const QString& name, const ServerAdministration::Step& step = always)
    {
        const auto all = server_.databases(step);
        if (all) {
            for (const DatabaseSummary& database : *all) {
                if (database.name == name)
                    return database;
            }
        }
        ADD_FAILURE() << "not in the list: " << name.toStdString();
        return {};
    }
    // Other tests make and drop databases meanwhile.
    static QStringList about(const QStringList& warnings, const QString& database)
    {
        return warnings.filter(database + ": ");
    }

    TestDatabase database_;
    ServerAdministration server_;
    sql::Connection root_;
    QString hard_;
    QString plain_;
};

TEST(AdministrationStrings, StandAsTheyAreAndInQuotesWhereTheyMust)
{
    EXPECT_EQ(administrationConnInfo({"127.0.0.1", "5432", "postgres", "secret"}),
              QString("hostaddr=127.0.0.1 port=5432 dbname=postgres user=postgres password=secret"));
    EXPECT_EQ(administrationConnInfo({"127.0.0.1", "5432", "me", "a b'c\\d"}, "Мой проект"),
              QString("hostaddr=127.0.0.1 port=5432 dbname='Мой проект' user=me password='a b\\'c\\\\d'"));
    EXPECT_EQ(administrationConnInfo({"::1", "1", "", ""}),
              QString("hostaddr=::1 port=1 dbname=postgres user='' password=''"));
}

TEST_F(Administration, AWrongPasswordConnectsNothing)
{
    AdminAccess wrong = access();
    wrong.password = "wrong";
    EXPECT_FALSE(server_.connect(wrong));
    EXPECT_TRUE(server_.errorMessage().contains("password authentication failed")) << server_.errorMessage();
    EXPECT_FALSE(server_.isConnected());
    EXPECT_FALSE(server_.roles());
    EXPECT_FALSE(server_.databases(always));
    EXPECT_TRUE(server_.connect(access())) << "and again";
}

TEST_F(Administration, ListsRolesByName)
{
    ASSERT_FALSE(server_.createRole(hard_, "p"));
    ASSERT_FALSE(server_.createRole(plain_, "p"));
    const QStringList roles = server_.roles().value_or(QStringList());
    EXPECT_TRUE(roles.contains("postgres"));
    EXPECT_TRUE(roles.contains(hard_));
    EXPECT_GE(roles.indexOf(plain_), 0);
}

TEST_F(Administration, CountsTablesAndRowsAndShowsTheAudit)
{
    const DatabaseSummary fresh = summaryOf(database_.name());
    EXPECT_EQ(fresh.owner, TestServer::user());
    EXPECT_EQ(fresh.tables,
              database_.value("select count(*) from information_schema.tables where table_schema = 'public'"));
    EXPECT_EQ(fresh.audit, QString("off")) << "the setting was never made";
    database_.exec("insert into devices (name) select 'a' from generate_series(1, 7); truncate audit_log;"
                   "insert into spatial_ref_sys (srid) values (9999); truncate audit_log");
    EXPECT_EQ(summaryOf(database_.name()).rows.toInt(), fresh.rows.toInt() + 7)
        << "exactly, and not the tables of the extension";
}

TEST_F(Administration, ADatabaseThatLetsNobodyInStaysInTheList)
{
    makeDatabase(hard_);
    EXPECT_EQ(summaryOf(hard_).tables, QString("0"));
    EXPECT_EQ(summaryOf(hard_).rows, QString("0"));
    root_.runScript("alter database " + root_.escapeIdentifier(hard_) + " allow_connections false");
    const DatabaseSummary shut = summaryOf(hard_);
    EXPECT_EQ(shut.owner, TestServer::user());
    EXPECT_EQ(shut.tables + shut.rows + shut.audit, QString("---"));
}

TEST_F(Administration, CountingCanBeStopped)
{
    int asked = 0;
    const auto all = server_.databases([&asked](int, int, const QString&) { return ++asked < 2; });
    ASSERT_TRUE(all);
    ASSERT_GE(all->size(), 2);
    EXPECT_EQ(asked, 2);
    EXPECT_NE(all->first().tables, QString("-"));
    EXPECT_EQ(all->last().tables + all->last().rows + all->last().audit, QString("---"));
}

TEST_F(Administration, ARoleLogsInWithItsPassword)
{
    const QString password = "па'роль\\ \"1\"";
    EXPECT_FALSE(server_.createRole(hard_, password));
    EXPECT_EQ(value("select rolcanlogin and rolcreatedb and not rolsuper from pg_roles where rolname = %1", hard_),
              QString("t"));
    ServerAdministration asRole;
    EXPECT_TRUE(asRole.connect({TestServer::host(), TestServer::port(), hard_, password})) << asRole.errorMessage();
    const Refusal twice = server_.createRole(hard_, password);
    ASSERT_TRUE(twice);
    EXPECT_TRUE(twice->contains("already exists")) << *twice;
}

TEST_F(Administration, ARoleWithFullRightsWorksInTheProject)
{
    database_.exec("insert into projects (project_id, name) overriding system value values (7, 'Город')");
    ASSERT_FALSE(server_.createRole(plain_, "p"));
    ConsoleCapture console;
    ProjectSession session;
    pointAt(session, database_.name());
    session.sqlUser = plain_;
    session.sqlPass = "p";
    EXPECT_FALSE(session.connect()) << "without rights";

    const Granting granting = server_.grantAll(plain_, database_.name());
    EXPECT_FALSE(granting.unreachable);
    EXPECT_EQ(granting.failures, QStringList());
    EXPECT_TRUE(session.connect()) << console.text();
    EXPECT_EQ(session.projectName, QString("Город"));
    for (const char* statement : {"insert into devices (name) values ('Прибор')", "update devices set serial = '1'",
                                  "insert into objects (project_id, object, appearence) values (7, 'О', 1)",
                                  "CREATE TABLE IF NOT EXISTS own (id SERIAL PRIMARY KEY)", "TRUNCATE TABLE audit_log"})
        EXPECT_TRUE(session.run(statement).isCommand()) << statement << session.connection.errorMessage();
    session.proj4Text = "+proj=utm +zone=42 +datum=WGS84 +units=m +no_defs";
    EXPECT_TRUE(session.saveProjection());
    EXPECT_TRUE(session.updateGeometry());
    database_.exec("create table made_later (id serial); insert into made_later default values");
    EXPECT_TRUE(session.run("insert into made_later default values").isCommand()) << session.connection.errorMessage();
}

TEST_F(Administration, FailuresOfRightsAreCollected)
{
    const Granting nobody = server_.grantAll("no such role", database_.name());
    EXPECT_FALSE(nobody.unreachable);
    EXPECT_EQ(nobody.failures.size(), 7) << "the first statement counts too";
    EXPECT_TRUE(nobody.failures.value(0).contains("does not exist")) << nobody.failures.value(0);
    const Granting nowhere = server_.grantAll("postgres", "Нет такой");
    ASSERT_TRUE(nowhere.unreachable);
    EXPECT_TRUE(nowhere.unreachable->contains("does not exist")) << *nowhere.unreachable;
    EXPECT_EQ(nowhere.failures.size(), 1);
}

TEST_F(Administration, ADatabaseGetsAnotherOwner)
{
    makeDatabase(hard_);
    ASSERT_FALSE(server_.createRole(hard_, "p"));
    EXPECT_FALSE(server_.setOwner(hard_, hard_));
    EXPECT_EQ(ownerOf(hard_), hard_);
    EXPECT_EQ(summaryOf(hard_).owner, hard_);
    EXPECT_TRUE(server_.setOwner(hard_, "no such role"));
}

TEST_F(Administration, WhatADeletedRoleOwnsIsReassignedInEveryDatabase)
{
    makeDatabase(hard_);
    ASSERT_FALSE(server_.createRole(hard_, "p"));
    ASSERT_FALSE(server_.setOwner(hard_, hard_));
    const QString role = root_.escapeIdentifier(hard_);
    sql::Connection other(administrationConnInfo(access(), hard_));
    for (sql::Connection* connection : {&other, &database_.connection()}) {
        EXPECT_TRUE(connection->run("create table owned (id int)").isCommand());
        EXPECT_TRUE(connection->runScript("alter table owned owner to " + role).isCommand());
    }
    database_.exec("grant all on devices to " + role);

    const RoleDeletion deletion = server_.deleteRole(hard_);
    EXPECT_FALSE(deletion.refusal) << *deletion.refusal;
    EXPECT_EQ(about(deletion.warnings, hard_) + about(deletion.warnings, database_.name()), QStringList());
    EXPECT_FALSE(hasRole(hard_));
    EXPECT_EQ(ownerOf(hard_), QString("postgres"));
    for (sql::Connection* connection : {&other, &database_.connection()})
        EXPECT_EQ(connection->run("select tableowner from pg_tables where tablename = 'owned'").getvalue(0, 0),
                  QString("postgres"));
}

TEST_F(Administration, ADatabaseThatLetsNobodyInIsAWarning)
{
    makeDatabase(hard_);
    root_.runScript("alter database " + root_.escapeIdentifier(hard_) + " allow_connections false");
    ASSERT_FALSE(server_.createRole(plain_, "p"));
    const RoleDeletion deletion = server_.deleteRole(plain_);
    EXPECT_FALSE(deletion.refusal);
    const QStringList warnings = about(deletion.warnings, hard_);
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings[0].startsWith(hard_ + ": ")) << warnings[0];
    EXPECT_FALSE(warnings[0].endsWith('\n'));
    EXPECT_FALSE(hasRole(plain_));
}

TEST_F(Administration, ARoleThatStillOwnsSomethingStays)
{
    makeDatabase(hard_);
    ASSERT_FALSE(server_.createRole(plain_, "p"));
    sql::Connection(administrationConnInfo(access(), hard_)).runScript("create schema own authorization " + plain_);
    root_.runScript("alter database " + root_.escapeIdentifier(hard_) + " allow_connections false");
    const RoleDeletion deletion = server_.deleteRole(plain_);
    ASSERT_TRUE(deletion.refusal);
    EXPECT_TRUE(deletion.refusal->contains("cannot be dropped")) << *deletion.refusal;
    EXPECT_TRUE(hasRole(plain_));
}

TEST_F(Administration, ADatabaseIsDeletedUnlessItIsInUse)
{
    makeDatabase(hard_);
    sql::Connection user(administrationConnInfo(access(), hard_));
    const Refusal inUse = server_.deleteDatabase(hard_);
    ASSERT_TRUE(inUse);
    EXPECT_TRUE(inUse->contains("being accessed by other users")) << *inUse;
    user.finish();
    EXPECT_FALSE(server_.deleteDatabase(hard_));
    EXPECT_EQ(ownerOf(hard_), QString());
}

TEST_F(Administration, TheAuditIsSwitchedForNewConnections)
{
    makeDatabase(hard_);
    EXPECT_FALSE(server_.setAudit(hard_, "on"));
    EXPECT_EQ(summaryOf(hard_).audit, QString("on"));
    EXPECT_FALSE(server_.setAudit(hard_, "off"));
    EXPECT_EQ(summaryOf(hard_).audit, QString("off"));
    EXPECT_TRUE(server_.setAudit("Нет такой", "on"));
}

TEST_F(Administration, ThoseConnectedAreListed)
{
    const OtherConnections others = server_.othersConnected(database_.name());
    EXPECT_FALSE(others.refusal);
    EXPECT_EQ(others.users, QStringList("Пользователь postgres  Адрес 127.0.0.1/32"));
    EXPECT_EQ(server_.othersConnected("Нет такой").users, QStringList());
    EXPECT_TRUE(server_.othersConnected("o'Neil").refusal) << "the name goes as it is";
}

TEST_F(Administration, ALostServerIsARefusalEverywhere)
{
    ServerAdministration nowhere;
    EXPECT_FALSE(nowhere.isConnected());
    EXPECT_FALSE(nowhere.roles());
    EXPECT_TRUE(nowhere.createRole("a", "b"));
    EXPECT_TRUE(nowhere.deleteRole("a").refusal);
    EXPECT_TRUE(nowhere.deleteDatabase("a"));
    EXPECT_TRUE(nowhere.setOwner("a", "b"));
    EXPECT_TRUE(nowhere.setAudit("a", "on"));
    EXPECT_TRUE(nowhere.othersConnected("a").refusal);
}

} // namespace
