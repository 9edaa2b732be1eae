// The administration of a server, each of its statements refused in turn, and the link cut behind
// each. It works on the whole server and not on one project, so it is played button by button here.
#include "base/placeholders.h"
#include "database/administration/server_administration.h"
#include "fault_world.h"

#include <QCoreApplication>
#include <functional>
#include <gtest/gtest.h>

namespace {

class AdministrationFaults : public ::testing::Test {
protected:
    AdministrationFaults()
        : root_(TestServer::conninfo("postgres")),
          role_(fill("terva_faults_%1", QCoreApplication::applicationPid())),
          other_(role_ + "_base")
    {
        sql("create database %2 template template0");
        inside_.open(TestServer::conninfo(other_));
    }
    ~AdministrationFaults() override
    {
        layNobody();
        inside_.finish();
        sql("drop database if exists %2 with (force)");
    }

    // On the maintenance database; the role and the database are %1 and %2.
    QString sql(const QString& statement) { return answer(root_, statement); }
    // In the database itself.
    QString within(const QString& statement) { return answer(inside_, statement); }

    void layNobody()
    {
        if (!hasRole())
            return;
        if (inside_.isOk())
            within("drop owned by %1");
        if (hasDatabase())
            sql("alter database %2 owner to postgres");
        sql("drop owned by %1");
        sql("drop role %1");
    }
    // The role, with a table of its own, as owner of the database.
    void layOwner()
    {
        layNobody();
        sql("create role %1 login password 'p'");
        sql("alter database %2 owner to %1");
        within("drop table if exists property; create table property as select 1 as value; "
               "alter table property owner to %1; grant all on schema public to %1");
    }
    // The role without anything.
    void layStranger()
    {
        layNobody();
        sql("create role %1 login password 'p'");
        sql("alter database %2 reset app.audit_enabled");
        within("create table if not exists property (value int)");
    }

    bool hasRole() { return sql("select count(*) from pg_roles where rolname = '%1'") == "1"; }
    bool hasDatabase() { return sql("select count(*) from pg_database where datname = '%2'") == "1"; }
    QString owner() { return sql("select pg_get_userbyid(datdba) from pg_database where datname = '%2'"); }
    void leaveDatabase() { inside_.finish(); }

    using Work = std::function<void(ServerAdministration& server, const QString& place)>;

    // `work` at every fault that it meets, each time from the beginning that `lay` makes; it is told
    // the fault, and says what must hold.
    void atEveryFault(const std::function<void()>& lay, const Work& work, int fewest)
    {
        for (const Fault::Kind kind : {Fault::Refused, Fault::Cut}) {
            int statement = 1;
            while (meets({kind, statement}, lay, work))
                ASSERT_LT(++statement, mostStatements) << "it never ends";
            EXPECT_GT(statement, fewest);
        }
    }

    QString role() const { return role_; }
    QString database() const { return other_; }

private:
    QString answer(sql::Connection& connection, const QString& statement)
    {
        const sql::Result result = connection.runScript(fill(statement, role_, other_));
        EXPECT_TRUE(result.isTuples() || result.isCommand()) << statement << connection.errorMessage();
        return result.hasRow() ? result.getvalue(0, 0) : QString();
    }

    bool meets(Fault fault, const std::function<void()>& lay, const Work& work)
    {
        lay();
        ServerAdministration server;
        EXPECT_TRUE(
            server.connect({StatementRelay::host(), relay_.port(), TestServer::user(), TestServer::password()}));
        if (fault.kind == Fault::Cut)
            relay_.cutAfter(fault.statement);
        else
            relay_.refuse(fault.statement);
        work(server, fill(fault.kind == Fault::Cut ? "cut behind %1" : "refused %1", fault.statement));
        const bool met = relay_.hasCut() || relay_.hasRefused();
        relay_.refuse(-1);
        return met;
    }

    StatementRelay relay_;
    sql::Connection root_;
    sql::Connection inside_;
    QString role_;
    QString other_;
};

bool everyOne(int, int, const QString&) { return true; }

} // namespace

TEST_F(AdministrationFaults, ARoleIsMadeOrItsFailureTold)
{
    atEveryFault([this] { layNobody(); },
                 [this](ServerAdministration& server, const QString& place) {
                     const Refusal refusal = server.createRole(role(), "p");
                     EXPECT_NE(hasRole(), refusal.has_value()) << place;
                     EXPECT_TRUE(!refusal || !refusal->isEmpty()) << place;
                 },
                 1);
}

