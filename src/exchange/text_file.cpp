#include "exchange/text_file.h"

#include "base/placeholders.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTextCodec>
#include <limits>
#include <utility>

namespace {

constexpr int longestLine = 1 << 20;
constexpr int mostNamedLines = 5;

QString decoded(const QByteArray& line, TextEncoding encoding)
{
    static const QTextCodec* const windows = QTextCodec::codecForName("Windows-1251");
    if (encoding == TextEncoding::Windows1251 && windows)
        return windows->toUnicode(line);
    return QString::fromUtf8(line.constData(), line.size()); // a zero byte ends nothing
}

// Line numbers of one kind, of which the first few are named.
class NamedLines {
public:
    void add(int number)
    {
        if (++count_ <= mostNamedLines)
            numbers_ << QString::number(number);
    }
    void tell(const QString& what, QStringList& remarks) const
    {
        if (count_ == 0)
            return;
        const QString more = count_ > mostNamedLines ? QStringLiteral(" и другие") : QString();
        remarks << what + QStringLiteral(": ") + numbers_.join(QStringLiteral(", ")) + more + QLatin1Char('.');
    }

private:
    int count_ = 0;
    QStringList numbers_;
};

class TextReader {
public:
    TextReader(QFile& file, TextEncoding encoding, const WorkStep& step, int most)
        : file_(file), encoding_(encoding), step_(step), most_(most)
    { }

    // The rows of a file that is not whole would be taken for all of it.
    TextFile read()
    {
        text_.encoding = encoding_;
        const auto before = sizeAndTime();
        QByteArray buffer(longestLine + 1, Qt::Uninitialized); // a line and the zero behind it
        while (!file_.atEnd() && file_.error() == QFileDevice::NoError && text_.lines.size() < most_) {
            takeStretch(buffer);
            if (!goesOn(before.first))
                return nothing(QStringLiteral("Чтение файла остановлено."));
        }
        if (file_.error() != QFileDevice::NoError)
            return nothing(fill(QStringLiteral("Файл прочитан не до конца: %1."), file_.errorString()));
        if (sizeAndTime() != before)
            return nothing(QStringLiteral("Файл изменился во время чтения: его ещё пишет другая программа. "
                                          "Откройте его снова, когда она закончит."));
        tooLong_.tell(QStringLiteral("Пропущены строки длиннее 1 МиБ"), text_.remarks);
        withZeros_.tell(QStringLiteral("Нулевые байты в строках"), text_.remarks);
        if (bareReturns_)
            text_.remarks << QStringLiteral("Строки файла разделены одним знаком возврата каретки (CR).");
        return text_;
    }

private:
    bool goesOn(qint64 size)
    {
        constexpr int between = 1024; // stretches
        constexpr qint64 unit = 1024;
        return !step_ || ++stretches_ % between != 0 || step_(int(file_.pos() / unit), int(size / unit));
    }

    std::pair<qint64, QDateTime> sizeAndTime() const
    {
        const QFileInfo now(file_.fileName());
        return {now.size(), now.lastModified()};
    }

    TextFile nothing(const QString& remark) const
    {
        TextFile text;
        text.encoding = encoding_;
        text.remarks << remark;
        return text;
    }

    // What stands before the next line feed.
    void takeStretch(QByteArray& buffer)
    {
        qint64 size = file_.readLine(buffer.data(), buffer.size());
        QByteArray stretch(buffer.constData(), int(qMax(qint64(0), size)));
        if (stretch.size() >= longestLine && !stretch.endsWith('\n')) {
            while (size > 0 && buffer[int(size - 1)] != '\n')
                size = file_.readLine(buffer.data(), buffer.size());
            tooLong_.add(text_.lines.size() + 1);
            text_.lines << QString();
            return;
        }
        if (stretch.endsWith('\n'))
            stretch.chop(1);
        if (stretch.endsWith('\r'))
            stretch.chop(1);
        const bool severalLines = stretch.contains('\r');
        bareReturns_ = bareReturns_ || severalLines;
        if (!severalLines)
            return takeLine(stretch);
        for (const QByteArray& line : stretch.split('\r'))
            takeLine(line);
    }

    void takeLine(const QByteArray& line)
    {
        text_.lines << decoded(line, encoding_);
        if (line.contains('\0'))
            withZeros_.add(text_.lines.size());
    }

    QFile& file_;
    TextEncoding encoding_;
    const WorkStep& step_;
    int most_;
    int stretches_ = 0;
    TextFile text_;
    NamedLines tooLong_, withZeros_;
    bool bareReturns_ = false;
};

// By its mark, or by the zero bytes that Latin letters and digits have there.
bool isUtf16(const QByteArray& head)
{
    if (head.startsWith("\xFF\xFE") || head.startsWith("\xFE\xFF"))
        return true;
    int zeros[2] = {0, 0};
    for (int i = 0; i < head.size(); ++i)
        zeros[i % 2] += head[i] == '\0';
    const int many = head.size() / 5;
    return head.size() >= 4 && ((zeros[0] > many && zeros[1] == 0) || (zeros[1] > many && zeros[0] == 0));
}

TextFile readUpTo(int most, const QString& path, TextEncoding encoding, const WorkStep& step)
{
    TextFile nothing;
    nothing.encoding = encoding;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (!path.isEmpty())
            nothing.remarks << fill(QStringLiteral("Файл не открывается: %1."), path);
        return nothing;
    }
    if (isUtf16(file.peek(4096))) {
        nothing.remarks << QStringLiteral(
            "Файл записан в кодировке UTF-16. Сохраните его в кодировке UTF-8 или Windows-1251.");
        return nothing;
    }
    if (file.peek(3) != "\xEF\xBB\xBF")
        return TextReader(file, encoding, step, most).read();
    file.read(3);
    TextFile text = TextReader(file, TextEncoding::Utf8, step, most).read();
    if (encoding != TextEncoding::Utf8)
        text.remarks.prepend(QStringLiteral("Файл начинается с метки порядка байтов: его кодировка UTF-8."));
    return text;
}

} // namespace

TextFile readTextFile(const QString& path, TextEncoding encoding, const WorkStep& step)
{
    return readUpTo(std::numeric_limits<int>::max(), path, encoding, step);
}

QStringList readLines(const QString& path, TextEncoding encoding) { return readTextFile(path, encoding).lines; }

QStringList readFirstLines(const QString& path, TextEncoding encoding, int most)
{
    return readUpTo(most, path, encoding, {}).lines.mid(0, most);
}

QStringList splitCells(const QString& line, const QString& separator)
{
    // An empty separator would cut the line between all its letters.
    return separator.isEmpty() ? QStringList(line) : line.split(separator);
}

int countCells(const QString& line, const QString& separator)
{
    return separator.isEmpty() ? 1 : line.count(separator) + 1;
}
