// The object inspector follows a selection: seconds and statements with 2 blocks
// selected and with 10,000.
#include "drawing/inspector/forms/object_inspector.h"
#include "drawing/inspector/forms/object_inspector_page.h"
#include "elements/element_block.h"
#include "hostkit/model_space.h"
#include "median_run.h"
#include "support/console_capture.h"
#include "support/element_drawing.h"
#include "support/position_session.h"

#include <drawing/application.h>

#include <QApplication>
#include <cstdio>

namespace {

constexpr int blocks = 10000;
constexpr int runs = 21;           // the median is told
constexpr double allowance = 1.25; // of the larger selection's time: what the machine does beside

MedianRun measure(const NcDbObjectIdArray& selection)
{
    setPickfirst(selection);
    return medianRun(runs, inspectSelection,
                     [] { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); });
}

NcDbObjectIdArray fillDrawing()
{
    ElementDrawing::addKind(*workingDatabase(), 0);
    ElementBlock block(0, StateColors());
    block.setAttribute("element_id", "1");
    for (int i = 0; i < blocks; ++i) {
        block.x = i;
        block.insertBlock();
    }
    return *entitiesOfModelSpace();
}

void tell(const char* what, const MedianRun& measured)
{
    std::printf("%-28s %8.4f s  %4d statements\n", what, measured.seconds, measured.statements);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ConsoleCapture console;
    PositionSession database;
    database->exec(
        "insert into dm_elements (element_id, type_id, element_name, state_id, position_id) overriding system "
        "value values (1, 'dm', 'М1', 'exist', 7)");
    openStartDocument();
    const NcDbObjectIdArray many = fillDrawing();
    const NcDbObjectIdArray few(many.begin(), many.begin() + 2);

    ObjectInspectorPage page;
    toggleObjectInspector(
        {[&page] { return &page; }, [&page](bool on) { page.setVisible(on); }, [&page] { return page.isVisible(); }});
    measure(few); // warm
    const MedianRun ofFew = measure(few), ofMany = measure(many);
    tell("2 blocks selected", ofFew);
    tell("10,000 blocks selected", ofMany);
    removeObjectInspector();
    closeAllDocuments();
    const bool within = ofMany.statements == ofFew.statements && ofMany.seconds <= ofFew.seconds * allowance;
    std::printf("%s\n", within ? "" : "MISSED");
    return within ? 0 : 1;
}
