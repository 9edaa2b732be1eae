#pragma once
// The one way in which statements for the server are made. Texts go into them
// unescaped, between the quotes of the template; a text that would make another
// statement of it makes one that is never sent. See
// docs/how-a-statement-is-made.md.

#include "base/text.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// A statement, or a piece of one. Made of the module's own constants and of
/// values that compose() has looked at; a QString is neither, on purpose.
class Statement {
public:
    Statement() = default;
    /// A constant of the module's own: a literal or a row of a table of such.
    Statement(const char* constant);
    Statement(const QString&) = delete;

    /// A text that nobody composed and nobody checks: escaped by the client
    /// library, read from a file of tests.
    static Statement whole(const QString& text);

    /// As composed, also when it is refused.
    const QString& text() const { return text_; }
    /// Why it must not be sent; empty for one that may.
    const QString& refusal() const { return refusal_; }
    bool isEmpty() const { return text_.isEmpty(); }

    /// Each piece closes its quotes and comments itself.
    Statement& operator+=(const Statement& next);

private:
    friend class StatementComposer;

    QString text_;
    QString refusal_;
};

Statement operator+(Statement first, const Statement& second);

/// The pieces with the separator between them.
Statement joined(const QVector<Statement>& pieces, const char* separator);

bool operator==(const Statement& one, const Statement& other);

/// A number for a place outside quotes: a real one with its decimals, or a text
/// that is a number or NULL. What is none ("nan", "12 мм") refuses the statement.
struct Numeral {
    Numeral(double value, int decimals) : text(fixed(value, decimals)) { }
    explicit Numeral(const QString& number) : text(number) { }
    QString text;
};

/// The name of a table, column or role for a place outside quotes: letters,
/// digits and underscores.
struct Identifier {
    explicit Identifier(const QString& name) : text(name) { }
    QString text;
};

/// What a user entered, where the template alone knows whether it is a text or a
/// number: between quotes it is a text, elsewhere it must be a number or NULL.
struct Entered {
    explicit Entered(const QString& value) : text(value) { }
    QString text;
};

/// Keys for a list: "1,2,3".
struct IdList {
    template <class Ids>
    explicit IdList(const Ids& ids)
    {
        for (const int id : ids)
            text += (text.isEmpty() ? QString() : QStringLiteral(",")) + QString::number(id);
    }
    QString text;
};

/// A value for a marker; its kind is its type.
class StatementValue {
public:
    enum Kind { Text, Number, Numbers, Name, Piece };

    StatementValue(const QString& text) : kind(Text), text(text) { }
    StatementValue(QChar text) : kind(Text), text(text) { }
    StatementValue(const Numeral& number) : kind(Number), text(number.text) { }
    StatementValue(const Entered& value) : kind(Number), text(value.text) { }
    StatementValue(const IdList& ids) : kind(Numbers), text(ids.text) { }
    StatementValue(const Identifier& name) : kind(Name), text(name.text) { }
    StatementValue(const Statement& piece) : kind(Piece), text(piece.text()), refusal(piece.refusal()) { }
    StatementValue(const char* constant) : StatementValue(Statement(constant)) { }
    StatementValue(int number) : kind(Number), text(QString::number(number)) { }
    StatementValue(qint64 number) : kind(Number), text(QString::number(number)) { }
    StatementValue(bool) = delete;   ///< say what true and false are to become
    StatementValue(double) = delete; ///< see Numeral

    Kind kind;
    QString text;
    QString refusal;
};

/// The template with its markers %1 to %99 filled as by fill(). A text stands
/// between quotes, with its apostrophes all doubled; everywhere else stand
/// numbers, identifiers and pieces.
Statement compose(const char* constant, const QVector<StatementValue>& values);

QVector<StatementValue> entered(const QStringList& values);

template <typename... Rest>
Statement compose(const char* constant, const StatementValue& first, const Rest&... rest)
{
    return compose(constant, QVector<StatementValue>{first, StatementValue(rest)...});
}
