// Reads logger files of growing length: lines from the disk, candidates with
// their names, dates and profiles, the table with its checks. No database.
#include "exchange/measure_reading.h"
#include "exchange/text_file.h"

#include <QElapsedTimer>
#include <QTemporaryFile>
#include <QTextStream>

namespace {

constexpr int depths = 13;

QByteArray loggerFile(int lines)
{
    QByteArray bytes = "Имя;Серийный номер;Дата замера;Время замера;Темп.возд";
    for (int i = 1; i <= depths; ++i)
        bytes += ';' + QByteArray::number(i);
    bytes += '\n';
    const QDateTime start(QDate(2021, 1, 1), QTime(0, 0));
    for (int line = 0; line < lines; ++line) {
        bytes += QString("ТС-%1;SN-1;").arg(line % 50).toUtf8();
        bytes += start.addSecs(600LL * line).toString("dd.MM.yyyy;hh:mm:ss").toUtf8() + ";-12.5";
        for (int i = 0; i < depths; ++i)
            bytes += ';' + QByteArray::number(-1.0 - i * 0.1);
        bytes += '\n';
    }
    return bytes;
}

// Fifty wells and ten years of months.
ReadingTask taskFor(const QStringList& lines)
{
    ReadingTask task;
    task.lines = lines;
    task.separator = ";";
    task.format = &importFamily(FamilyKey::Ts)->templates.last();
    for (int well = 0; well < 50; ++well) {
        task.scope.elements.append({QString("ТС-%1").arg(well), well + 1});
        task.scope.byPosition[1].append(well + 1);
    }
    task.lists.devices.append({"SN-1 | коса", 1});
    for (int month = 0; month < 120; ++month) {
        const QDate first = QDate(2021, 1, 1).addMonths(month);
        task.lists.cycles.append({QString::number(month), month + 1});
        task.lists.cycleRecords.append({month + 1, QString::number(month), first, first.addMonths(1).addDays(-1), {}});
    }
    return task;
}

} // namespace

int main()
{
    QTextStream out(stdout);
    out << "lines      read  candidates       table, ms\n";
    for (const int lines : {1000, 10000, 100000}) {
        QTemporaryFile file;
        if (!file.open())
            return 1;
        file.write(loggerFile(lines));
        file.close();
        QElapsedTimer clock;
        clock.start();
        const ReadingTask task = taskFor(readLines(file.fileName(), TextEncoding::Utf8));
        const qint64 read = clock.restart();
        MeasureTable::Measures measures = readMeasures(*importFamily(FamilyKey::Ts), task);
        const qint64 matched = clock.restart();
        MeasureTable table(*importFamily(FamilyKey::Ts));
        table.setMeasures(std::move(measures), task.scope);
        const qint64 checked = clock.elapsed();
        if (table.rowCount() != lines)
            return 1;
        out << QString("%1 %2 %3 %4\n").arg(lines, 8).arg(read, 6).arg(matched, 11).arg(checked, 11);
    }
    return 0;
}