// Nothing that a role owned goes with it.
TEST_F(AdministrationFaults, ADeletedRoleTakesNothingWithIt)
{
    atEveryFault([this] { layOwner(); },
                 [this](ServerAdministration& server, const QString& place) {
                     const RoleDeletion deletion = server.deleteRole(role());
                     EXPECT_NE(hasRole(), !deletion.refusal.has_value()) << place;
                     EXPECT_EQ(within("select count(*) from pg_tables where tablename = 'property'"), "1") << place;
                     EXPECT_TRUE(hasDatabase()) << place;
                 },
                 3);
}

TEST_F(AdministrationFaults, ADatabaseIsDeletedOrItsFailureTold)
{
    const auto lay = [this] {
        if (!hasDatabase())
            sql("create database %2 template template0");
    };
    leaveDatabase();
    atEveryFault(
        lay,
        [this](ServerAdministration& server, const QString& place) {
            EXPECT_NE(hasDatabase(), !server.deleteDatabase(database()).has_value()) << place;
        },
        1);
}

TEST_F(AdministrationFaults, RightsAreWholeOrWhatIsMissingIsTold)
{
    const QString rights =
        "select has_database_privilege('%1', '%2', 'create') and has_schema_privilege('%1', "
        "'public', 'create') and has_table_privilege('%1', 'property', 'insert') and exists (select "
        "from pg_default_acl where defaclobjtype = 'r') and exists (select from pg_default_acl where "
        "defaclobjtype = 'S')";
    atEveryFault([this] { layStranger(); },
                 [&](ServerAdministration& server, const QString& place) {
                     const Granting granting = server.grantAll(role(), database());
                     const bool told = granting.unreachable || !granting.failures.isEmpty();
                     EXPECT_TRUE(told || within(rights) == "t") << place;
                     EXPECT_FALSE(granting.failures.contains(QString())) << place;
                 },
                 6);
}

TEST_F(AdministrationFaults, ADatabaseChangesItsOwnerOrItIsTold)
{
    atEveryFault([this] { layStranger(); },
                 [this](ServerAdministration& server, const QString& place) {
                     const Refusal refusal = server.setOwner(database(), role());
                     EXPECT_EQ(owner(), refusal ? QString("postgres") : role()) << place;
                 },
                 1);
}

TEST_F(AdministrationFaults, TheAuditIsSwitchedOrItIsToldAndSoAreThoseConnected)
{
    const QString setting = "select coalesce((select 'on' from pg_db_role_setting s join pg_database d on d.oid = "
                            "s.setdatabase where datname = '%2' and 'app.audit_enabled=on' = any(setconfig)), 'off')";
    atEveryFault([this] { layStranger(); },
                 [&](ServerAdministration& server, const QString& place) {
                     const Refusal refusal = server.setAudit(database(), "on");
                     EXPECT_EQ(sql(setting), refusal ? "off" : "on") << place;
                     const OtherConnections others = server.othersConnected(database());
                     EXPECT_NE(others.refusal.has_value(), others.users.size() == 1) << place;
                 },
                 2);
}

// A number that could not be counted is shown as a dash, never as nought.
TEST_F(AdministrationFaults, TheListsAreWholeOrSayWhatIsMissing)
{
    within("create table property as select 1 as value; analyze property");
    atEveryFault([] {},
                 [this](ServerAdministration& server, const QString& place) {
                     const auto roles = server.roles();
                     EXPECT_TRUE(!roles || roles->contains(TestServer::user())) << place;
                     const auto databases = server.databases(everyOne);
                     if (!databases) {
                         EXPECT_FALSE(server.errorMessage().isEmpty()) << place;
                         return;
                     }
                     bool found = false;
                     for (const DatabaseSummary& summary : *databases) {
                         if (summary.name != database())
                             continue;
                         found = true;
                         EXPECT_TRUE(QStringList({"1", "-"}).contains(summary.tables)) << place << summary.tables;
                         EXPECT_TRUE(QStringList({"1", "-"}).contains(summary.rows)) << place << summary.rows;
                         EXPECT_TRUE(QStringList({"off", "-"}).contains(summary.audit)) << place << summary.audit;
                     }
                     EXPECT_TRUE(found) << place;
                 },
                 4);
}
