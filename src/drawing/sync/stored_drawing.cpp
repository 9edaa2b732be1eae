#include "drawing/sync/stored_drawing.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "files/written_file.h"
#include "hostkit/console.h"
#include "session/drawing_lock.h"
#include "session/project_session.h"
#include "session/saved_copy.h"
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

// Asked of the bytes: files of the system have no size beforehand.
bool isEmptyFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(1).isEmpty();
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

void tellNotStored(const QString& path) { say(fill("\nОшибка: чертеж %1 не записан в базу данных\n", path)); }

QString ownPath() { return session().drawingPath(session().currentPositionId); }

// "positionID7.dwg.1kq2m3": the second, in base 31, or the next that is free.
QString copyPath()
{
    qint64 second = secondsNow();
    QString path;
    do
        path = ownPath() + QLatin1Char('.') + base31(second++);
    while (QFile::exists(path));
    return path;
}

bool keepCopy() { return fetchStoredDrawing(session(), session().currentPositionId, copyPath()); }

bool isKept(const QByteArray& bytes)
{
    const QFileInfo own(ownPath());
    for (const QFileInfo& copy : own.dir().entryInfoList({own.fileName() + QStringLiteral(".*")}, QDir::Files)) {
        QFile file(copy.filePath());
        if (copy.size() == bytes.size() && file.open(QIODevice::ReadOnly) && file.readAll() == bytes)
            return true;
    }
    return false;
}

bool keepOverwritten(const QByteArray& bytes)
{
    if (isKept(bytes))
        return true;
    const QString path = copyPath();
    if (saveFile(path, bytes, nullptr, WrittenFile::Private))
        return true;
    say(fill("\n Не удается создать файл %1", path));
    return false;
}

// What is overwritten is kept; whether it is what the user knows of is asked.
bool mayOverwrite(const QByteArray& bytes, const QString& path, const SyncQuestions& questions)
{
    const PositionFile stored = readPositionFile(session(), session().currentPositionId);
    if (stored.state == PositionFile::NotRead) {
        tellNotStored(path);
        return false;
    }
    if (stored.state != PositionFile::Present || stored.bytes == bytes)
        return true;
    const bool known = isRemembered(ownPath(), stored.bytes);
    if (!known
        && !(questions.ask
             && questions.ask("Чертеж позиции в базе данных записан другим пользователем после того, как был получен.\n"
                              "  Заменить его? Прежний чертеж будет сохранен рядом с рабочей копией")))
        return false;
    return keepOverwritten(stored.bytes);
}

bool storeFile(const QString& path, const SyncQuestions& questions)
{
    const std::optional<QByteArray> bytes = readDrawing(path);
    if (bytes && bytes->isEmpty())
        say(fill("\nПустой чертеж %1 в базу данных не записывается\n", path));
    if (!bytes || bytes->isEmpty() || !mayOverwrite(*bytes, path, questions))
        return false;
    if (writeContent(*bytes)) {
        rememberStored(ownPath(), *bytes);
        return true;
    }
    tellNotStored(path);
    return false;
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

void storeOwnDrawing(NcApDocument& document, const QString& path, const SyncQuestions& questions)
{
    if (saveInPlace(document) && storeFile(path, questions))
        keepCopy();
}

// The drawing that was the position's until now is stored and kept.
bool setAside(const QString& path, const SyncQuestions& questions)
{
    if (NcApDocument* open = ncDocManagerPtr()->findByFileName(path)) {
        if (!saveInPlace(*open))
            return false;
        closeDrawing(path);
    }
    // Without a working copy there is nothing to store but what is stored, and
    // an empty one holds nothing.
    const QFileInfo copy(path);
    if (copy.exists() && !isEmptyFile(path) && !storeFile(path, questions))
        return false;
    if (!copy.exists())
        readDrawing(path);
    return keepCopy() || session().currentFileId == session().defaultFileId;
}

void replaceDrawing(NcApDocument& document, const QString& path, const SyncQuestions& questions)
{
    if (!setAside(path, questions) || !saveDocument(document) || !storeFile(document.fileName(), questions))
        return;
    if (lockDrawing(path) && fetchStoredDrawing(session(), session().currentPositionId, path))
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
        storeOwnDrawing(*document, path, questions);
    else if (questions.ask
             && questions.ask("Активный документ не совпадает с документом позиции\n"
                              "  Выполнить его замену в базе данных"))
        replaceDrawing(*document, path, questions);
}
