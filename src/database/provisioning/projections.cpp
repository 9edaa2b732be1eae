#include "database/provisioning/projections.h"

#include <QFile>
#include <QStringList>

namespace {

std::optional<Projection> parseLine(const QString& line)
{
    QStringList fields = line.split(QLatin1Char('\t'));
    if (fields.size() != 2)
        fields = line.split(QLatin1Char(';'));
    if (fields.size() != 2)
        return std::nullopt;
    return Projection{fields.at(0), fields.at(1)};
}

} // namespace

QString projectionsPath(const QString& moduleDir)
{
    QString path = moduleDir + QStringLiteral("config/msk_proj.csv");
    return path.replace(QLatin1Char('\\'), QLatin1Char('/'));
}

std::optional<QVector<Projection>> readProjections(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QString text = QString::fromUtf8(file.readAll());
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    QVector<Projection> projections;
    for (QString line : text.split(QLatin1Char('\n'))) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        if (const std::optional<Projection> projection = parseLine(line))
            projections.append(*projection);
    }
    return projections;
}
