#include "exchange/text_file.h"

#include <QFile>
#include <QTextCodec>

namespace {

constexpr int longestLine = 1 << 20;

// The next line with its end; a line that is too long is passed and comes empty.
QByteArray nextLine(QFile& file, QByteArray& buffer)
{
    qint64 size = file.readLine(buffer.data(), buffer.size());
    const QByteArray line(buffer.constData(), int(qMax(qint64(0), size)));
    if (line.size() < longestLine || line.endsWith('\n'))
        return line;
    while (size > 0 && buffer[int(size - 1)] != '\n')
        size = file.readLine(buffer.data(), buffer.size());
    return {};
}

void dropLineEnd(QByteArray& line)
{
    if (line.endsWith('\n'))
        line.chop(1);
    if (line.endsWith('\r'))
        line.chop(1);
}

QString decoded(const QByteArray& line, TextEncoding encoding)
{
    static const QTextCodec* const windows = QTextCodec::codecForName("Windows-1251");
    if (encoding == TextEncoding::Windows1251 && windows)
        return windows->toUnicode(line);
    return QString::fromUtf8(line);
}

} // namespace

QStringList readLines(const QString& path, TextEncoding encoding)
{
    QStringList lines;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return lines;
    if (file.peek(3) == "\xEF\xBB\xBF")
        file.read(3);
    QByteArray buffer(longestLine + 1, Qt::Uninitialized); // a line and the zero behind it
    while (!file.atEnd()) {
        QByteArray line = nextLine(file, buffer);
        dropLineEnd(line);
        lines.append(decoded(line, encoding));
    }
    return lines;
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
