#include "base/statement_scan.h"

namespace {

const QChar apostrophe = QLatin1Char('\'');
const QChar quote = QLatin1Char('"');
const QChar dollar = QLatin1Char('$');
const QChar backslash = QLatin1Char('\\');

bool isNameSign(QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('_') || c.unicode() >= 0x80; }

} // namespace

StatementScan::Place StatementScan::place() const { return ending_ ? Outside : place_; }

void StatementScan::take(const QString& text)
{
    for (const QChar c : text)
        take(c);
}

void StatementScan::take(QChar c)
{
    if (ending_) {
        ending_ = false;
        // Doubled: the text goes on.
        const QChar mark = place_ == InName ? quote : apostrophe;
        if (c != mark)
            place_ = Outside;
        if (place_ != Outside) {
            last_ = c;
            return;
        }
    }
    switch (place_) {
    case Outside: takeOutside(c); break;
    case InText: ending_ = c == apostrophe; break;
    case InName: ending_ = c == quote; break;
    case InEscapedText:
        ending_ = !skips_ && c == apostrophe;
        skips_ = !skips_ && c == backslash;
        break;
    case InDollarText: takeDollar(c); break;
    case InLineComment:
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r'))
            place_ = Outside;
        break;
    case InBlockComment:
        if (last_ == QLatin1Char('/') && c == QLatin1Char('*')) {
            ++depth_;
            c = QChar();
        } else if (last_ == QLatin1Char('*') && c == QLatin1Char('/')) {
            c = QChar();
            if (--depth_ == 0)
                place_ = Outside;
        }
        break;
    }
    beforeLast_ = last_;
    last_ = c;
}

void StatementScan::takeOutside(QChar c)
{
    const bool tagGoesOn =
        !newTag_.isEmpty() && (isNameSign(c) || c == dollar) && !(newTag_.size() == 1 && c.isDigit());
    if (tagGoesOn) {
        newTag_ += c;
        if (c == dollar) {
            tag_ = newTag_;
            newTag_.clear();
            pending_.clear();
            place_ = InDollarText;
        }
        return;
    }
    newTag_.clear();
    if (c == apostrophe || c == quote)
        openQuote(c);
    else if (c == dollar && !isNameSign(last_))
        newTag_ = c;
    else if (c == QLatin1Char('-') && last_ == QLatin1Char('-'))
        place_ = InLineComment;
    else if (c == QLatin1Char('*') && last_ == QLatin1Char('/')) {
        place_ = InBlockComment;
        depth_ = 1;
    }
}

void StatementScan::openQuote(QChar c)
{
    const bool escaped = last_.toLower() == QLatin1Char('e') && !isNameSign(beforeLast_) && beforeLast_ != dollar;
    place_ = c == quote ? InName : escaped ? InEscapedText : InText;
    skips_ = false;
}

void StatementScan::takeDollar(QChar c)
{
    pending_ = (pending_ + c).right(tag_.size());
    if (pending_ == tag_)
        place_ = Outside;
}
