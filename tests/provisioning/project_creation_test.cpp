// The test of the server and the eighteen steps of making a project.
#include "database/provisioning/database_making.h"
#include "database/provisioning/project_creation.h"

#include "base/placeholders.h"
#include "database/provisioning/server_test.h"
#include "session/session_fixture.h"
#include "support/statement_relay.h"

#include <QCoreApplication>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QTextCodec>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// A name for a database that is dropped at the end, made or not.
class NewName {
public:
    NewName()
    {
        static int number = 0;
        name_ = fill("terva_made_%1_%2", QCoreApplication::applicationPid(), ++number);
    }
    ~NewName() { server().run(compose("drop database if exists %1 with (force)", Identifier(name_))); }
    static sql::Connection server() { return sql::Connection(TestServer::conninfo("postgres")); }
    bool exists() const
    {
        return server().run(compose("select 1 from pg_database where datname = '%1'", name_)).ntuples() == 1;
    }
    QString name() const { return name_; }

private:
    QString name_;
};

ConnectionParameters parametersFor(const QString& database)
{
    return {TestServer::host(), TestServer::port(), database, TestServer::user(), TestServer::password()};
}

QString shownConnInfo(const ConnectionParameters& p)
{
    return "hostaddr=" + p.host + " port=" + p.port + " dbname=postgres user=" + p.user + " password=" + p.password
        + " connect_timeout=3";
}

/// A port that takes connections and never says a word.
class DeafServer {
public:
    DeafServer() : socket_(socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in here{};
        here.sin_family = AF_INET;
        here.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof here;
        EXPECT_EQ(bind(socket_, reinterpret_cast<sockaddr*>(&here), length), 0);
        EXPECT_EQ(listen(socket_, 1), 0);
        EXPECT_EQ(getsockname(socket_, reinterpret_cast<sockaddr*>(&here), &length), 0);
        port_ = ntohs(here.sin_port);
    }
    ~DeafServer() { close(socket_); }
    DeafServer(const DeafServer&) = delete;
    DeafServer& operator=(const DeafServer&) = delete;
    QString port() const { return QString::number(port_); }

private:
    int socket_;
    int port_ = 0;
};

struct TestOutcome {
    bool good;
    QString log;
};

TestOutcome testOf(const ConnectionParameters& parameters)
{
    QString log;
    const bool good = testServer(parameters, [&log](const QString& text) { log += text; });
    return {good, log};
}

// --- the test of the server ----------------------------------------------------

TEST(TestingAServer, AFreeNameIsGood)
{
    const ConnectionParameters parameters = parametersFor("terva_surely_free");
    const TestOutcome outcome = testOf(parameters);
    EXPECT_TRUE(outcome.good);
    EXPECT_EQ(outcome.log,
              shownConnInfo(parameters)
                  + "Подключение успешно. \nБаза данных свободна. \n"
                    "Всё хорошо, можно создавать базу данных. \n");
}

TEST(TestingAServer, AnExistingDatabaseStopsItEvenWhenEmpty)
{
    TestDatabase empty(TestDatabase::Content::Empty);
    const ConnectionParameters parameters = parametersFor(empty.name());
    const TestOutcome outcome = testOf(parameters);
    EXPECT_FALSE(outcome.good);
    EXPECT_EQ(outcome.log, shownConnInfo(parameters) + "Подключение успешно. \nБаза данных уже существует. \n");
}

TEST(TestingAServer, AnOrdinaryRoleIsNotEnough)
{
    TestDatabase database(TestDatabase::Content::Empty);
    PlainRole role(database);
    ConnectionParameters parameters = parametersFor("terva_surely_free");
    parameters.user = role.name();
    parameters.password = "plain";
    const TestOutcome outcome = testOf(parameters);
    EXPECT_FALSE(outcome.good);
    EXPECT_EQ(outcome.log,
              shownConnInfo(parameters)
                  + "Подключение успешно. \n"
                    "Пользователь не является суперпользователем.\n"
                    "Для создания базы данных необходимы права суперпользователя.\n");
}

