#pragma once
// The connection to the project's server. It is used from the host's main
// thread only, and whoever asks waits until the server has answered: see busy.h.

#include "base/statement.h"
#include "database/sql/result.h"

#include <QString>
#include <QVector>
#include <memory>

struct pg_conn;

namespace sql {

/// One value for a "$n" of a statement.
struct Parameter {
    QByteArray value;
    bool binary = false;
    bool null = false;
};

Parameter text(const QString& value); ///< goes as text, cast in the statement
Parameter text(int value);            ///< the same, decimal
Parameter binary(const QByteArray& value);
Parameter null();

enum class Format { Text = 0, Binary = 1 };

class Connection {
public:
    Connection() = default;
    explicit Connection(const QString& conninfo);

    /// Gives up after 10 seconds, unless the string says otherwise.
    /// Connects and keeps the new handle, also one that failed: its message can
    /// still be asked. The handle before it is finished. Returns isOk().
    bool open(const QString& conninfo);
    void finish();
    /// What the last good handle was opened with, also after a later try failed; empty when none ever was.
    QString conninfo() const { return conninfo_; }

    bool isOpen() const; ///< there is a handle, good or bad
    bool isOk() const;   ///< there is a handle and its status is CONNECTION_OK

    /// The bytes of the last message: see decodeServerMessage().
    QByteArray rawErrorMessage() const;
    /// The last message read as UTF-8.
    QString errorMessage() const;

    /// Runs exactly one statement; the server refuses a text that holds two.
    /// Without a handle the result is null.
    /// A statement that is refused (see Statement) is not sent, nor is one that
    /// comes while another is under way: the result is a failed one.
    Result run(const Statement& statement) const;
    /// The same with values for $1, $2, ... and the form of the answer.
    Result run(const Statement& statement, const QVector<Parameter>& parameters, Format answer = Format::Text) const;
    /// Runs a text of any number of statements, in one transaction unless the
    /// text says otherwise; the answer is the last statement's.
    Result runScript(const QString& script) const;
    /// The same for the bytes of a file, which go to the server as they are. It
    /// sees them up to the first zero byte.
    Result runScriptBytes(const QByteArray& script) const;

    /// Quoted for a statement, quote marks included; empty when the connection
    /// is lost or the text is no valid UTF-8.
    QString escapeIdentifier(const QString& name) const;
    QString escapeLiteral(const QString& value) const;
    /// The same as pieces of a statement.
    Statement identifier(const QString& name) const;
    Statement literal(const QString& value) const;

private:
    Result refuse(const QString& why) const;
    template <class Send>
    Result runSent(Send send) const;

    struct Finish {
        void operator()(pg_conn* connection) const;
    };
    mutable std::unique_ptr<pg_conn, Finish> connection_;
    mutable QString refusal_; ///< why the last statement was not sent or not waited for
    QString conninfo_;
};

/// A server on a Russian Windows machine sends its connection errors in
/// windows-1251, any other in UTF-8: the bytes are read as UTF-8 and, when that
/// meets an invalid sequence, as windows-1251.
QString decodeServerMessage(const QByteArray& bytes);

} // namespace sql
