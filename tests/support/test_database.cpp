#include "support/test_database.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "base/text.h"
#include "support/database_reset.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <gtest/gtest.h>
#include <memory>

namespace {

// Any number will do, as long as all test programs take the same.
const int templateLock = 7462;
const qint64 leftoverSeconds = 3600;

QString variable(const char* name) { return QString::fromLocal8Bit(qgetenv(name)); }

bool succeed(const sql::Result& result, const QString& what)
{
    if (result.isTuples() || result.isCommand())
        return true;
    ADD_FAILURE() << what.left(2000).toStdString() << "\n" << result.errorMessage().toStdString();
    return false;
}

bool run(const sql::Connection& connection, const QString& statement)
{
    return succeed(connection.run(Statement::whole(statement)), statement);
}

bool exists(const sql::Connection& connection, const QString& database)
{
    return connection.run(compose("select 1 from pg_database where datname = '%1'", database)).ntuples() == 1;
}

QStringList databasesLike(const sql::Connection& connection, const QString& condition)
{
    QStringList names;
    const sql::Result result = connection.run(Statement::whole("select datname from pg_database where " + condition));
    for (int row = 0; row < result.ntuples(); ++row)
        names.append(result.getvalue(row, 0));
    return names;
}

void drop(const sql::Connection& connection, const QString& database)
{
    connection.run(compose("drop database if exists %1 with (force)", Identifier(database)));
}

QString templateName(const QString& script)
{
    const QByteArray hash = QCryptographicHash::hash(script.toUtf8(), QCryptographicHash::Sha1);
    return "terva_template_" + QString::fromLatin1(hash.toHex().left(12));
}

// Made under another name and renamed when whole, so that an interrupted run
// leaves no half of a template behind.
bool makeTemplate(const sql::Connection& server, const QString& name, const QString& script)
{
    for (const QString& old : databasesLike(server, "datname like 'terva\\_template\\_%'"))
        drop(server, old);
    const QString unfinished = name + "_unfinished";
    if (!run(server, fill("create database %1 encoding 'UTF8'", unfinished)))
        return false;
    {
        const sql::Connection inside(TestServer::conninfo(unfinished));
        if (!succeed(inside.runScript(script), "share/database.sql"))
            return false;
    }
    return run(server, fill("alter database %1 rename to %2", unfinished, name));
}

// A copy does not take the settings of its template with it.
void copySettings(const sql::Connection& server, const QString& from, const QString& to)
{
    const sql::Result settings = server.run(compose(
        "select split_part(setting, '=', 1), substr(setting, strpos(setting, '=') + 1)"
        "  from pg_db_role_setting join pg_database on pg_database.oid = setdatabase, unnest(setconfig) as setting"
        " where datname = '%1' and setrole = 0",
        from));
    for (int row = 0; row < settings.ntuples(); ++row)
        run(server, fill("alter database %1 set %2 to '%3'", to, settings.getvalue(row, 0), settings.getvalue(row, 1)));
}

void createFromTemplate(const sql::Connection& server, const QString& name)
{
    const QString script = TestDatabase::schemaScript();
    const QString source = templateName(script);
    run(server, fill("select pg_advisory_lock(%1)", templateLock));
    if (exists(server, source) || makeTemplate(server, source, script)) {
        run(server, fill("create database %1 template %2", name, source));
        copySettings(server, source, name);
    }
    run(server, fill("select pg_advisory_unlock(%1)", templateLock));
}

// What programs that were killed have left.
void dropLeftovers(const sql::Connection& server)
{
    static bool done = false;
    if (done)
        return;
    done = true;
    const QString idle = "datname like 'terva\\_test\\_%' and not exists"
                         " (select 1 from pg_stat_activity a where a.datname = pg_database.datname)";
    for (const QString& name : databasesLike(server, idle)) {
        if (name.section('_', 2, 2).toLongLong() < secondsNow() - leftoverSeconds)
            drop(server, name);
    }
}

/// Databases that tests of this program are done with; dropped at its end.
class UsedDatabases {
public:
    void dropAll()
    {
        if (names_.isEmpty())
            return;
        const sql::Connection server(TestServer::conninfo("postgres"));
        for (const QString& name : qAsConst(names_))
            drop(server, name);
        names_.clear();
    }

    void add(const QString& name) { names_ << name; }

