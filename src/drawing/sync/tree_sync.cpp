#include "drawing/sync/tree_sync.h"

#include "hostkit/error_markers.h"

#include <nrx/application.h>

namespace {

bool ensureOpenDocument()
{
    NcApDocManager* documents = ncDocManagerPtr();
    if (documents->documentCount() == 0)
        documents->executeInApplicationContext(
            [documents] { documents->appContextNewDocument(QStringLiteral("Default.dwt")); });
    return documents->documentCount() != 0;
}

} // namespace

void syncNodeToDrawing(int id, SyncLevel level, unsigned mask)
{
    if (!ensureOpenDocument())
        return;
    ensureErrorLayer();
    syncDatabaseToDrawing(id, level, mask);
}