TEST(TestingAServer, AFailedConnectionShowsTheServersMessage)
{
    ConnectionParameters parameters = parametersFor("terva_surely_free");
    parameters.password = "wrong";
    const TestOutcome outcome = testOf(parameters);
    EXPECT_FALSE(outcome.good);
    EXPECT_TRUE(outcome.log.startsWith(shownConnInfo(parameters) + "\nОшибка подключения: \n")) << outcome.log;
    EXPECT_TRUE(outcome.log.contains("password authentication failed")) << outcome.log;
    EXPECT_TRUE(outcome.log.endsWith("\n"));
}

/// A superuser to whom the server shows no extension that it could offer.
class RoleWithoutExtensions {
public:
    RoleWithoutExtensions()
    {
        run("create schema " + name + " create view pg_available_extensions as select ''::name as name where false");
        run("create role " + name + " login superuser password 'plain'");
        run("grant usage on schema " + name + " to " + name);
        run("alter role " + name + " set search_path = " + name + ", pg_catalog");
    }
    ~RoleWithoutExtensions()
    {
        run("drop schema " + name + " cascade");
        run("drop role " + name);
    }
    const QString name = fill("terva_bare_%1", QCoreApplication::applicationPid());

private:
    void run(const QString& statement)
    {
        EXPECT_TRUE(server_.run(Statement::whole(statement)).isCommand()) << statement;
    }
    sql::Connection server_ = NewName::server();
};

TEST(TestingAServer, WithoutPostGisItIsRefused)
{
    const RoleWithoutExtensions role;
    ConnectionParameters parameters = parametersFor("terva_surely_free");
    parameters.user = role.name;
    parameters.password = "plain";
    const TestOutcome outcome = testOf(parameters);
    EXPECT_FALSE(outcome.good);
    EXPECT_EQ(outcome.log,
              shownConnInfo(parameters)
                  + "Подключение успешно. \n"
                    "Расширение PostGIS не установлено на сервере.\n"
                    "Установите PostGIS перед созданием проекта.\n");
}

// --- making the database ----------------------------------------------------------

TEST(MakingADatabase, IsOneStatementThatNamesTheOwner)
{
    ASSERT_TRUE(TestServer::isKnown());
    const NewName name;
    StatementRelay relay;
    ConnectionParameters parameters = parametersFor(name.name());
    parameters.host = StatementRelay::host();
    parameters.port = relay.port();
    EXPECT_FALSE(createDatabase(parameters));
    EXPECT_EQ(
        relay.texts(),
        QStringList("CREATE DATABASE " + name.name() + " WITH OWNER = " + parameters.user + " ENCODING = 'UTF8';"));
    EXPECT_TRUE(name.exists());
}

TEST(MakingADatabase, TheSchemasConnectionHasATimeOut)
{
    EXPECT_EQ(provisioningConnInfo({"10.0.0.1", "5433", "db", "u", "p"}),
              QString("hostaddr=10.0.0.1 port=5433 dbname=db user=u password=p connect_timeout=3"));
    // Takes connections and never answers.
    const DeafServer server;
    const auto error = loadSchema({"127.0.0.1", server.port(), "db", "u", "p"}, TERVA_SOURCE_DIR "/share/database.sql");
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->contains("timeout expired")) << *error;
}

// --- the bytes of the schema ---------------------------------------------------------

