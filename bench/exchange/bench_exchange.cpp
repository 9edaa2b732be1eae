// Elements in, inspections out: seconds, each beside its bound.
#include "exchange/elements/element_import.h"
#include "exchange/inspections/inspections_exchange.h"
#include "spent_time.h"
#include "support/console_capture.h"
#include "support/element_drawing.h"
#include "support/position_session.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>

namespace {

constexpr int sizes[] = {200, 2000, 20000};
constexpr double importBound = 30.0; // seconds, 20,000 elements
constexpr double exportBound = 10.0; // seconds, 10,000 inspections
constexpr int inspectionCount = 10000;

bool missed = false;

void report(const char* what, int count, const SpentTime& spent, double bound)
{
    const QByteArray line = QByteArray(what) + ": " + QByteArray::number(count);
    missed = !reportSpent(line, spent, bound) || missed;
}

QVector<ElementRecord> records(int count)
{
    QVector<ElementRecord> made(count);
    for (int i = 0; i < count; ++i) {
        made[i].name = QString("М-%1").arg(i);
        made[i].x = i % 200;
        made[i].y = i / 200;
        made[i].absoluteMark = 100.0;
    }
    return made;
}

void measureImport(int count)
{
    ElementDrawing drawing;
    drawing.addAllKinds();
    PositionSession database;
    const ConsoleCapture console;
    const SpentTimer clock;
    const auto result = importElements(records(count), {0, PositionSession::position, 1, -1}, {});
    const SpentTime spent = clock.spent();
    if (result.inserted != count || drawing.references().size() != count)
        missed = true;
    report("elements imported", count, spent, importBound);
}

void measureExport()
{
    PositionSession database;
    database->exec("insert into cycles (cycle_id, number, date_start, date_end) overriding system value "
                   "values (1, 1, '2021-01-01', '2021-01-31')");
    session().proj4Text = "+proj=utm +zone=52 +datum=WGS84 +units=m +no_defs";
    session().saveProjection();
    const QStringList prefixes = {"ts", "dm", "rp", "tss", "ggs", "tsg"};
    for (int i = 0; i < prefixes.size(); ++i) {
        const int count = inspectionCount / prefixes.size() + (i < inspectionCount % prefixes.size() ? 1 : 0);
        database->exec(QString("insert into %1_elements (element_id, element_name, state_id, position_id, x, y, geom) "
                               "overriding system value select n, 'Э-' || n, 'exist', 7, n, n, "
                               "ST_SetSRID(ST_MakePoint(500000 + n, 6875000), 9999) from generate_series(1, %2) n;"
                               "insert into %1_inspection (element_id, cycle_id, note) select n, 1, 'Осмотр ' || n "
                               "from generate_series(1, %2) n; analyze %1_elements; analyze %1_inspection")
                           .arg(prefixes[i])
                           .arg(count));
    }
    const QTemporaryDir folder;
    const QString path = folder.filePath("out.json.gz");
    const ConsoleCapture console;
    const SpentTimer clock;
    if (!exportInspections({1, 1, false}, path))
        missed = true;
    report("inspections exported", inspectionCount, clock.spent(), exportBound);
    std::printf("%lld bytes packed\n", QFileInfo(path).size());
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    // bench_exchange COUNT: that many elements alone; "export": the document alone.
    const QString only = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    if (only.toInt() > 0)
        measureImport(only.toInt());
    for (const int count : sizes) {
        if (only.isEmpty())
            measureImport(count);
    }
    if (only.isEmpty() || only == QLatin1String("export"))
        measureExport();
    return missed ? 1 : 0;
}
