#include "command_table.h"

#include <QCoreApplication>
#include <QFile>

QVector<MenuRow> parseMenuTable(const QString& text)
{
    QVector<MenuRow> rows;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QStringList parts = line.trimmed().split(QLatin1Char(';'));
        if (parts.size() != 3 || parts[0].isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        if (parts[1] == QLatin1String("-"))
            rows.append({parts[0], QString(), QString()});
        else if (!parts[1].isEmpty() && !parts[2].isEmpty())
            rows.append({parts[0], parts[1], parts[2]});
    }
    return rows;
}

QVector<MenuRow> readMenuTable()
{
    QFile file(QCoreApplication::applicationDirPath() + QStringLiteral("/config/menu.csv"));
    return file.open(QIODevice::ReadOnly) ? parseMenuTable(QString::fromUtf8(file.readAll())) : QVector<MenuRow>();
}
