#include "drawing_file.h"

#include "document.h"
#include "drawing_reader.h"
#include "drawing_writer.h"
#include "group_reader.h"

#include <QFile>
#include <QSaveFile>

NcStatus readDrawingBytes(NcDbDatabase& database, const QByteArray& bytes)
{
    DxfDocument document;
    {
        DxfGroups groups;
        if (!readGroups(bytes, groups) || !readDocument(groups, document))
            return NcStatus::FileFormat;
    }
    fillDrawing(database, std::move(document));
    return NcStatus::Ok;
}

NcStatus readDrawing(NcDbDatabase& database, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return NcStatus::FileAccess;
    return readDrawingBytes(database, file.readAll());
}

QByteArray drawingBytes(const NcDbDatabase& database) { return drawingText(database); }

NcStatus writeDrawing(const NcDbDatabase& database, const QString& path)
{
    const QByteArray bytes = drawingText(database);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return NcStatus::FileAccess;
    return NcStatus::Ok;
}
