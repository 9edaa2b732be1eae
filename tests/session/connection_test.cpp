// Connecting, the live check, the probe of rights, the audit switch.
#include "session_fixture.h"

namespace {

using SessionConnection = SessionTest;

TEST_F(SessionConnection, StringIsUnquotedAndEndsWithABlank)
{
    session_.sqlHost = "10.0.0.1";
    session_.sqlPort = "5433";
    session_.sqlDatabase = "d%1b";
    session_.sqlUser = "u";
    session_.sqlPass = "a b'c";
    EXPECT_EQ(session_.buildConnInfo(), QString("hostaddr=10.0.0.1 port=5433 dbname=d%1b user=u password=a b'c "));
}

TEST_F(SessionConnection, ReadsProjectSwitchAndRole)
{
    makeHierarchy();
    ASSERT_TRUE(session_.connect());
    EXPECT_TRUE(session_.connected);
    EXPECT_EQ(session_.projectId, 7);
    EXPECT_EQ(session_.projectName, QString("Город"));
    EXPECT_EQ(session_.projectOwner, QString("Владелец"));
    EXPECT_EQ(session_.projectLocation, QString("Место"));
    EXPECT_EQ(session_.projectCode, QString("Ш-1"));
    EXPECT_TRUE(session_.auditEnabled);
    EXPECT_TRUE(session_.superuser);
    EXPECT_EQ(console_.text(), QString());
}

TEST_F(SessionConnection, LastProjectRowWins)
{
    makeHierarchy();
    database_.exec("insert into projects (project_id, name) overriding system value values (9, 'Вторая')");
    ASSERT_TRUE(session_.connect());
    EXPECT_EQ(session_.projectId, 9);
    EXPECT_EQ(session_.projectName, QString("Вторая"));
    EXPECT_EQ(session_.projectCode, QString());
}

TEST_F(SessionConnection, AKnownProjectIsNotReadAgain)
{
    makeHierarchy();
    session_.projectId = 100;
    session_.projectName = "прежний";
    ASSERT_TRUE(session_.connect());
    EXPECT_EQ(session_.projectId, 100);
    EXPECT_EQ(session_.projectName, QString("прежний"));
}

TEST_F(SessionConnection, OtherServerKindsDoNotConnect)
{
    for (int kind : {1, 2}) {
        session_.sqlType = kind;
        session_.connected = true;
        EXPECT_FALSE(session_.connect());
        EXPECT_TRUE(session_.connected) << "kinds 1 and 2 leave the state alone";
    }
    session_.sqlType = 3;
    EXPECT_FALSE(session_.connect());
    EXPECT_FALSE(session_.connected);
    EXPECT_FALSE(session_.connection.isOpen());
    EXPECT_EQ(console_.text(), QString());
}

TEST_F(SessionConnection, EmptyParametersFailSilently)
{
    ProjectSession empty;
    EXPECT_EQ(empty.buildConnInfo(), QString("hostaddr= port= dbname= user= password= "));
    EXPECT_FALSE(empty.connect());
    EXPECT_FALSE(empty.connected);
    EXPECT_EQ(console_.text(), QString());
}

TEST_F(SessionConnection, AHostGivenAsANameDoesNotConnect)
{
    session_.sqlHost = "localhost";
    EXPECT_FALSE(session_.connect());
    EXPECT_TRUE(session_.connection.isOpen()) << "the failed handle stays to be asked";
    EXPECT_TRUE(session_.connection.errorMessage().contains("localhost"));
}

TEST_F(SessionConnection, AWrongPasswordDoesNotConnect)
{
    session_.sqlPass = "wrong";
    EXPECT_FALSE(session_.connect());
    EXPECT_FALSE(session_.connected);
    EXPECT_NE(session_.connection.errorMessage(), QString());
}

TEST_F(SessionConnection, ABlankInThePasswordBreaksTheString)
{
    PlainRole role(database_);
    database_.exec("alter role " + role.name() + " password 'two words'");
    session_.sqlUser = role.name();
    session_.sqlPass = "two words";
    EXPECT_FALSE(session_.connect());
}

TEST_F(SessionConnection, ARoleWithoutRightsIsToldTheFirstTable)
{
    PlainRole role(database_);
    session_.sqlUser = role.name();
    session_.sqlPass = "plain";
    session_.superuser = true;
    EXPECT_FALSE(session_.connect());
    EXPECT_FALSE(session_.connected);
    EXPECT_FALSE(session_.superuser);
    EXPECT_TRUE(session_.connection.isOk());
    const QString message = console_.take();
    EXPECT_TRUE(message.startsWith("Проверка прав доступа к 'projects': ОШИБКА (ERROR:")) << message.toStdString();
    EXPECT_TRUE(message.endsWith("\n)\n")) << message.toStdString();
    EXPECT_EQ(message.count("ОШИБКА"), 1);

    database_.exec("grant select on projects, objects to " + role.name());
    EXPECT_FALSE(session_.connect());
    EXPECT_TRUE(console_.take().startsWith("Проверка прав доступа к 'subobjects': ОШИБКА ("));

    database_.exec("grant select on subobjects, positions to " + role.name());
    EXPECT_TRUE(session_.connect());
    EXPECT_EQ(console_.take(), QString());
}

TEST_F(SessionConnection, TheProbeNeedsAGoodHandle)
{
    EXPECT_FALSE(session_.probeRights({"projects"}));
    session_.sqlHost = "localhost";
    session_.connect();
    EXPECT_FALSE(session_.probeRights({}));
    EXPECT_EQ(console_.text(), QString());
    pointAt(session_, database_.name());
    ASSERT_TRUE(session_.connect());
    EXPECT_TRUE(session_.probeRights({}));
    EXPECT_TRUE(session_.probeRights({"states", "cycles"}));
}

TEST_F(SessionConnection, CheckConnectsAndHealsALostServer)
{
    EXPECT_TRUE(session_.checkConnection()) << "no handle yet: it connects";
    EXPECT_TRUE(session_.connected);
    endConnections(database_);
    EXPECT_FALSE(session_.run("select 1").isTuples()) << "the first statement meets the loss";
    EXPECT_TRUE(session_.checkConnection());
    EXPECT_EQ(session_.run("select 41 + 1").getvalue(0, 0), QString("42"));
}

TEST_F(SessionConnection, AFailedCheckClearsTheStateAndSaysNothing)
{
    ASSERT_TRUE(session_.connect());
    session_.sqlPass = "wrong";
    EXPECT_TRUE(session_.checkConnection()) << "the live connection answers, the parameters are not asked";
    endConnections(database_);
    EXPECT_FALSE(session_.checkConnection());
    EXPECT_FALSE(session_.connected);
    EXPECT_EQ(console_.text(), QString());
}

TEST_F(SessionConnection, ADatabaseWithoutProjectsPassesTheCheckByReconnecting)
{
    TestDatabase empty(TestDatabase::Content::Empty);
    pointAt(session_, empty.name());
    EXPECT_FALSE(session_.connect());
    EXPECT_TRUE(console_.take().startsWith("Проверка прав доступа к 'projects': ОШИБКА ("));
    const QString first = session_.run("select pg_backend_pid()").getvalue(0, 0);
    EXPECT_TRUE(session_.checkConnection());
    EXPECT_TRUE(session_.connected);
    EXPECT_NE(session_.run("select pg_backend_pid()").getvalue(0, 0), first);
}

TEST_F(SessionConnection, ReplacedHandlesAreFinished)
{
    for (int i = 0; i < 5; ++i)
        ASSERT_TRUE(session_.connect());
    EXPECT_EQ(database_.value("select count(*) from pg_stat_activity where datname = current_database() "
                              "and pid <> pg_backend_pid() and backend_type = 'client backend'"),
              QString("1"));
}

TEST_F(SessionConnection, TheDestructorFinishesTheConnection)
{
    const QString others = "select count(*) from pg_stat_activity where datname = current_database() "
                           "and pid <> pg_backend_pid() and backend_type = 'client backend'";
    {
        ProjectSession other;
        pointAt(other, database_.name());
        ASSERT_TRUE(other.connect());
        EXPECT_EQ(database_.value(others), QString("1"));
    }
    for (int i = 0; i < 100 && database_.value(others) != "0"; ++i)
        database_.exec("select pg_sleep(0.02)");
    EXPECT_EQ(database_.value(others), QString("0"));
}

TEST_F(SessionConnection, TheAuditSwitchFlipsAndReconnects)
{
    ASSERT_TRUE(session_.connect());
    const char* const shown = "select coalesce(current_setting('app.audit_enabled', true), 'absent')";
    ASSERT_TRUE(session_.setAudit());
    EXPECT_FALSE(session_.auditEnabled);
    EXPECT_EQ(session_.run(shown).getvalue(0, 0), QString("off"));
    ASSERT_TRUE(session_.setAudit());
    EXPECT_TRUE(session_.auditEnabled);
    EXPECT_EQ(session_.run(shown).getvalue(0, 0), QString("on"));

    ASSERT_TRUE(session_.setAudit());
    ProjectSession later;
    pointAt(later, database_.name());
    ASSERT_TRUE(later.connect());
    EXPECT_FALSE(later.auditEnabled);
}

TEST_F(SessionConnection, OnlyTheWordOnMeansAnAuditThatRuns)
{
    database_.exec("alter database " + database_.name() + " set app.audit_enabled = 'ON'");
    ASSERT_TRUE(session_.connect());
    EXPECT_FALSE(session_.auditEnabled);
}

TEST_F(SessionConnection, ARefusedAuditSwitchChangesNothing)
{
    PlainRole role(database_);
    database_.exec("grant select on projects, objects, subobjects, positions to " + role.name());
    session_.sqlUser = role.name();
    session_.sqlPass = "plain";
    ASSERT_TRUE(session_.connect());
    const QString pid = session_.run("select pg_backend_pid()").getvalue(0, 0);
    EXPECT_FALSE(session_.setAudit());
    EXPECT_TRUE(session_.auditEnabled);
    EXPECT_EQ(session_.run("select pg_backend_pid()").getvalue(0, 0), pid);
}

TEST_F(SessionConnection, AnAuditSwitchWithoutReconnectionKeepsTheOldValue)
{
    ASSERT_TRUE(session_.connect());
    session_.sqlPass = "wrong";
    EXPECT_FALSE(session_.setAudit());
    EXPECT_TRUE(session_.auditEnabled);
    EXPECT_FALSE(session_.connected);
}

TEST_F(SessionConnection, TheGuardNamesWhatIsMissing)
{
    session_.sqlPass = "wrong";
    session_.currentPositionId = 1;
    EXPECT_FALSE(session_.requirePosition());
    EXPECT_EQ(console_.take(), QString("Не установлено соединение с базой данных"));
    pointAt(session_, database_.name());
    EXPECT_TRUE(session_.requirePosition());
    EXPECT_EQ(console_.take(), QString());
    session_.currentPositionId = -1;
    EXPECT_FALSE(session_.requirePosition());
    EXPECT_EQ(console_.take(), QString("Не выбрана текущая позиция с базой данных"));
}

// --- one database at a time ------------------------------------------------------------

/// Connected to the first database; the second is what a user has merely tested.
class TwoDatabases : public SessionTest {
protected:
    void SetUp() override
    {
        SessionTest::SetUp();
        makeHierarchy();
        second_.exec(
            "insert into projects (project_id, name, owner) overriding system value values (8, 'Второй', 'Б')");
        ASSERT_TRUE(session_.connect());
        session_.currentPositionId = 1;
        session_.baseCycleId = session_.currentCycleId = 5;
        session_.cycles = {{5, {"1"}}};
        session_.cycleOrder = {5};
        pointAt(session_, second_.name());
    }
    QString connectedTo() { return session_.run("select current_database()").getvalue(0, 0); }

