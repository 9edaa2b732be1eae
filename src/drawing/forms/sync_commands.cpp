#include "drawing/forms/sync_commands.h"

#include "drawing/forms/element_sync_filter.h"
#include "drawing/sync/database_to_drawing.h"
#include "drawing/sync/drawing_to_database.h"
#include "formkit/boxes.h"
#include "formkit/modal.h"

namespace {

bool saysYes(formkit::Look look, const QString& text)
{
    return formkit::confirm(nullptr, {text, formkit::attention(), look, formkit::Preset::No});
}

SyncQuestions boxes()
{
    return {[](const QString& text) { return saysYes(formkit::Look::Critical, text); },
            [](const QString& text) { return saysYes(formkit::Look::Question, text); }};
}

} // namespace

void drawingToDatabaseCommand() { syncDrawingToDatabase(boxes()); }

void databaseToDrawingCommand()
{
    if (documentIsAccepted(boxes()))
        syncPositionToDrawing();
}

void syncNode(int id, SyncLevel level)
{
    if (const std::optional<unsigned> mask = askModal(&ElementSyncFilter::mask))
        syncNodeToDrawing(id, level, *mask);
}
