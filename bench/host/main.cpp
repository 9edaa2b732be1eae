// How the stand-in host bears large drawings.
#include <drawing/application.h>
#include <drawing/edit_operations.h>
#include <drawing/host_access.h>
#include <drawing/undo.h>
#include <dxf/drawing_file.h>
#include <render/active_view.h>
#include <render/figure_painter.h>
#include <render/snapping.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <cstdio>
#include <random>

namespace {

int g_missed = 0;

// Milliseconds of one run; the best of several.
template <class Work>
double timed(int runs, const Work& work)
{
    double best = 1e300;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        best = std::min(best, double(timer.nsecsElapsed()) / 1e6);
    }
    return best;
}

void tell(const char* what, double milliseconds, double bound)
{
    const bool good = bound <= 0.0 || milliseconds <= bound;
    g_missed += !good;
    std::printf("%-48s %9.2f ms%s\n", what, milliseconds, good ? "" : "   MISSED");
}

// Lines, texts, circles and blocks in turn, over a square of a thousand units.
void fill(NcDbDatabase& drawing, int count)
{
    std::mt19937 random(3);
    const auto coordinate = [&] { return double(random() % 1000000) / 1000.0; };
    NcDbBlockTable* table = nullptr;
    drawing.getSymbolTable(table, kForWrite);
    auto* block = new NcDbBlockTableRecord;
    block->setName(QStringLiteral("mark"));
    NcDbObjectId definition;
    table->add(definition, block);
    auto* disc = new NcDbCircle({0, 0, 0}, NcGeVector3d::kZAxis, 1.0);
    block->appendNcDbEntity(disc);
    disc->close();
    block->close();
    table->close();
    NcDbBlockTableRecord* space = nullptr;
    ncdbOpenObject(space, drawing.currentSpaceId(), kForWrite);
    for (int i = 0; i < count; ++i) {
        const NcGePoint3d at(coordinate(), coordinate(), 0);
        NcDbEntity* entity = nullptr;
        switch (i % 4) {
        case 0: entity = new NcDbLine(at, {at.x + 3, at.y + 2, 0}); break;
        case 1: entity = new NcDbText(at, QStringLiteral("12.34"), 1.0); break;
        case 2: entity = new NcDbCircle(at, NcGeVector3d::kZAxis, 1.0); break;
        default: entity = new NcDbBlockReference(at, definition); break;
        }
        space->appendNcDbEntity(entity);
        entity->close();
    }
    space->close();
}

void benchUndo()
{
    NcDbDatabase drawing;
    fill(drawing, 40000);
    NcDbObjectIdArray blocks;
    const auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(drawing.currentSpaceId());
    for (NcDbObjectId id : HostAccess::entities(*space))
        if (HostAccess::objectAs<NcDbBlockReference>(id))
            blocks.push_back(id);
    keepJournal(drawing);
    UndoJournal& journal = *journalOf(drawing);
    tell("moving 10,000 blocks, with the journal",
         timed(1,
               [&] {
                   transformEntities(blocks, NcGeMatrix3d::translation({1, 1, 0}));
                   journal.closeStep(QStringLiteral("MOVE"));
               }),
         0.0);
    tell("undoing it", timed(1, [&] { journal.undo(); }), 300.0);
    tell("redoing it", timed(1, [&] { journal.redo(); }), 300.0);
}

void benchPicking(const DisplayList& list)
{
    std::mt19937 random(9);
    const auto somewhere = [&] { return QPointF(random() % 1000, random() % 1000); };
    const int count = 200;
    tell("picking among 100,000",
         timed(3,
               [&] {
                   for (int i = 0; i < count; ++i)
                       list.hits(somewhere(), 2.0);
               })
             / count,
         5.0);
    tell("snapping among 100,000",
         timed(3,
               [&] {
                   for (int i = 0; i < count; ++i)
                       snapPoint(list, somewhere(), 2.0);
               })
             / count,
         5.0);
}

// A frame of the view; a tenth of the drawing's width is on the screen, then all of it.
void benchPanning(const DisplayList& list, int entities)
{
    for (const double width : {100.0, 1000.0}) {
        QImage screen(1366, 768, QImage::Format_RGB32);
        const QRectF window(450.0, 450.0, width, width * 768 / 1366);
        const double frame = timed(3, [&] {
            screen.fill(Qt::white);
            QPainter painter(&screen);
            paintFigures(list, painter, fitWindow(window, screen.rect()), PaintStyle(), window);
        });
        char what[80];
        std::snprintf(what, sizeof what, "a frame of %d entities, %.0f units wide", entities, width);
        tell(what, frame, 0.0);
    }
}

void benchOpening()
{
    NcDbDatabase drawing;
    fill(drawing, 100000);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("large.dxf"));
    drawing.saveAs(path);
    NcDbDatabase read;
    tell("opening a DXF of 100,000 entities", timed(1, [&] { read.readDwgFile(path); }), 2000.0);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchUndo();
    for (const int count : {1000, 10000, 100000}) {
        NcDbDatabase drawing;
        fill(drawing, count);
        DisplayList list;
        char what[80];
        std::snprintf(what, sizeof what, "recording %d entities", count);
        tell(what, timed(1, [&] { list = recordDrawing(drawing); }), 0.0);
        benchPanning(list, count);
        if (count == 100000)
            benchPicking(list);
    }
    benchOpening();
    return g_missed == 0 ? 0 : 1;
}