class LayingASchema : public ::testing::Test {
protected:
    std::optional<QString> lay(const QByteArray& bytes)
    {
        QFile file(folder_.filePath("schema.sql"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return loadSchema(parametersFor(database_.name()), file.fileName());
    }

    TestDatabase database_{TestDatabase::Content::Empty};
    QTemporaryDir folder_;
};

TEST_F(LayingASchema, TakesThemAsTheyAre)
{
    ASSERT_FALSE(lay("create table t (note text default 'Скважина')"));
    EXPECT_EQ(database_.value("select column_default from information_schema.columns where table_name = 't'"),
              QString("'Скважина'::text"));
}

TEST_F(LayingASchema, RefusesAnotherEncodingInsteadOfLayingGarbage)
{
    const QByteArray russian = QTextCodec::codecForName("windows-1251")->fromUnicode("'Скважина'");
    const auto error = lay("create table t (note text default " + russian + ")");
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->contains("invalid byte sequence")) << *error;
    EXPECT_EQ(database_.value("select count(*) from pg_tables where tablename = 't'"), QString("0"));
}

TEST_F(LayingASchema, RefusesAFileThatTheServerWouldSeeCut)
{
    const auto error = lay(QByteArray("create table t (n integer);\0create table u (n integer);", 54));
    ASSERT_TRUE(error);
    EXPECT_EQ(*error, "Файл '" + folder_.filePath("schema.sql") + "' содержит нулевые байты: это не текст в UTF-8");
    EXPECT_EQ(database_.value("select count(*) from pg_tables where tablename = 't'"), QString("0"));
}

// --- the steps --------------------------------------------------------------------

class MakingAProject : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(TestServer::isKnown());
        project_.name = "Город";
        project_.code = "Ш-1";
        project_.organization = "Институт";
        project_.description = "Мерзлота";
        project_.projectFile = folder_.filePath("p.terva");
        project_.workDir = folder_.filePath("work");
        project_.tempDir = folder_.filePath("work/temp/deep");
        project_.templateDir = folder_.filePath("work/templates");
        project_.schemaPath = TERVA_SOURCE_DIR "/share/database.sql";
        project_.proj4Text = "+proj=longlat";
        project_.connectionTested = true;
        session_.moduleDir = folder_.filePath("module/");
        pointAt(session_, database_.name());
    }

    bool run()
    {
        log_.clear();
        ProjectCreation creation(
            session_, project_, [this](const QString& text) { log_ += text; }, [this] { ++opened_; });
        return creation.run();
    }

    /// The log up to the making of the database, all folders being new.
    static QString preparations()
    {
        return "Наименование проекта: ОК \nШифр проекта: ОК \nОрганизация: ОК \nОписание проекта: ОК \n"
               "Рабочая папка проекта:  Создаём ОК \nПапка временных файлов:  Создаём ОК \n"
               "Папка шаблонов:  Создаём ОК \nФайл проекта: ОК \nПроверка соединения: Проходила \nСхема БД: ОК \n"
               "Все готово к созданию проекта! ";
    }

    QTemporaryDir folder_;
    NewName database_;
    NewProject project_;
    ProjectSession session_;
    QString log_;
    int opened_ = 0;
};

