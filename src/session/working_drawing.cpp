#include "session/working_drawing.h"

#include "base/placeholders.h"
#include "files/written_file.h"
#include "hostkit/console.h"
#include "session/drawing_lock.h"
#include "session/project_session.h"
#include "session/saved_copy.h"

#include <nrx/application.h>

QString positionDrawing(const QString& tempDir, int positionId)
{
    return tempDir + QStringLiteral("/positionID") + QString::number(positionId) + QStringLiteral(".dwg");
}

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
    unlockDrawing(path);
}

void tellNotStored(int positionId, const QString& path)
{
    if (ncDocManagerPtr()->findByFileName(path) && wasSavedSince(path))
        say(fill(QStringLiteral("\nЧертеж позиции %1 сохранен, но не записан в базу данных: %2\n"), positionId, path));
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

bool openDrawing(const QString& path, const DrawingProperty& property)
{
    NcApDocManager* documents = ncDocManagerPtr();
    bool opened = false;
    documents->executeInApplicationContext([&] {
        opened = isOk(documents->appContextOpenDocument(path));
        if (opened)
            writeDrawingProperty(documents->curDocument(), property);
    });
    if (!opened)
        say(fill(QStringLiteral("\nЧертеж %1 поврежден и не открыт\n"), path));
    return opened;
}

PositionFile readPositionFile(const ProjectSession& session, int positionId)
{
    const sql::Result row = session.run("select content from positions_files  where position_id=$1::integer",
                                        {sql::text(positionId)}, sql::Format::Binary);
    if (!row.isTuples()) {
        const QString problem = row.errorMessage();
        return {PositionFile::NotRead, {}, problem.isEmpty() ? session.connection.errorMessage() : problem};
    }
    if (row.ntuples() == 0)
        return {PositionFile::Absent, {}, {}};
    const QByteArray bytes = row.isNull(0, 0) ? QByteArray() : row.bytes(0, 0);
    return {bytes.isEmpty() ? PositionFile::Empty : PositionFile::Present, bytes, {}};
}

namespace {

// Without bytes there is nothing to be laid, and why is told; a position that
// never had a drawing has nothing to tell.
PositionFile drawingToLay(const ProjectSession& session, int positionId)
{
    PositionFile stored = readPositionFile(session, positionId);
    if (stored.state == PositionFile::Empty)
        say(fill(QStringLiteral("\nВ базе данных записан пустой чертеж позиции %1\n"), positionId));
    if (stored.state == PositionFile::NotRead)
        say(fill(QStringLiteral("\nЧертеж позиции %1 не получен из базы данных: %2\n"), positionId,
                 stored.problem.trimmed()));
    return stored;
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
    const PositionFile stored = drawingToLay(session, positionId);
    return stored.state == PositionFile::Present && writeDrawing(path, stored.bytes);
}

bool layStoredDrawing(const ProjectSession& session, int positionId, const QString& path)
{
    const PositionFile stored = drawingToLay(session, positionId);
    if (stored.state != PositionFile::Present || !lockDrawing(path))
        return false;
    if (!keepSavedCopy(path, stored.bytes) || !writeDrawing(path, stored.bytes)) {
        unlockDrawing(path);
        return false;
    }
    rememberLaidCopy(path);
    return true;
}

void layNewDrawing(const QString& path, const DrawingProperty& property)
{
    if (!lockDrawing(path))
        return;
    if (!keepSavedCopy(path, {})) {
        unlockDrawing(path);
        return;
    }
    createDrawing(path, property);
    rememberLaidCopy(path);
}
