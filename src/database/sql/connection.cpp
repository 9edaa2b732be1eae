#include "database/sql/connection.h"

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

QString takeEscaped(char* escaped)
{
    const QString text = QString::fromUtf8(escaped);
    PQfreemem(escaped);
    return text;
}

} // namespace

Parameter text(const QString& value) { return {value.toUtf8(), false, false}; }

Parameter text(int value) { return {QByteArray::number(value), false, false}; }

Parameter binary(const QByteArray& value) { return {value, true, false}; }

Parameter null() { return {QByteArray(), false, true}; }

void Connection::Finish::operator()(pg_conn* connection) const { PQfinish(connection); }

Connection::Connection(const QString& conninfo) { open(conninfo); }

bool Connection::open(const QString& conninfo)
{
    const QString wanted = conninfo; // may be a reference to our own
    connection_.reset(PQconnectdb(wanted.toUtf8().constData()));
    if (!isOk())
        return false;
    conninfo_ = wanted;
    PQsetNoticeProcessor(connection_.get(), swallowNotice, nullptr);
    useUtf8(connection_.get());
    return isOk();
}

void Connection::finish()
{
    connection_.reset();
    conninfo_.clear();
}

bool Connection::isOpen() const { return bool(connection_); }

bool Connection::isOk() const { return connection_ && PQstatus(connection_.get()) == CONNECTION_OK; }

QByteArray Connection::rawErrorMessage() const { return QByteArray(PQerrorMessage(connection_.get())); }

QString Connection::errorMessage() const { return QString::fromUtf8(rawErrorMessage()); }

Result Connection::run(const QString& statement) const { return run(statement, {}); }

Result Connection::run(const QString& statement, const QVector<Parameter>& parameters, Format answer) const
{
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
    return Result(PQexecParams(connection_.get(), statement.toUtf8().constData(), int(count), nullptr, values.data(),
                               lengths.data(), formats.data(), int(answer)));
}

Result Connection::runScript(const QString& script) const { return runScriptBytes(script.toUtf8()); }

Result Connection::runScriptBytes(const QByteArray& script) const
{
    return Result(PQexec(connection_.get(), script.constData()));
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

QString decodeServerMessage(const QByteArray& bytes)
{
    QTextCodec::ConverterState state;
    const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars == 0)
        return text;
    return QTextCodec::codecForName("windows-1251")->toUnicode(bytes);
}

} // namespace sql