TEST_F(MakingAProject, GoesThroughAllSteps)
{
    ASSERT_TRUE(run()) << log_;
    EXPECT_EQ(log_,
              preparations()
                  + "Создание БД (подождите...)\nОК \nРазвертывание БД (подождите...)\nОК \n"
                    "Соединение с БД ОК \nОбновление данных проекта\n Запись файла проекта\n "
                    "\n\nПроект успешно создан!");
    EXPECT_EQ(opened_, 1);
    for (const QString& path : {project_.workDir, project_.tempDir, project_.templateDir})
        EXPECT_TRUE(QDir(path).exists()) << path;

    const sql::Connection made(TestServer::conninfo(database_.name()));
    const sql::Result row = made.run("select name, owner, location, code, project_id from projects");
    ASSERT_EQ(row.ntuples(), 1);
    EXPECT_EQ(row.getvalue(0, 0), QString("Город"));
    EXPECT_EQ(row.getvalue(0, 1), QString("Институт"));
    EXPECT_EQ(row.getvalue(0, 2), QString("Мерзлота"));
    EXPECT_EQ(row.getvalue(0, 3), QString("Ш-1"));
    EXPECT_EQ(made.run("select proj4text from spatial_ref_sys where srid = 9999").getvalue(0, 0),
              QString("+proj=longlat"));
    EXPECT_EQ(made.run("select pg_encoding_to_char(encoding) from pg_database where datname = current_database()")
                  .getvalue(0, 0),
              QString("UTF8"));

    QFile file(project_.projectFile);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QDomDocument document;
    ASSERT_TRUE(document.setContent(&file));
    const QDomElement root = document.documentElement();
    const auto value = [&root](const char* group, const char* name) {
        return root.firstChildElement(group).firstChildElement(name).attribute("Value");
    };
    EXPECT_EQ(value("Meta", "ProjectOwner"), QString("Институт"));
    EXPECT_EQ(value("Path", "WorkDir"), project_.workDir);
    EXPECT_EQ(value("Path", "TempDir"), project_.tempDir);
    EXPECT_EQ(value("Path", "TemplateDir"), project_.templateDir);
    EXPECT_EQ(value("Database", "SQLDatabase"), database_.name());
    EXPECT_EQ(value("Current", "PositionID"), QString("-1"));
}

TEST_F(MakingAProject, AProjectFileWithoutSuffixGetsIt)
{
    project_.projectFile = folder_.filePath("проект");
    ASSERT_TRUE(run()) << log_;
    EXPECT_TRUE(QFileInfo::exists(folder_.filePath("проект.terva")));
    EXPECT_FALSE(QFileInfo::exists(folder_.filePath("проект")));
    EXPECT_EQ(session_.projectFile, folder_.filePath("проект.terva"));
}

TEST_F(MakingAProject, AFileThatCannotBeWrittenIsNoSuccess)
{
    project_.projectFile = "/proc/no/such/folder/a.terva";
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.endsWith("Запись файла проекта\n Ошибка !\n")) << log_;
    EXPECT_EQ(opened_, 0);
}

TEST_F(MakingAProject, StopsAtTheFirstEmptyRequiredField)
{
    project_.code.clear();
    EXPECT_FALSE(run());
    EXPECT_EQ(log_, QString("Наименование проекта: ОК \nШифр проекта: Поле не должно быть пустым\n"));
    EXPECT_FALSE(QDir(project_.workDir).exists());
    project_.code = "Ш";
    project_.name.clear();
    EXPECT_FALSE(run());
    EXPECT_EQ(log_, QString("Наименование проекта: Поле не должно быть пустым\n"));
    project_.name = "И";
    project_.organization.clear();
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.endsWith("\nОрганизация: Поле не должно быть пустым\n"));
    EXPECT_EQ(opened_, 0);
}

TEST_F(MakingAProject, StopsAtEmptyFoldersAndFile)
{
    const NewProject full = project_;
    project_.workDir.clear();
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.endsWith("\nРабочая папка проекта: Поле не должно быть пустым\n")) << log_;
    project_ = full;
    project_.tempDir.clear();
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.endsWith("\nПапка временных файлов: Поле не должно быть пустым\n")) << log_;
    project_ = full;
    project_.templateDir.clear();
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.endsWith("\nПапка шаблонов: Поле не должно быть пустым\n")) << log_;
    project_ = full;
    project_.projectFile.clear();
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.endsWith("\nФайл проекта: Поле не должно быть пустым\n")) << log_;
    EXPECT_FALSE(database_.exists());
}

TEST_F(MakingAProject, AnEmptyDescriptionIsNoted)
{
    project_.description.clear();
    EXPECT_TRUE(run());
    EXPECT_TRUE(log_.contains("\nОписание проекта:  не заполнено!\nРабочая папка проекта: ")) << log_;
    EXPECT_TRUE(log_.endsWith("Проект успешно создан!"));
}

