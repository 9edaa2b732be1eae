#include "drawing/sync/stored_drawing.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "hostkit/console.h"
#include "session/project_session.h"
#include "session/working_drawing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <nrx/application.h>
#include <optional>

namespace {

std::optional<QByteArray> readDrawing(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        say(fill("\n Не удается прочитать файл %1", path));
        return {};
    }
    const QByteArray bytes = file.readAll();
    if (bytes.size() == file.size())
        return bytes;
    say(fill("\n Ошибка чтения  %1", path));
    return {};
}

// False also when there is no row to be written.
bool updateContent(const QByteArray& bytes)
{
    const sql::Result answer =
        session().run("update positions_files set content = $2::bytea  where position_id=$1::integer",
                      {sql::text(session().currentPositionId), sql::binary(bytes)});
    return answer.isCommand() && answer.cmdTuples() == QLatin1String("1");
}

bool insertContent(const QByteArray& bytes)
{
    const sql::Result key = session().run("insert into positions_files (position_id, content) values "
                                          "($1::integer,$2::bytea) returning file_id",
                                          {sql::text(session().currentPositionId), sql::binary(bytes)});
    if (!key.hasRow())
        return false;
    session().currentFileId = key.toInt(0, 0);
    return true;
}

// The row may have come or gone since the position was chosen: what fails one
// way is tried the other.
bool writeContent(const QByteArray& bytes)
{
    const bool known = session().currentFileId != session().defaultFileId;
    if (known ? updateContent(bytes) : insertContent(bytes))
        return true;
    return known ? insertContent(bytes) : updateContent(bytes);
}

bool storeFile(const QString& path)
{
    const std::optional<QByteArray> bytes = readDrawing(path);
    if (!bytes)
        return false;
    if (writeContent(*bytes))
        return true;
    say(fill("\nОшибка: чертеж %1 не записан в базу данных\n", path));
    return false;
}

bool keepCopy()
{
    const QString path = session().drawingPath(session().currentPositionId) + QLatin1Char('.') + base31(secondsNow());
    return fetchStoredDrawing(session(), session().currentPositionId, path);
}

bool saveInPlace(NcApDocument& document)
{
    if (isOk(document.database()->saveAs(document.fileName())))
        return true;
    say(fill("\n Не удается создать файл %1", document.fileName()));
    return false;
}

// A document that was never saved has a name and no place: it goes beside the
// working copies.
bool saveDocument(NcApDocument& document)
{
    if (QDir::isAbsolutePath(document.fileName()))
        return saveInPlace(document);
    const QString path = session().tempDir + QLatin1Char('/') + document.fileName();
    if (isOk(ncDocManagerPtr()->saveDocumentAs(&document, path)))
        return true;
    say(fill("\n Не удается создать файл %1", path));
    return false;
}

void storeOwnDrawing(NcApDocument& document, const QString& path)
{
    if (saveInPlace(document) && storeFile(path))
        keepCopy();
}

// The drawing that was the position's until now is stored and kept.
bool setAside(const QString& path)
{
    if (NcApDocument* open = ncDocManagerPtr()->findByFileName(path)) {
        if (!saveInPlace(*open))
            return false;
        closeDrawing(path);
    }
    // Without a working copy there is nothing to store but what is stored.
    if (QFile::exists(path) && !storeFile(path))
        return false;
    if (!QFile::exists(path))
        readDrawing(path);
    return keepCopy() || session().currentFileId == session().defaultFileId;
}

void replaceDrawing(NcApDocument& document, const QString& path)
{
    if (!setAside(path) || !saveDocument(document) || !storeFile(document.fileName()))
        return;
    if (fetchStoredDrawing(session(), session().currentPositionId, path))
        openDrawing(path, {});
}

} // namespace

bool isSameFile(const QString& path, const QString& other)
{
    const QFileInfo one(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    const QFileInfo two(QDir::cleanPath(QFileInfo(other).absoluteFilePath()));
    return one.filePath() == two.filePath() || (one.exists() && two.exists() && one == two);
}

void storeActiveDrawing(const SyncQuestions& questions)
{
    const QString path = session().drawingPath(session().currentPositionId);
    say("Обновление чертежа в БД.\n");
    NcApDocument* document = ncDocManagerPtr()->curDocument();
    if (!document)
        return;
    if (isSameFile(path, document->fileName()))
        storeOwnDrawing(*document, path);
    else if (questions.ask
             && questions.ask("Активный документ не совпадает с документом позиции\n"
                              "  Выполнить его замену в базе данных"))
        replaceDrawing(*document, path);
}
