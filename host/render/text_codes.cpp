#include "text_codes.h"

#include "display_list.h"

namespace {

// Reads a multi-line text's codes.
class ParagraphReader {
public:
    explicit ParagraphReader(const QString& text) : text_(text) { }

    QStringList read()
    {
        while (at_ < text_.size())
            readOne();
        lines_ << line_;
        return lines_;
    }

private:
    void readOne()
    {
        const QChar c = text_[at_++];
        if (c == QLatin1Char('\\') && at_ < text_.size())
            readCode(text_[at_++]);
        else if (c == QLatin1Char('^') && at_ < text_.size())
            readCaret(text_[at_++]);
        else if (c == QLatin1Char('\n'))
            breakLine();
        else if (c != QLatin1Char('{') && c != QLatin1Char('}'))
            line_ += c;
    }

    void breakLine()
    {
        lines_ << line_;
        line_.clear();
    }

    void readCaret(QChar c)
    {
        if (c == QLatin1Char('J'))
            breakLine();
        else if (c == QLatin1Char('I'))
            line_ += QLatin1Char(' ');
        else if (c == QLatin1Char(' '))
            line_ += QLatin1Char('^');
    }

    QString upToSemicolon()
    {
        const int end = text_.indexOf(QLatin1Char(';'), at_);
        QString value = text_.mid(at_, end < 0 ? -1 : end - at_);
        at_ = end < 0 ? text_.size() : end + 1;
        return value;
    }

    void readCode(QChar c)
    {
        switch (c.unicode()) {
        case 'P':
        case 'X':
        case 'N': breakLine(); return;
        case '~': line_ += QChar(0x00A0); return;
        case '\\':
        case '{':
        case '}': line_ += c; return;
        case 'L':
        case 'l':
        case 'O':
        case 'o':
        case 'K':
        case 'k': return;
        case 'S': line_ += upToSemicolon().replace(QLatin1Char('#'), QLatin1Char('/')).remove(QLatin1Char('^')); return;
        case 'U': readUnicode(); return;
        case 'f':
        case 'F':
        case 'H':
        case 'h':
        case 'W':
        case 'w':
        case 'T':
        case 't':
        case 'Q':
        case 'q':
        case 'C':
        case 'c':
        case 'A':
        case 'a':
        case 'p': upToSemicolon(); return;
        default: line_ += QLatin1Char('\\'); line_ += c;
        }
    }

    void readUnicode()
    {
        bool ok = false;
        const uint code = text_.mid(at_ + 1, 4).toUInt(&ok, 16);
        if (text_.mid(at_, 1) == QLatin1String("+") && ok) {
            line_ += QChar(ushort(code));
            at_ += 5;
        } else {
            line_ += QStringLiteral("\\U");
        }
    }

    const QString& text_;
    QStringList lines_;
    QString line_;
    int at_ = 0;
};

} // namespace

QString plainLine(const QString& text)
{
    QString plain;
    for (int i = 0; i < text.size(); ++i) {
        if (text.midRef(i, 2) != QLatin1String("%%") || i + 2 >= text.size()) {
            plain += text[i];
            continue;
        }
        const QChar code = text[i + 2].toLower();
        i += 2;
        if (code == QLatin1Char('d'))
            plain += QChar(0x00B0);
        else if (code == QLatin1Char('p'))
            plain += QChar(0x00B1);
        else if (code == QLatin1Char('c'))
            plain += QChar(0x2300);
        else if (code == QLatin1Char('%'))
            plain += QLatin1Char('%');
        else if (code.isDigit()) {
            plain += QChar(ushort(text.mid(i, 3).toUInt()));
            i += 2;
        } else if (code != QLatin1Char('u') && code != QLatin1Char('o')) {
            plain += QStringLiteral("%%") + text[i];
        }
    }
    return plain;
}

QStringList plainParagraphs(const QString& contents)
{
    QStringList lines = ParagraphReader(contents).read();
    for (QString& line : lines)
        line = plainLine(line);
    return lines;
}

QStringList wrapLines(const QStringList& lines, double width)
{
    if (width <= 0.0)
        return lines;
    QStringList wrapped;
    for (const QString& line : lines) {
        QString current;
        const QStringList words = line.split(QLatin1Char(' '));
        for (const QString& word : words) {
            const QString longer = current.isNull() ? word : current + QLatin1Char(' ') + word;
            if (!current.isNull() && unitTextWidth(longer) > width) {
                wrapped << current;
                current = word;
            } else {
                current = longer;
            }
        }
        wrapped << current;
    }
    return wrapped;
}
