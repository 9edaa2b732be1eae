#include "drawing_file.h"

#include "document.h"
#include "drawing_reader.h"
#include "drawing_writer.h"
#include "files/written_file.h"
#include "group_reader.h"

#include <drawing/long_work.h>
#include <drawing/nesting.h>

#include <QFile>

namespace {

QString& lastFault()
{
    static QString fault;
    return fault;
}

NcStatus stopped()
{
    lastFault() = QStringLiteral("Чтение отменено.");
    return NcStatus::FileAccess;
}

} // namespace

QString drawingFault() { return lastFault(); }

NcStatus readDrawingBytes(NcDbDatabase& database, const QByteArray& bytes)
{
    DxfDocument document;
    lastFault().clear();
    {
        DxfGroups groups;
        if (!readGroups(bytes, groups) || !readDocument(groups, document)) {
            if (LongWork::isStopped())
                return stopped();
            lastFault() = QStringLiteral("Файл не является чертежом DXF или оборван.");
            return NcStatus::FileFormat;
        }
    }
    fillDrawing(database, std::move(document));
    if (LongWork::isStopped())
        return stopped();
    lastFault() = nestingFault(database);
    return lastFault().isEmpty() ? NcStatus::Ok : NcStatus::FileFormat;
}

NcStatus readDrawing(NcDbDatabase& database, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        lastFault() = QStringLiteral("Файл не читается: ") + file.errorString();
        return NcStatus::FileAccess;
    }
    return readDrawingBytes(database, file.readAll());
}

QByteArray drawingBytes(const NcDbDatabase& database) { return drawingText(database); }

NcStatus writeDrawing(const NcDbDatabase& database, const QString& path, QString* problem)
{
    const QByteArray text = drawingText(database);
    if (text.isEmpty()) {
        if (problem)
            *problem = QStringLiteral("запись отменена");
        return NcStatus::FileAccess;
    }
    return saveFile(path, text, problem) ? NcStatus::Ok : NcStatus::FileAccess;
}
