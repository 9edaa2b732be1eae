#include "drawing/forms/sync_commands.h"

#include "drawing/forms/element_sync_filter.h"
#include "drawing/sync/drawing_to_database.h"
#include "drawing/sync/tree_sync.h"
#include "formkit/boxes.h"
#include "formkit/modal.h"

namespace {

bool saysYes(QMessageBox::Icon icon, const QString& text)
{
    return formkit::confirm(nullptr, {text, formkit::attention(), icon, QMessageBox::No});
}

} // namespace

void drawingToDatabaseCommand()
{
    syncDrawingToDatabase({[](const QString& text) { return saysYes(QMessageBox::Critical, text); },
                           [](const QString& text) { return saysYes(QMessageBox::Question, text); }});
}

void syncNode(int id, SyncLevel level)
{
    if (const std::optional<unsigned> mask = askModal(&ElementSyncFilter::mask))
        syncNodeToDrawing(id, level, *mask);
}
