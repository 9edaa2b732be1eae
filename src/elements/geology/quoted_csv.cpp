#include "elements/geology/quoted_csv.h"

namespace {

constexpr QLatin1Char separator(';');
constexpr QLatin1Char quote('"');
constexpr QLatin1Char lineFeed('\n');

QString csvCell(const QString& text)
{
    const bool plain = !text.contains(separator) && !text.contains(quote) && !text.contains(lineFeed)
        && !text.contains(QLatin1Char('\r'));
    return plain ? text : quote + QString(text).replace(quote, QLatin1String("\"\"")) + quote;
}

// Takes a text apart letter by letter.
class CsvReader {
public:
    QVector<QStringList> read(const QString& text)
    {
        for (int at = 0; at < text.size(); ++at) {
            if (isQuoted_)
                at += takeQuoted(text, at);
            else
                takePlain(text[at]);
        }
        endLine();
        return rows_;
    }

private:
    // How many letters beyond this one it took.
    int takeQuoted(const QString& text, int at)
    {
        if (text[at] != quote) {
            cell_ += text[at];
            return 0;
        }
        if (at + 1 < text.size() && text[at + 1] == quote) {
            cell_ += quote;
            return 1;
        }
        isQuoted_ = false;
        return 0;
    }

    void takePlain(QChar letter)
    {
        if (letter == quote && cell_.isEmpty())
            isQuoted_ = true;
        else if (letter == separator)
            endCell();
        else if (letter == lineFeed)
            endLine();
        else if (letter != QLatin1Char('\r'))
            cell_ += letter;
    }

    void endCell()
    {
        cells_ << cell_;
        cell_.clear();
    }

    void endLine()
    {
        endCell();
        if (!cells_.join(QString()).trimmed().isEmpty())
            rows_.append(cells_);
        cells_.clear();
        isQuoted_ = false;
    }

    QVector<QStringList> rows_;
    QStringList cells_;
    QString cell_;
    bool isQuoted_ = false;
};

} // namespace

QString csvLine(const QStringList& cells)
{
    QStringList written;
    for (const QString& cell : cells)
        written << csvCell(cell);
    return written.join(separator) + lineFeed;
}

QVector<QStringList> csvRows(const QString& text) { return CsvReader().read(text); }
