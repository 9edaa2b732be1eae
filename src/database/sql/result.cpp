#include "database/sql/result.h"

#include <libpq-fe.h>

namespace sql {

static_assert(int(Status::EmptyQuery) == PGRES_EMPTY_QUERY, "");
static_assert(int(Status::CommandOk) == PGRES_COMMAND_OK, "");
static_assert(int(Status::TuplesOk) == PGRES_TUPLES_OK, "");
static_assert(int(Status::CopyOut) == PGRES_COPY_OUT, "");
static_assert(int(Status::CopyIn) == PGRES_COPY_IN, "");
static_assert(int(Status::BadResponse) == PGRES_BAD_RESPONSE, "");
static_assert(int(Status::NonfatalError) == PGRES_NONFATAL_ERROR, "");
static_assert(int(Status::FatalError) == PGRES_FATAL_ERROR, "");

void Result::Clear::operator()(pg_result* result) const { PQclear(result); }

Result::Result(pg_result* result) : result_(result) { }

Result Result::refused(const QString& message)
{
    Result result(PQmakeEmptyPGresult(nullptr, PGRES_FATAL_ERROR));
    result.refusal_ = message.toUtf8();
    return result;
}

Status Result::status() const { return static_cast<Status>(PQresultStatus(result_.get())); }

bool Result::isTuples() const { return status() == Status::TuplesOk; }

bool Result::isCommand() const { return status() == Status::CommandOk; }

bool Result::isNullResult() const { return !result_; }

bool Result::hasRow() const { return isTuples() && ntuples() > 0; }

int Result::ntuples() const { return PQntuples(result_.get()); }

int Result::nfields() const { return PQnfields(result_.get()); }

// libpq complains on stderr about a cell out of range, so nothing gets there.
bool Result::holds(int row, int column) const
{
    const bool known = column >= 0 && column < nfields();
    if (!known && isTuples() && qEnvironmentVariableIsSet("TERVA_STRICT_COLUMNS"))
        qFatal("column %d is read of a result with %d", column, nfields());
    return known && row >= 0 && row < ntuples();
}

QString Result::fname(int column) const
{
    if (column < 0 || column >= nfields())
        return {};
    return QString::fromUtf8(PQfname(result_.get(), column));
}

QString Result::getvalue(int row, int column) const
{
    if (!holds(row, column))
        return {};
    return QString::fromUtf8(PQgetvalue(result_.get(), row, column), getlength(row, column));
}

int Result::getlength(int row, int column) const
{
    return holds(row, column) ? PQgetlength(result_.get(), row, column) : 0;
}

bool Result::isNull(int row, int column) const
{
    return !holds(row, column) || PQgetisnull(result_.get(), row, column);
}

QByteArray Result::bytes(int row, int column) const
{
    if (!holds(row, column))
        return {};
    return QByteArray(PQgetvalue(result_.get(), row, column), getlength(row, column));
}

QByteArray Result::unescapedBytes(int row, int column) const
{
    if (isNull(row, column))
        return {};
    size_t length = 0;
    const auto* escaped = reinterpret_cast<const unsigned char*>(PQgetvalue(result_.get(), row, column));
    unsigned char* plain = PQunescapeBytea(escaped, &length);
    if (!plain)
        return {};
    QByteArray value(reinterpret_cast<const char*>(plain), int(length));
    PQfreemem(plain);
    return value;
}

int Result::toInt(int row, int column, bool* ok) const { return getvalue(row, column).toInt(ok); }

double Result::toDouble(int row, int column, bool* ok) const { return getvalue(row, column).toDouble(ok); }

QString Result::cmdTuples() const { return result_ ? QString::fromUtf8(PQcmdTuples(result_.get())) : QString(); }

QString Result::errorMessage() const { return QString::fromUtf8(rawErrorMessage()); }

QString Result::sqlState() const
{
    return QString::fromLatin1(result_ ? PQresultErrorField(result_.get(), PG_DIAG_SQLSTATE) : nullptr);
}

QByteArray Result::rawErrorMessage() const
{
    return refusal_.isEmpty() ? QByteArray(PQresultErrorMessage(result_.get())) : refusal_;
}

} // namespace sql