TEST_F(MakingAProject, ExistingFoldersAreFineAndGetNoSamples)
{
    QDir root(folder_.path());
    ASSERT_TRUE(root.mkpath("work/temp/deep") && root.mkpath("work/templates") && root.mkpath("module/templates"));
    QFile sample(folder_.filePath("module/templates/sample.docx"));
    ASSERT_TRUE(sample.open(QIODevice::WriteOnly));
    project_.copyTemplates = true;
    EXPECT_TRUE(run());
    EXPECT_TRUE(log_.contains("Рабочая папка проекта: ОК \nПапка временных файлов: ОК \nПапка шаблонов: ОК \n"))
        << log_;
    EXPECT_TRUE(QDir(project_.templateDir).isEmpty());
}

TEST_F(MakingAProject, SamplesAreCopiedIntoANewFolder)
{
    ASSERT_TRUE(QDir(folder_.path()).mkpath("module/templates/sub"));
    QFile sample(folder_.filePath("module/templates/sub/sample.docx"));
    ASSERT_TRUE(sample.open(QIODevice::WriteOnly));
    project_.copyTemplates = true;
    EXPECT_TRUE(run());
    EXPECT_TRUE(log_.contains("Папка шаблонов:  Создаём  Копируем шаблоны ОК \nФайл")) << log_;
    EXPECT_TRUE(QFile::exists(project_.templateDir + "/sub/sample.docx"));
}

TEST_F(MakingAProject, MissingSamplesAreAnErrorThatDoesNotStop)
{
    project_.copyTemplates = true;
    EXPECT_TRUE(run());
    EXPECT_TRUE(log_.contains("Папка шаблонов:  Создаём  Копируем шаблоны Ошибка !\nФайл")) << log_;
}

TEST_F(MakingAProject, FoldersThatCannotBeMadeDoNotStop)
{
    project_.workDir = folder_.filePath("no/parent"); // only its own folder is made
    project_.tempDir = "/proc/terva/temp";
    project_.templateDir = "/proc/terva/templates";
    project_.copyTemplates = true;
    EXPECT_TRUE(run());
    EXPECT_TRUE(log_.contains("Рабочая папка проекта:  Создаём Ошибка !\nПапка временных файлов:  Создаём Ошибка !\n"
                              "Папка шаблонов:  Создаём Ошибка !\nФайл проекта: ОК \n"))
        << log_;
}

TEST_F(MakingAProject, NeedsATestedConnectionAndASchema)
{
    project_.connectionTested = false;
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.endsWith("\nПроверка соединения: Не проходила\n"));
    project_.connectionTested = true;
    project_.schemaPath = folder_.filePath("нет.sql");
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.endsWith("\nСхема БД: Не найдена\n"));
    project_.schemaPath.clear();
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.endsWith("\nСхема БД: Не найдена\n"));
    EXPECT_FALSE(database_.exists());
}

TEST_F(MakingAProject, AServerThatIsGoneStopsAtTheDatabase)
{
    session_.sqlPass = "wrong";
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.startsWith(preparations() + "Создание БД (подождите...)\nОшибка \n")) << log_;
    EXPECT_TRUE(log_.contains("password authentication failed"));
    EXPECT_TRUE(log_.endsWith("\n\n"));
    EXPECT_EQ(opened_, 0);
}

TEST_F(MakingAProject, AnExistingDatabaseStopsIt)
{
    NewName::server().run(compose("create database %1", Identifier(database_.name())));
    EXPECT_FALSE(run());
    EXPECT_EQ(log_,
              preparations() + "Создание БД (подождите...)\nОшибка \nERROR:  database \"" + database_.name()
                  + "\" already exists\n\n");
}

