// How the stand-in host bears large drawings.
#include "drawings.h"
#include "frames.h"
#include "measure.h"

#include <drawing/application.h>
#include <drawing/edit_operations.h>
#include <drawing/host_access.h>
#include <drawing/undo.h>
#include <dxf/drawing_file.h>
#include <render/display_list.h>
#include <render/snapping.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <malloc.h>
#include <random>

namespace {

constexpr double kOpening = 2000.0, kOpeningMegabytes = 300.0, kPicking = 5.0, kUndo = 300.0;

NcDbObjectIdArray blocksOf(const NcDbDatabase& drawing)
{
    NcDbObjectIdArray blocks;
    const auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(drawing.currentSpaceId());
    for (NcDbObjectId id : HostAccess::entities(*space))
        if (HostAccess::objectAs<NcDbBlockReference>(id))
            blocks.push_back(id);
    return blocks;
}

void benchUndo()
{
    NcDbDatabase drawing;
    fillDrawing(drawing, 40000);
    const NcDbObjectIdArray blocks = blocksOf(drawing);
    keepJournal(drawing);
    UndoJournal& journal = *journalOf(drawing);
    tell("moving 10,000 blocks, with the journal",
         timed(1,
               [&] {
                   transformEntities(blocks, NcGeMatrix3d::translation({1, 1, 0}));
                   journal.closeStep(QStringLiteral("MOVE"));
               }),
         0.0);
    tell("undoing it", timed(1, [&] { journal.undo(); }), kUndo);
    tell("redoing it", timed(1, [&] { journal.redo(); }), kUndo);
    DisplayList list;
    tell("undoing it and drawing all anew",
         timed(1,
               [&] {
                   journal.undo();
                   list = recordDrawing(drawing);
               }),
         kUndo);
}

void benchSelection()
{
    openStartDocument();
    NcDbDatabase& drawing = *ncdbHostApplicationServices()->workingDatabase();
    fillDrawing(drawing, 40000);
    const NcDbObjectIdArray blocks = blocksOf(drawing);
    const NcDbObjectIdArray few(blocks.begin(), blocks.begin() + 2);
    NcSelectionSet set;
    setPickfirst(few);
    const double ofFew = timed(20, [&] { ncedSSGet(QStringLiteral("_I"), {}, set); });
    setPickfirst(blocks);
    const double first = timed(1, [&] { ncedSSGet(QStringLiteral("_I"), {}, set); });
    const double again = timed(20, [&] { ncedSSGet(QStringLiteral("_I"), {}, set); });
    tell("walking a selection of 2", ofFew, 0.0);
    tell("walking a selection of 10,000 for the first time", first, 0.0);
    tell("walking it again", again, 0.5);
    closeAllDocuments();
}

void benchPicking()
{
    NcDbDatabase drawing;
    fillDrawing(drawing, 100000);
    DisplayList list;
    tell("recording 100,000 entities", timed(1, [&] { list = recordDrawing(drawing); }), 0.0);
    std::mt19937 random(9);
    const auto somewhere = [&] { return QPointF(random() % 1000, random() % 1000); };
    const int count = 200;
    size_t met = 0;
    const double picking = timed(3, [&] {
        for (int i = 0; i < count; ++i)
            met += list.hits(somewhere(), 2.0).size();
    });
    tell("picking among 100,000", picking / count, kPicking);
    const double snapping = timed(3, [&] {
        for (int i = 0; i < count; ++i)
            met += bool(snapPoint(list, somewhere(), 2.0));
    });
    tell("snapping among 100,000", snapping / count, kPicking);
    if (met == 0)
        tell("nothing was picked, points met", 1.0, 0.5, "");
}

// Of this process, in megabytes: the name of a line of its status.
double memoryOf(const char* name)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines)
        if (line.startsWith(name))
            return line.mid(int(qstrlen(name)) + 1).simplified().split(' ').value(0).toDouble() / 1024.0;
    return 0.0;
}

void benchOpening()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("large.dxf"));
    {
        NcDbDatabase drawing;
        fillDrawing(drawing, 100000);
        tell("saving a DXF of 100,000 entities", timed(1, [&] { drawing.saveAs(path); }), 0.0);
    }
    // What was used before is given back, and the peak begins anew.
    malloc_trim(0);
    QFile reset(QStringLiteral("/proc/self/clear_refs"));
    if (reset.open(QIODevice::WriteOnly))
        reset.write("5");
    reset.close();
    const double before = memoryOf("VmRSS:");
    NcDbDatabase read;
    tell("opening a DXF of 100,000 entities", timed(1, [&] { read.readDwgFile(path); }), kOpening);
    tell("    memory at the peak above what was there", memoryOf("VmHWM:") - before, kOpeningMegabytes, "MB");
    tell("    memory kept", memoryOf("VmRSS:") - before, 0.0, "MB");
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList chosen = application.arguments().mid(1); // parts by their names; all without any
    const auto wants = [&chosen](const char* part) { return chosen.isEmpty() || chosen.contains(QLatin1String(part)); };
    if (wants("opening"))
        benchOpening();
    if (wants("undo"))
        benchUndo();
    if (wants("selection"))
        benchSelection();
    if (wants("picking"))
        benchPicking();
    for (const int count : {1000, 10000, 100000})
        if (wants("frames"))
            benchFrames(count);
    if (wants("texts"))
        benchTexts(100000, 1000);
    if (missedCount() > 0)
        std::printf("%d MISSED\n", missedCount());
    return missedCount() == 0 ? 0 : 1;
}
