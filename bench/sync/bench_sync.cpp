// Both synchronisations of a drawing with its database: seconds and statements,
// beside the plain way, in one run.
#include "base/placeholders.h"
#include "drawing/sync/database_to_drawing.h"
#include "drawing/sync/drawing_scan.h"
#include "hostkit/model_space.h"
#include "median_run.h"
#include "support/element_drawing.h"
#include "support/position_session.h"
#include "support/scripted_prompts.h"
#include "sync/plain_sync.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <functional>

namespace {

constexpr int sizes[] = {100, 1000, 10000};
constexpr double secondsBound = 20.0; // 10,000 elements each way
constexpr double growthBound = 15.0;  // of time when elements grow tenfold; 10 is linear
constexpr int sampledSearches = 100;  // plain searches that are timed; the rest is counted in

bool missed = false;

struct Measured {
    double seconds = 0.0;
    double statements = 0.0;
};

void print(const QString& what, int elements, const Measured& measured, const QString& remark = {})
{
    std::printf("%-44s %7d  %9s s  %7s statements an element  %s\n", qPrintable(what), elements,
                qPrintable(QString::number(measured.seconds, 'f', 3)),
                qPrintable(QString::number(measured.statements / elements, 'f', 3)), qPrintable(remark));
    std::fflush(stdout);
}

void require(bool within, const QString& what)
{
    if (!within)
        std::printf("MISSED: %s\n", qPrintable(what));
    missed = missed || !within;
}

// A position of so many elements, spread over all families.
class Position {
public:
    explicit Position(int elements) : elements_(elements)
    {
        drawing_.addAllKinds();
        for (const Family& family : families())
            addRows(family, countOf(family));
    }

    void addBlocks()
    {
        for (const Family& family : families()) {
            for (int id = 1; id <= countOf(family); ++id) {
                ElementBlock block(family.kinds.first(), StateColors());
                block.setAttribute("element_id", QString::number(id));
                block.setAttribute("name", name(id));
                block.x = id;
                block.insertBlock();
            }
        }
    }
    int countOf(const Family& family) const
    {
        return elements_ / familyCount + (int(family.key) < elements_ % familyCount ? 1 : 0);
    }
    Measured measure(const std::function<void()>& work)
    {
        host_.console.clear();
        database_->exec("select pg_stat_force_next_flush()"); // nothing of this connection is told later
        const int before = statementsSoFar();
        QElapsedTimer timer;
        timer.start();
        work();
        Measured measured;
        measured.seconds = double(timer.nsecsElapsed()) / 1e9;
        // Two statements are the counting's own.
        measured.statements = statementsSoFar() - before - 2;
        return measured;
    }
    ElementDrawing& drawing() { return drawing_; }

private:
    static QString name(int id) { return "Э" + QString::number(id); }
    void addRows(const Family& family, int count)
    {
        const int kind = family.kinds.first();
        database_->exec(fill(
            "insert into %1 (element_id, type_id, element_name, state_id, position_id, x, y, z, h) select i, '%2', "
            "'Э' || i, 'exist', 7, i, 2, 3, 4 from generate_series(1, %3) i; insert into %4 (element_id, props) "
            "select i, '%5' from generate_series(1, %3) i; analyze %1; analyze %4",
            family.elements, kinds()[size_t(kind)].typeId, count, family.dynprops,
            ElementBlock(kind, StateColors()).propsText()));
    }

    int elements_;
    PositionSession database_;
    ElementDrawing drawing_;
    ScriptedPrompts host_;
};

Measured drawingToDatabase(int elements)
{
    Position position(elements);
    position.addBlocks();
    session().connected = true;
    const Measured ours = position.measure([] { DrawingScan(SyncMode::Position).run(); });
    const Measured plain = position.measure([&] {
        for (const NcDbObjectId& id : position.drawing().references())
            plainBlockToRow(id);
    });
    print("drawing to database", elements, ours);
    print("  plain: states read for every block", elements, plain);
    return ours;
}

// What the search alone costs when every lookup is a walk; the family's kinds
// are tried in their order, the first is the one that is found.
double plainSearch(const Position& position, int elements)
{
    QElapsedTimer timer;
    timer.start();
    int searched = 0;
    const int step = std::max(1, elements / sampledSearches);
    for (const Family& family : families()) {
        for (int id = 1; id <= position.countOf(family); id += step, ++searched)
            plainFind(kinds()[size_t(family.kinds.first())].blockName, "element_id", QString::number(id));
    }
    return double(timer.nsecsElapsed()) / 1e9 * elements / searched;
}

Measured databaseToDrawing(int elements)
{
    Position position(elements);
    const auto bring = [] { syncDatabaseToDrawing(PositionSession::position, SyncLevel::Position, allFamiliesMask); };
    const Measured inserting = position.measure(bring);
    const Measured updating = position.measure(bring);
    print("database to drawing, blocks inserted", elements, inserting);
    print("database to drawing, blocks overwritten", elements, updating);
    const double search = plainSearch(position, elements);
    print("  plain: a walk a lookup", elements, {updating.seconds + search, updating.statements},
          "(from " + QString::number(std::min(elements, sampledSearches)) + " lookups)");
    return {std::max(inserting.seconds, updating.seconds), updating.statements};
}

void run(const char* what, Measured (*measure)(int))
{
    QVector<double> seconds;
    for (const int elements : sizes)
        seconds.append(measure(elements).seconds);
    const double growth = seconds[2] / seconds[1];
    std::printf("%s: 10,000 take %s times as long as 1,000\n\n", what, qPrintable(QString::number(growth, 'f', 1)));
    require(seconds[2] <= secondsBound, QString(what) + ": 10,000 elements within 20 s");
    require(growth <= growthBound, QString(what) + ": growth");
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (!TestServer::isKnown())
        return 2;
    run("drawing to database", drawingToDatabase);
    run("database to drawing", databaseToDrawing);
    return missed ? 1 : 0;
}
