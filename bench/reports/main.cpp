// How long reports take, and how much memory.
#include "reports/generator/report_run.h"
#include "session/project_session.h"
#include "spent_time.h"
#include "support/console_capture.h"
#include "support/test_database.h"

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

namespace {

constexpr int wells = 100, marks = 2000, cycles = 10;
constexpr double passportsBound = 15.0; // seconds
constexpr double memoryBound = 300.0;   // megabytes
constexpr double movementsBound = 3.0;  // seconds

bool missed = false;

void report(const char* what, const SpentTime& spent, double bound)
{
    missed = !reportSpent(what, spent, bound) || missed;
}

void reportMemory(double megabytes)
{
    const bool tooMuch = megabytes > memoryBound;
    std::printf("%-48s %8.0f MB of %.0f MB%s\n", "memory at its peak", megabytes, memoryBound,
                tooMuch ? "   MISSED" : "");
    missed = missed || tooMuch;
}

double peakMegabytes()
{
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    }
    return -1;
}

void fillDatabase(TestDatabase& database)
{
    database.exec(
        QString("insert into projects (project_id, name) overriding system value values (1, 'П');"
                "insert into objects (object_id, project_id, object) values (1, 1, 'О');"
                "insert into subobjects (subobject_id, object_id, subobject) values (1, 1, 'ПО');"
                "insert into positions (position_id, subobject_id, position) values (1, 1, 'Позиция');"
                "insert into cycles (cycle_id, number, date_start, date_end) overriding system value select n, n, "
                "date '2015-01-01' + 300 * n, date '2015-01-20' + 300 * n from generate_series(1, %1) n;"
                "insert into dm_elements (element_name, position_id) select 'ДМ-' || n, 1 from generate_series(1, %2) "
                "n;"
                "insert into dm_meas (element_id, cycle_id, meas) select element_id, cycle_id, 100 + element_id % 7 + "
                "0.001 * cycle_id from dm_elements, cycles;"
                "insert into ts_elements (element_name, position_id, x, y, z, h) select 'ТС-' || n, 1, n, n, 100, 0.5 "
                "from generate_series(1, %3) n;"
                "insert into ts_meas (element_id, cycle_id, date, meas) select element_id, cycle_id, date_start, "
                "(select string_agg(d || ':' || round((sin(d + cycle_id) * 3 - 2)::numeric, 2), '|' order by d) from "
                "generate_series(1, 15) d) from ts_elements, cycles;")
            .arg(cycles)
            .arg(marks)
            .arg(wells));
    QImage photo(800, 600, QImage::Format_RGB32);
    for (int y = 0; y < photo.height(); ++y) {
        for (int x = 0; x < photo.width(); ++x)
            photo.setPixel(x, y, qRgb(x % 256, y % 256, (x * y) % 256));
    }
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    photo.save(&buffer, "PNG");
    for (const char* type : {"photo", "abris"})
        session().run("insert into ts_files (element_id, file_type, content) select element_id, $2::filetype, "
                      "$1::bytea from ts_elements",
                      {sql::binary(png), sql::text(QString::fromLatin1(type))});
}

SpentTime timeOf(ExportTemplateClass& document, const ReportParameters& parameters, const QString& path)
{
    document.loadTemplateList();
    if (!document.selectTemplate(0))
        qFatal("no sample template of this kind");
    document.parameters = parameters;
    const SpentTimer timer;
    if (runReport(document, path) != ReportOutcome::Made)
        qFatal("the work itself failed");
    return timer.spent();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    TestDatabase database;
    ConsoleCapture console;
    QTemporaryDir folder;
    session().connection.open(database.conninfo());
    session().connected = true;
    session().templateDir = QCoreApplication::applicationDirPath() + "/templates";
    fillDatabase(database);
    session().reloadCycles();

    ReportParameters parameters;
    parameters.cycles = session().cycleOrder;
    parameters.baseCycleId = 1;
    parameters.currentCycleId = cycles;
    parameters.part = {"projects", 1};
    parameters.folder = folder.path();
    parameters.merge = true;
    parameters.colorMap = LevelMap(LevelMap::Deformation);
    const sql::Result ids = session().run("select element_id from ts_elements");
    for (int i = 0; i < ids.ntuples(); ++i)
        parameters.elements.append(ids.toInt(i, 0));

    auto documents = makeReportClasses();
    report("100 passports with charts and pictures, merged",
           timeOf(*documents[size_t(ReportKey::WellPassport)], parameters, QString()), passportsBound);
    reportMemory(peakMegabytes());
    report("movements of 2,000 marks over 10 cycles",
           timeOf(*documents[size_t(ReportKey::Deformations)], parameters, folder.filePath("movements.docx")),
           movementsBound);
    session().connection.finish();
    return missed ? 1 : 0;
}
