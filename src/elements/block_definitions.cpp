#include "elements/block_definitions.h"

#include "base/placeholders.h"
#include "elements/families/kinds.h"
#include "hostkit/console.h"
#include "hostkit/symbol_tables.h"
#include "session/project_session.h"

#include <QMap>

namespace {

// Block name to file stem.
QMap<QString, QString> definitionFiles()
{
    QMap<QString, QString> files;
    for (const Kind& kind : kinds()) {
        if (!kind.blockName.isEmpty())
            files.insert(kind.blockName, kind.typeId);
    }
    return files;
}

QString definitionPath(const QString& stem)
{
    return fill("%1blocks\\%2.dwg", session().moduleDir, stem).replace(QLatin1Char('\\'), QLatin1Char('/'));
}

// Definitions of the drawing that people made: neither layouts nor the copies
// that dynamic references keep.
NcDbObjectIdArray namedDefinitions(NcDbSymbolTableIterator& records)
{
    NcDbObjectIdArray ids;
    for (; !records.done(); records.step()) {
        NcDbObjectId id;
        records.getRecordId(id);
        const Opened<NcDbBlockTableRecord> record(id, kForRead);
        if (record && !record->isAnonymous() && !record->isLayout())
            ids.push_back(id);
    }
    return ids;
}

bool cloneDefinitions(const NcDbObjectIdArray& ids)
{
    NcDbDatabase* drawing = workingDatabase();
    NcDbIdMapping mapping;
    return isOk(drawing->wblockCloneObjects(ids, drawing->blockTableId(), mapping, NcDbDatabase::kIgnoreDuplicates));
}

bool loadDefinitions(const QString& path)
{
    NcDbDatabase side(false);
    if (!isOk(side.readDwgFile(path, NcDbDatabase::kShareForRead))) {
        say(fill("Неизвестные формат файла %1\n", path));
        return false;
    }
    const Opened<NcDbBlockTable> table = openTable<NcDbBlockTable>(side, kForRead);
    if (!table) {
        say(fill("Ошибка открытия BlockTable %1\n", path));
        return false;
    }
    const std::unique_ptr<NcDbSymbolTableIterator> records(table->newIterator());
    if (!records) {
        say(fill("Ошибка получения итератора BlockTable %1\n", path));
        return false;
    }
    const bool cloned = cloneDefinitions(namedDefinitions(*records));
    say(fill(cloned ? "Загрузка %1 завершена\n" : "Ошибка загрузки %1\n", path));
    return cloned;
}

// Whether the working drawing has the definition; the table is not held open,
// since loading adds to it.
enum class Presence { NoTable, Absent, Present };

Presence presenceOf(const QString& blockName)
{
    const Opened<NcDbBlockTable> table = openTable<NcDbBlockTable>(kForRead);
    if (!table)
        return Presence::NoTable;
    return table->has(blockName) ? Presence::Present : Presence::Absent;
}

} // namespace

bool ensureBlockDefinitions()
{
    const QMap<QString, QString> files = definitionFiles();
    for (auto file = files.begin(); file != files.end(); ++file) {
        const Presence presence = presenceOf(file.key());
        if (presence == Presence::NoTable) {
            say("Ошибка получения текущего AcDbDatabase");
            return false;
        }
        if (presence == Presence::Absent && !loadDefinitions(definitionPath(file.value())))
            say(fill("Ошибка загрузки %1 \n", definitionPath(file.value())));
    }
    return true;
}