    /// Opens one that is made as new and gives its name; empty where there is none.
    QString take(sql::Connection& connection)
    {
        while (!names_.isEmpty()) {
            const QString name = names_.takeLast();
            if (reset_ && connection.open(TestServer::conninfo(name)) && (*reset_)(connection, name))
                return name;
            connection.finish();
            drop(sql::Connection(TestServer::conninfo("postgres")), name);
        }
        return {};
    }
    /// Told of the program's first database.
    void learn(const QString& name)
    {
        if (!reset_)
            reset_ = std::make_unique<DatabaseReset>(sql::Connection(TestServer::conninfo(name)));
    }

private:
    QStringList names_;
    std::unique_ptr<DatabaseReset> reset_;
};

// Dropped while the application still stands: what statements are made of goes after it, in any order.
UsedDatabases& usedDatabases()
{
    static UsedDatabases databases;
    static const bool told = [] {
        qAddPostRoutine([] { databases.dropAll(); });
        return true;
    }();
    Q_UNUSED(told)
    return databases;
}

} // namespace

QString TestServer::host() { return variable("TERVA_PG_HOST"); }

QString TestServer::port() { return variable("TERVA_PG_PORT"); }

QString TestServer::user() { return variable("TERVA_PG_USER"); }

QString TestServer::password() { return variable("TERVA_PG_PASSWORD"); }

bool TestServer::isKnown()
{
    if (!host().isEmpty() && !port().isEmpty() && !user().isEmpty())
        return true;
    ADD_FAILURE() << "This test needs a PostgreSQL server. Start one and tell where it is:\n"
                     "  tools/pg start --fast && eval \"$(tools/pg env)\"";
    return false;
}

QString TestServer::conninfo(const QString& database)
{
    return fill("hostaddr=%1 port=%2 dbname=%3 user=%4 password=%5 ", host(), port(), database, user(), password());
}

TestDatabase::TestDatabase(Content content) : content_(content)
{
    if (!TestServer::isKnown())
        return;
    if (content == Content::Schema)
        name_ = usedDatabases().take(connection_);
    if (!name_.isEmpty())
        return;
    const sql::Connection server(TestServer::conninfo("postgres"));
    if (!server.isOk()) {
        ADD_FAILURE() << "No connection to the test server: " << server.errorMessage().toStdString();
        return;
    }
    create(server);
    if (!connection_.open(conninfo()))
        ADD_FAILURE() << connection_.errorMessage().toStdString();
}

void TestDatabase::create(const sql::Connection& server)
{
    static int number = 0;
    name_ = fill("terva_test_%1_%2_%3", secondsNow(), QCoreApplication::applicationPid(), ++number);
    dropLeftovers(server);
    if (content_ != Content::Empty) {
        createFromTemplate(server, name_);
        usedDatabases().learn(name_);
    } else {
        run(server, fill("create database %1 template template0 encoding 'UTF8'", name_));
    }
}

TestDatabase::~TestDatabase()
{
    if (name_.isEmpty())
        return;
    connection_.finish();
    if (content_ != Content::Empty)
        usedDatabases().add(name_);
    else
        drop(sql::Connection(TestServer::conninfo("postgres")), name_);
}

QString TestDatabase::name() const { return name_; }

QString TestDatabase::conninfo() const { return TestServer::conninfo(name_); }

sql::Connection& TestDatabase::connection() { return connection_; }

bool TestDatabase::exec(const QString& script)
{
    // Tests of roles go through all databases of the server; who meets their locks begins anew.
    constexpr int most = 5;
    sql::Result result = connection_.runScript(script);
    for (int tries = 1; tries < most && result.sqlState() == QLatin1String("40P01"); ++tries)
        result = connection_.runScript(script);
    return succeed(result, script);
}

QString TestDatabase::value(const QString& query)
{
    const sql::Result result = connection_.runScript(query);
    succeed(result, query);
    return result.getvalue(0, 0);
}

QVector<QStringList> TestDatabase::rows(const QString& query)
{
    const sql::Result result = connection_.runScript(query);
    succeed(result, query);
    QVector<QStringList> rows;
    for (int row = 0; row < result.ntuples(); ++row) {
        QStringList values;
        for (int column = 0; column < result.nfields(); ++column)
            values.append(result.isNull(row, column) ? QString() : result.getvalue(row, column));
        rows.append(values);
    }
    return rows;
}

QString TestDatabase::schemaScript()
{
    QFile file(QStringLiteral(TERVA_SOURCE_DIR "/share/database.sql"));
    if (!file.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "share/database.sql cannot be read";
        return {};
    }
    return QString::fromUtf8(file.readAll());
}