TEST_F(MakingAProject, AFailingSchemaLeavesAnEmptyDatabase)
{
    QFile script(folder_.filePath("bad.sql"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("create table first (id integer); create table second (nonsense);");
    script.close();
    project_.schemaPath = script.fileName();
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.startsWith(preparations()
                                + "Создание БД (подождите...)\nОК \n"
                                  "Развертывание БД (подождите...)\nОшибка \nERROR:  "))
        << log_;
    EXPECT_TRUE(database_.exists());
    const sql::Connection made(TestServer::conninfo(database_.name()));
    EXPECT_EQ(made.run("select 1 from pg_tables where tablename = 'first'").ntuples(), 0);
    EXPECT_FALSE(QFileInfo::exists(project_.projectFile));
    EXPECT_TRUE(testOf(parametersFor(database_.name())).log.endsWith("База данных уже существует. \n"));
}

TEST_F(MakingAProject, ASchemaThatCannotBeReadIsNamed)
{
    project_.schemaPath = folder_.path(); // a folder exists but cannot be read as a file
    EXPECT_FALSE(run());
    EXPECT_TRUE(
        log_.endsWith("Развертывание БД (подождите...)\nОшибка \nНе могу открыть файл '" + folder_.path() + "'\n"))
        << log_;
}

TEST_F(MakingAProject, ASchemaWithoutProjectsStopsAtTheConnection)
{
    QFile script(folder_.filePath("small.sql"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("create table first (id integer)");
    script.close();
    project_.schemaPath = script.fileName();
    ConsoleCapture console;
    EXPECT_FALSE(run());
    EXPECT_TRUE(log_.contains("Развертывание БД (подождите...)\nОК \nСоединение с БД Ошибка \n")) << log_;
    EXPECT_FALSE(log_.contains("Обновление"));
}

// Whichever statement is refused, or the last one that the link carries: what is called a success stands whole.
TEST_F(MakingAProject, WhicheverStatementIsRefusedItIsNoSuccess)
{
    // The tables that are asked for, and no extension, whose laying takes a second a run.
    QFile script(folder_.filePath("small.sql"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("create table projects (project_id integer primary key generated always as identity, name text, "
                 "owner text, location text, code text); create table objects (); create table subobjects (); "
                 "create table positions (); create table spatial_ref_sys (srid integer primary key, auth_name text, "
                 "auth_srid integer, proj4text text)");
    script.close();
    project_.schemaPath = script.fileName();
    StatementRelay relay;
    session_.sqlPort = relay.port();
    using Disturb = void (StatementRelay::*)(int);
    int disturbed = 0;
    for (Disturb disturb : {&StatementRelay::refuse, &StatementRelay::cutAfter}) {
        for (int statement = 1; statement < 100; ++statement) {
            const NewName fresh;
            session_.connection.finish();
            session_.sqlDatabase = fresh.name();
            session_.projectId = -1;
            (relay.*disturb)(statement);
            ConsoleCapture console;
            const bool made = run();
            const bool met = relay.hasRefused() || relay.hasCut();
            if (!made || log_.contains("Ошибка")) {
                EXPECT_TRUE(log_.contains("Ошибка") && met) << statement << log_;
            } else {
                const sql::Connection there(TestServer::conninfo(fresh.name()));
                EXPECT_EQ(there.run("select name from projects").getvalue(0, 0), QString("Город")) << statement;
                EXPECT_EQ(there.run("select proj4text from spatial_ref_sys where srid = 9999").getvalue(0, 0),
                          QString("+proj=longlat"))
                    << statement;
            }
            if (!met)
                break;
            ++disturbed;
        }
    }
    EXPECT_GT(disturbed, 20);
}

TEST_F(MakingAProject, CapitalsInTheNameFailAtTheSchema)
{
    const QString lower = database_.name();
    session_.sqlDatabase = lower.toUpper();
    EXPECT_FALSE(run());
    EXPECT_TRUE(database_.exists()) << "the server folds the name";
    EXPECT_TRUE(log_.contains("Создание БД (подождите...)\nОК \nРазвертывание БД (подождите...)\nОшибка \n")) << log_;
    EXPECT_TRUE(log_.contains("\"" + lower.toUpper() + "\" does not exist")) << log_;
}

} // namespace
