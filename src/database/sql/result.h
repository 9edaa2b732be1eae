#pragma once
// What the server answered to one statement. A value that is moved, never
// copied, and clears itself; every read is safe on a null result, on a row or
// column that is not there and on an absent value.
//
// A column beyond the statement's own is a slip of the code that reads it:
// where the environment holds TERVA_STRICT_COLUMNS, as in tests, such a read
// ends the program instead of giving nothing.

#include <QByteArray>
#include <QString>
#include <memory>

struct pg_result;

namespace sql {

/// libpq's own values. Statements that read are good on TuplesOk exactly,
/// statements that return nothing on CommandOk exactly.
enum class Status {
    EmptyQuery = 0,
    CommandOk = 1,
    TuplesOk = 2,
    CopyOut = 3,
    CopyIn = 4,
    BadResponse = 5,
    NonfatalError = 6,
    FatalError = 7,
};

class Result {
public:
    Result() = default;
    explicit Result(pg_result* result); ///< takes ownership; may be null
    /// The failed result of a statement that no server has seen.
    static Result refused(const QString& message);

    /// FatalError on a null result. What libpq adds beyond the list above is
    /// told by its number and is neither tuples nor a command.
    Status status() const;
    bool isTuples() const;  ///< exactly TuplesOk
    bool isCommand() const; ///< exactly CommandOk
    bool isNullResult() const;
    bool hasRow() const; ///< tuples, and at least one

    int ntuples() const;
    int nfields() const;
    QString fname(int column) const;

    /// The value as text; empty when absent.
    QString getvalue(int row, int column) const;
    int getlength(int row, int column) const;
    bool isNull(int row, int column) const; ///< true where there is no such cell

    /// The bytes as they came: of a result asked for in binary form, the value.
    QByteArray bytes(int row, int column) const;
    /// A bytea value of a result in text form.
    QByteArray unescapedBytes(int row, int column) const;

    int toInt(int row, int column, bool* ok = nullptr) const;       ///< 0 when it does not convert
    double toDouble(int row, int column, bool* ok = nullptr) const; ///< 0 when it does not convert

    /// The number of rows that a command touched, as text; empty for others.
    QString cmdTuples() const;
    /// The server's message, read as UTF-8; empty when all went well.
    QString errorMessage() const;
    QByteArray rawErrorMessage() const;
    /// The five characters of SQLSTATE; empty when all went well and for an
    /// error that is not the server's, as a lost link.
    QString sqlState() const;

private:
    struct Clear {
        void operator()(pg_result* result) const;
    };
    bool holds(int row, int column) const;

    std::unique_ptr<pg_result, Clear> result_;
    QByteArray refusal_;
};

} // namespace sql
