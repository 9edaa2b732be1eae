#include "drawing/sync/drawing_to_database.h"

#include "drawing/sync/drawing_scan.h"
#include "drawing/sync/family_rows.h"
#include "drawing/sync/stored_drawing.h"
#include "drawing/sync/sync_questions.h"
#include "session/project_session.h"

void syncDrawingToDatabase(const SyncQuestions& questions)
{
    if (!session().requirePosition() || !drawingIsAccepted(questions))
        return;
    const std::optional<SyncMode> mode = askSyncMode();
    if (!mode)
        return;
    DrawingScan scan(*mode);
    const bool finished = scan.run();
    scan.tellRefused();
    if (!finished)
        return;
    if (*mode == SyncMode::Position)
        offerMissingRows(scan.rows(), questions);
    if (*mode == SyncMode::File)
        storeActiveDrawing(questions);
}
