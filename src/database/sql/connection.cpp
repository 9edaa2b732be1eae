#include "database/sql/connection.h"

#include "database/sql/busy.h"
#include "database/sql/failed_statements.h"
#include "database/sql/statement_wait.h"

#include <QTextCodec>
#include <libpq-fe.h>
#include <vector>

namespace sql {

namespace {

// Notices ("table does not exist, skipping") are of no interest to the user,
// and libpq would print them to stderr.
void swallowNotice(void*, const char*) { }

// Texts travel as UTF-8, whatever the environment or an old database says.
void useUtf8(pg_conn* connection)
{
    const char* encoding = PQparameterStatus(connection, "client_encoding");
    if (!encoding || qstrcmp(encoding, "UTF8") != 0)
        PQsetClientEncoding(connection, "UTF8");
}

// A backslash in a text is a backslash, also where a server was set otherwise.
void useStandardTexts(pg_conn* connection)
{
    const char* standard = PQparameterStatus(connection, "standard_conforming_strings");
    if (!standard || qstrcmp(standard, "on") != 0)
        PQclear(PQexec(connection, "SET standard_conforming_strings = on"));
}

// A link that died is noticed within half a minute. The string stays what the
// caller made it.
pg_conn* connectWithKeepalives(const QByteArray& conninfo)
{
    if (!conninfo.contains('='))
        return PQconnectdb(conninfo.constData());
    const char* const keys[] = {"dbname",           "keepalives_idle",  "keepalives_interval",
                                "keepalives_count", "tcp_user_timeout", nullptr};
    const char* const values[] = {conninfo.constData(), "10", "5", "3", "30000", nullptr};
    return PQconnectdbParams(keys, values, 1);
}

QString takeEscaped(char* escaped)
{
    QString text = QString::fromUtf8(escaped);
    PQfreemem(escaped);
    return text;
}

int failures = 0;

Result counted(Result result)
{
    failures += result.isTuples() || result.isCommand() ? 0 : 1;
    return result;
}

} // namespace

int failedStatements() { return failures; }

Parameter text(const QString& value) { return {value.toUtf8(), false, false}; }

Parameter text(int value) { return {QByteArray::number(value), false, false}; }

Parameter binary(const QByteArray& value) { return {value, true, false}; }

Parameter null() { return {QByteArray(), false, true}; }

void Connection::Finish::operator()(pg_conn* connection) const { PQfinish(connection); }

Connection::Connection(const QString& conninfo) { open(conninfo); }

bool Connection::open(const QString& conninfo)
{
    if (isStatementUnderWay())
        return false;
    refusal_.clear();
    if (qEnvironmentVariableIsEmpty("PGCONNECT_TIMEOUT"))
        qputenv("PGCONNECT_TIMEOUT", "10");
    // May be a reference to our own. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const QString wanted = conninfo;
    connection_.reset(connectWithKeepalives(wanted.toUtf8()));
    if (!isOk())
        return false;
    conninfo_ = wanted;
    PQsetNoticeProcessor(connection_.get(), swallowNotice, nullptr);
    useUtf8(connection_.get());
    useStandardTexts(connection_.get());
    // A large value on a stalled link would hold the program while it is sent.
    PQsetnonblocking(connection_.get(), 1);
    return isOk();
}

void Connection::finish()
{
    if (isStatementUnderWay())
        return;
    connection_.reset();
    conninfo_.clear();
}

bool Connection::isOpen() const { return bool(connection_); }

bool Connection::isOk() const { return connection_ && PQstatus(connection_.get()) == CONNECTION_OK; }

QByteArray Connection::rawErrorMessage() const
{
    return refusal_.isEmpty() ? QByteArray(PQerrorMessage(connection_.get())) : refusal_.toUtf8();
}

QString Connection::errorMessage() const { return QString::fromUtf8(rawErrorMessage()); }

Result Connection::refuse(const QString& why) const
{
    refusal_ = why;
    return Result::refused(why);
}

template <class Send>
Result Connection::runSent(Send send) const
{
    if (isStatementUnderWay())
        return refuse(QStringLiteral("Запрос не отправлен: предыдущий ещё выполняется"));
    refusal_.clear();
    if (!connection_)
        return Result();
    Result result;
    bool lost = false;
    {
        StatementWait wait(connection_.get());
        if (!wait.clearTheWay() || !send(connection_.get()))
            return Result();
        result = wait.finish();
        lost = wait.isLost();
    }
    refusal_.clear(); // of what was tried meanwhile
    if (!lost)
        return result;
    connection_.reset();
    return refuse(QStringLiteral("Запрос прерван: сервер не отвечает"));
}

Result Connection::run(const Statement& statement) const { return run(statement, {}); }

Result Connection::run(const Statement& statement, const QVector<Parameter>& parameters, Format answer) const
{
    if (!statement.refusal().isEmpty())
        return refuse(statement.refusal());
    const auto count = size_t(parameters.size());
    std::vector<const char*> values(count);
    std::vector<int> lengths(count);
    std::vector<int> formats(count);
    for (size_t i = 0; i < count; ++i) {
        const Parameter& parameter = parameters.at(int(i));
        values[i] = parameter.null ? nullptr : parameter.value.constData();
        lengths[i] = parameter.value.size();
        formats[i] = parameter.binary ? 1 : 0;
    }
    const QByteArray text = statement.text().toUtf8();
    return counted(runSent([&](pg_conn* connection) {
        return PQsendQueryParams(connection, text.constData(), int(count), nullptr, values.data(), lengths.data(),
                                 formats.data(), int(answer))
            == 1;
    }));
}

Result Connection::runScript(const QString& script) const { return runScriptBytes(script.toUtf8()); }

Result Connection::runScriptBytes(const QByteArray& script) const
{
    return counted(
        runSent([&script](pg_conn* connection) { return PQsendQuery(connection, script.constData()) == 1; }));
}

QString Connection::escapeIdentifier(const QString& name) const
{
    const QByteArray bytes = name.toUtf8();
    return takeEscaped(connection_ ? PQescapeIdentifier(connection_.get(), bytes.constData(), size_t(bytes.size()))
                                   : nullptr);
}

QString Connection::escapeLiteral(const QString& value) const
{
    const QByteArray bytes = value.toUtf8();
    return takeEscaped(connection_ ? PQescapeLiteral(connection_.get(), bytes.constData(), size_t(bytes.size()))
                                   : nullptr);
}

Statement Connection::identifier(const QString& name) const { return Statement::whole(escapeIdentifier(name)); }

Statement Connection::literal(const QString& value) const { return Statement::whole(escapeLiteral(value)); }

QString decodeServerMessage(const QByteArray& bytes)
{
    QTextCodec::ConverterState state;
    QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars == 0)
        return text;
    return QTextCodec::codecForName("windows-1251")->toUnicode(bytes);
}

} // namespace sql
