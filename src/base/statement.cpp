#include "base/statement.h"

#include "base/placeholders.h"
#include "base/statement_scan.h"

namespace {

constexpr int shownLength = 60;

QString refused(const char* why, const QString& value = QString())
{
    QString shown = value.left(shownLength);
    shown.replace(QChar::Null, QChar(0xfffd));
    return QStringLiteral("Запрос не отправлен: ") + fill(QString::fromUtf8(why), shown);
}

QString unclosed() { return refused("в его тексте не закрыты кавычки или примечание"); }

// Every run of the mark has an even length.
bool isDoubled(const QString& text, QChar mark)
{
    for (int at = text.indexOf(mark); at >= 0; at = text.indexOf(mark, at)) {
        int end = at;
        while (end < text.size() && text.at(end) == mark)
            ++end;
        if ((end - at) % 2 != 0)
            return false;
        at = end;
    }
    return true;
}

// By hand and not by regular expressions: those of the toolkit do not outlive
// main, and static objects still make statements when the program ends.
bool isDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

int skipDigits(const QString& text, int at)
{
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at;
}

int skipSign(const QString& text, int at)
{
    const bool sign = at < text.size() && (text[at] == QLatin1Char('+') || text[at] == QLatin1Char('-'));
    return sign ? at + 1 : at;
}

// [sign] digits [. digits] or . digits, [e [sign] digits]; or NULL.
bool isNumber(const QString& text)
{
    if (text.compare(QLatin1String("null"), Qt::CaseInsensitive) == 0)
        return true;
    const int whole = skipSign(text, 0);
    int at = skipDigits(text, whole);
    int digits = at - whole;
    if (at < text.size() && text[at] == QLatin1Char('.')) {
        const int fraction = at + 1;
        at = skipDigits(text, fraction);
        digits += at - fraction;
    }
    if (digits == 0)
        return false;
    if (at < text.size() && text[at].toLower() == QLatin1Char('e')) {
        const int exponent = skipSign(text, at + 1);
        at = skipDigits(text, exponent);
        if (at == exponent)
            return false;
    }
    return at == text.size();
}

bool isIdentifier(const QString& text)
{
    const auto mayStand = [](QChar c) {
        return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))
            || c == QLatin1Char('_') || c.unicode() >= 0x80;
    };
    for (const QChar c : text) {
        if (!mayStand(c) && !isDigit(c))
            return false;
    }
    return !text.isEmpty() && mayStand(text[0]);
}

// What is wrong with a value of this kind between quotes; empty: nothing.
QString wrongInQuotes(StatementScan::Place place, const QString& text)
{
    if (place == StatementScan::InLineComment || place == StatementScan::InBlockComment)
        return refused("значение «%1» стоит в примечании", text);
    if (place == StatementScan::InText && !isDoubled(text, QLatin1Char('\'')))
        return refused("апостроф в тексте «%1»", text);
    if (place == StatementScan::InName && !isDoubled(text, QLatin1Char('"')))
        return refused("кавычка в имени «%1»", text);
    if (place == StatementScan::InEscapedText
        && (!isDoubled(text, QLatin1Char('\'')) || text.contains(QLatin1Char('\\'))))
        return refused("апостроф или обратная черта в тексте «%1»", text);
    if (place == StatementScan::InDollarText && text.contains(QLatin1Char('$')))
        return refused("знак доллара в тексте «%1»", text);
    return {};
}

QString wrongOutside(const StatementValue& value, const StatementScan& scan)
{
    switch (value.kind) {
    case StatementValue::Text: return refused("текст «%1» стоит вне кавычек", value.text);
    case StatementValue::Number:
        if (!isNumber(value.text))
            return refused("«%1» не число", value.text);
        break;
    case StatementValue::Numbers:
        if (value.text.isEmpty())
            return refused("список номеров пуст");
        break;
    case StatementValue::Name:
        if (!isIdentifier(value.text))
            return refused("«%1» не имя таблицы, столбца или роли", value.text);
        break;
    case StatementValue::Piece: {
        StatementScan piece;
        piece.take(value.text);
        const bool continues = scan.isBehindQuote()
            && (value.text.startsWith(QLatin1Char('\'')) || value.text.startsWith(QLatin1Char('"')));
        if (piece.place() != StatementScan::Outside || continues)
            return unclosed();
        break;
    }
    }
    // Two signs in a row would begin a comment.
    if (scan.isBehind(QLatin1Char('-')) && value.text.startsWith(QLatin1Char('-')))
        return refused("перед числом «%1» стоит минус", value.text);
    return {};
}

} // namespace

class StatementComposer {
public:
    static Statement compose(const QString& text, const QVector<StatementValue>& values)
    {
        Statement made;
        StatementScan scan;
        made.text_.reserve(text.size());
        for (int at = 0; at < text.size();) {
            const placeholders::Marker marker = text.at(at) == QLatin1Char('%')
                ? placeholders::markerAt(text, at, values.size())
                : placeholders::Marker();
            if (marker.number == 0) {
                scan.take(text.at(at));
                made.text_ += text.at(at++);
                continue;
            }
            put(values.at(marker.number - 1), scan, made);
            at += marker.length;
        }
        return made;
    }

    static QString wrongWith(const StatementValue& value, const StatementScan& scan)
    {
        if (!value.refusal.isEmpty())
            return value.refusal;
        // The client library ends a statement there.
        if (value.text.contains(QChar::Null))
            return refused("недопустимый знак в тексте «%1»", value.text);
        return scan.place() == StatementScan::Outside ? wrongOutside(value, scan)
                                                      : wrongInQuotes(scan.place(), value.text);
    }

    static void put(const StatementValue& value, StatementScan& scan, Statement& made)
    {
        if (made.refusal_.isEmpty())
            made.refusal_ = wrongWith(value, scan);
        made.text_ += value.text;
        if (scan.place() == StatementScan::Outside) // an accepted value has closed what it opened
            scan.take(value.text);
    }
};

Statement::Statement(const char* constant) : text_(QString::fromUtf8(constant)) { }

Statement Statement::whole(const QString& text)
{
    Statement made;
    made.text_ = text;
    return made;
}

Statement& Statement::operator+=(const Statement& next)
{
    if (refusal_.isEmpty())
        refusal_ = next.refusal_;
    StatementScan scan;
    scan.take(text_);
    const bool continues =
        scan.isBehindQuote() && (next.text_.startsWith(QLatin1Char('\'')) || next.text_.startsWith(QLatin1Char('"')));
    if (refusal_.isEmpty() && (scan.place() != StatementScan::Outside || continues))
        refusal_ = unclosed();
    text_ += next.text_;
    return *this;
}

Statement operator+(Statement first, const Statement& second) { return first += second; }

Statement joined(const QVector<Statement>& pieces, const char* separator)
{
    Statement all;
    for (int i = 0; i < pieces.size(); ++i)
        all += (i > 0 ? Statement(separator) : Statement()) + pieces.at(i);
    return all;
}

bool operator==(const Statement& one, const Statement& other)
{
    return one.text() == other.text() && one.refusal() == other.refusal();
}

QVector<StatementValue> entered(const QStringList& values)
{
    QVector<StatementValue> all;
    for (const QString& value : values)
        all.append(Entered(value));
    return all;
}

Statement compose(const char* constant, const QVector<StatementValue>& values)
{
    return StatementComposer::compose(QString::fromUtf8(constant), values);
}
