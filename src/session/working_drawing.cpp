#include "session/working_drawing.h"

#include "base/placeholders.h"
#include "files/written_file.h"
#include "hostkit/console.h"
#include "session/project_session.h"
#include "session/saved_copy.h"

#include <nrx/application.h>
#include <optional>

void writeDrawingProperty(NcApDocument* document, const DrawingProperty& property)
{
    if (!document || property.key.isEmpty())
        return;
    NcDbDatabaseSummaryInfo info;
    if (!isOk(ncdbGetSummaryInfo(document->database(), info)))
        return;
    if (!isOk(info.setCustomSummaryInfo(property.key, property.value)))
        info.addCustomSummaryInfo(property.key, property.value);
    ncdbPutSummaryInfo(document->database(), info);
}

void closeDrawing(const QString& path)
{
    NcApDocManager* documents = ncDocManagerPtr();
    if (NcApDocument* document = documents->findByFileName(path))
        documents->closeDocument(document);
}

void createDrawing(const QString& path, const DrawingProperty& property)
{
    NcApDocManager* documents = ncDocManagerPtr();
    documents->executeInApplicationContext([&] {
        if (!isOk(documents->appContextNewDocument(QStringLiteral("Default.dwt"))))
            return;
        NcApDocument* document = documents->curDocument();
        writeDrawingProperty(document, property);
        if (isOk(documents->saveDocumentAs(document, path)))
            makePrivate(path);
    });
}

void openDrawing(const QString& path, const DrawingProperty& property)
{
    NcApDocManager* documents = ncDocManagerPtr();
    documents->executeInApplicationContext([&] {
        if (isOk(documents->appContextOpenDocument(path)))
            writeDrawingProperty(documents->curDocument(), property);
    });
}

namespace {

// Nothing when no drawing is stored.
std::optional<QByteArray> storedDrawing(const ProjectSession& session, int positionId)
{
    const sql::Result row = session.run("select content from positions_files  where position_id=$1::integer",
                                        {sql::text(positionId)}, sql::Format::Binary);
    if (!row.isTuples() || row.ntuples() == 0)
        return std::nullopt;
    if (!row.isNull(0, 0))
        return row.bytes(0, 0);
    say(fill(QStringLiteral("\nВ базе данных записан пустой чертеж позиции %1\n"), positionId));
    return std::nullopt;
}

bool writeDrawing(const QString& path, const QByteArray& bytes)
{
    if (saveFile(path, bytes, nullptr, WrittenFile::Private))
        return true;
    say(fill(QStringLiteral("\n Не удается создать файл %1"), path));
    return false;
}

} // namespace

bool fetchStoredDrawing(const ProjectSession& session, int positionId, const QString& path)
{
    const std::optional<QByteArray> stored = storedDrawing(session, positionId);
    return stored && writeDrawing(path, *stored);
}

bool layStoredDrawing(const ProjectSession& session, int positionId, const QString& path)
{
    const std::optional<QByteArray> stored = storedDrawing(session, positionId);
    if (!stored || !keepSavedCopy(path, *stored) || !writeDrawing(path, *stored))
        return false;
    rememberLaidCopy(path);
    return true;
}

void layNewDrawing(const QString& path, const DrawingProperty& property)
{
    if (!keepSavedCopy(path, {}))
        return;
    createDrawing(path, property);
    rememberLaidCopy(path);
}