    TestDatabase second_;
};

TEST_F(TwoDatabases, TheProjectionIsSavedWhereTheConnectionIs)
{
    session_.proj4Text = "+proj=longlat";
    ASSERT_TRUE(session_.saveProjection());
    ASSERT_TRUE(session_.saveProjection()) << "the second time opens anew";
    EXPECT_EQ(connectedTo(), database_.name());
    EXPECT_EQ(session_.currentPositionId, 1);
}

TEST_F(TwoDatabases, ALostConnectionHealsToItsOwn)
{
    endConnections(database_);
    ASSERT_TRUE(session_.checkConnection());
    EXPECT_EQ(connectedTo(), database_.name());
    EXPECT_EQ(session_.projectId, 7);
    EXPECT_EQ(session_.currentPositionId, 1);
}

TEST_F(TwoDatabases, TheAuditSwitchIsThatOfItsOwn)
{
    ASSERT_TRUE(session_.setAudit());
    EXPECT_EQ(connectedTo(), database_.name());
    EXPECT_FALSE(session_.auditEnabled);
    EXPECT_EQ(sql::Connection(second_.conninfo())
                  .run("select coalesce(current_setting('app.audit_enabled', true), 'absent')")
                  .getvalue(0, 0),
              QString("absent"));
}

TEST_F(TwoDatabases, ConnectingToTheOtherForgetsTheFirst)
{
    ASSERT_TRUE(session_.connect());
    EXPECT_EQ(connectedTo(), second_.name());
    EXPECT_EQ(session_.projectId, 8);
    EXPECT_EQ(session_.projectName, QString("Второй"));
    EXPECT_EQ(session_.projectOwner, QString("Б"));
    EXPECT_EQ(session_.currentPositionId, -1);
    EXPECT_EQ(session_.baseCycleId, -1);
    EXPECT_EQ(session_.currentCycleId, -1);
    EXPECT_TRUE(session_.cycles.isEmpty());
    EXPECT_TRUE(session_.cycleOrder.isEmpty());
}

TEST_F(TwoDatabases, FailingAtTheOtherNeverMixesThem)
{
    session_.sqlPass = "wrong";
    EXPECT_FALSE(session_.connect());
    session_.sqlPass = TestServer::password();
    EXPECT_TRUE(session_.checkConnection()) << "heals to the one that stood last";
    EXPECT_EQ(connectedTo(), database_.name());
    EXPECT_EQ(session_.projectId, 7);
    EXPECT_EQ(session_.currentPositionId, 1);
}

TEST_F(TwoDatabases, AnotherRoleInTheSameDatabaseForgetsNothing)
{
    pointAt(session_, database_.name());
    session_.sqlPass = "wrong";
    EXPECT_FALSE(session_.connect());
    session_.sqlPass = TestServer::password();
    EXPECT_TRUE(session_.connect());
    EXPECT_EQ(session_.projectId, 7);
    EXPECT_EQ(session_.currentPositionId, 1);
}

TEST(ConnectionStrings, NameADatabaseOfAServer)
{
    const QString one = mainConnInfo({"10.0.0.1", "5432", "db", "u", "p"});
    EXPECT_EQ(databaseIn(one), QString("db"));
    EXPECT_TRUE(isSameDatabase(one, "port=5432 dbname=db host=10.0.0.1 user=other connect_timeout=3"));
    EXPECT_FALSE(isSameDatabase(one, mainConnInfo({"10.0.0.2", "5432", "db", "u", "p"})));
    EXPECT_FALSE(isSameDatabase(one, mainConnInfo({"10.0.0.1", "5433", "db", "u", "p"})));
    EXPECT_FALSE(isSameDatabase(one, mainConnInfo({"10.0.0.1", "5432", "db2", "u", "p"})));
}

} // namespace
