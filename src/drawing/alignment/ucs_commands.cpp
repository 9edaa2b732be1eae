#include "drawing/alignment/ucs_commands.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "drawing/alignment/ucs_table.h"
#include "hostkit/console.h"
#include "hostkit/symbol_tables.h"
#include "session/project_session.h"

#include <nrx/application.h>
#include <nrx/editor.h>

namespace {

// Of the document that shows the working drawing.
QString workingFileName()
{
    NcApDocManager* documents = ncDocManagerPtr();
    for (int i = 0; i < documents->documentCount(); ++i) {
        if (documents->document(i)->database() == workingDatabase())
            return documents->document(i)->fileName();
    }
    return {};
}

UcsRecord recordOf(NcDbObjectId id)
{
    const Opened<NcDbUCSTableRecord> ucs(id, kForRead);
    return ucs ? UcsRecord(ucs->getName(), ucs->origin(), ucs->xAxis(), ucs->yAxis()) : UcsRecord();
}

// Nothing, with its message, when the table cannot be read.
std::optional<QVector<UcsRecord>> ucsOfDrawing()
{
    const Opened<NcDbUCSTable> table = openTable<NcDbUCSTable>(kForRead);
    if (!table) {
        say(QStringLiteral("Ошибка при получении таблицы UCS.\n"));
        return {};
    }
    const std::unique_ptr<NcDbSymbolTableIterator> records(table->newIterator());
    if (!records) {
        say(QStringLiteral("Ошибка при создании итератора UCS.\n"));
        return {};
    }
    QVector<UcsRecord> found;
    for (const NcDbObjectId& id : recordIds(*table))
        found.append(recordOf(id));
    return found;
}

QString consoleLine(const UcsRecord& ucs)
{
    QStringList fields{ucs.name};
    for (const double number : ucs.numbers)
        fields.append(fixed(number, 6));
    return fields.join(QLatin1Char(';')) + QLatin1Char('\n');
}

QStringList offeredNames(const QVector<UcsRecord>& systems)
{
    QStringList names;
    for (const UcsRecord& ucs : systems)
        names.append(cleanUcsName(fill("%1-%2", session().currentPositionName, ucs.name)));
    return names;
}

// Names that differ in the drawing alone: the list shows them alike.
void tellEqualNames(const QVector<UcsRecord>& systems, const QStringList& offered)
{
    for (int i = 0; i < offered.size(); ++i) {
        const int first = offered.indexOf(offered[i]);
        if (first < i)
            say(fill("\nИмена ПСК %1 и %2 становятся одинаковыми: %3\n", systems[first].name, systems[i].name,
                     offered[i]));
    }
}

void store(const UcsRecord& ucs)
{
    QString refusal;
    const std::optional<int> id = insertUcs(ucs, refusal);
    if (id)
        say(fill("ПСК %1 сохранена с ID:%2", ucs.name, *id));
    else if (!session().checkConnection())
        say(QStringLiteral("Не установлено соединение с базой данных\n"));
    else
        say(fill("\nОшибка: ПСК %1 не сохранена: %2\n", ucs.name, refusal));
}

bool spansPlane(const UcsRecord& ucs) { return ucs.xAxis().crossProduct(ucs.yAxis()).length() > 0.0; }

// The null id when the drawing does not take it.
NcDbObjectId addToDrawing(const UcsRecord& ucs)
{
    const Opened<NcDbUCSTable> table = openTable<NcDbUCSTable>(kForWrite);
    if (!table)
        return {};
    NcDbObjectId id;
    if (isOk(table->getAt(ucs.name, id)))
        return id;
    const Made<NcDbUCSTableRecord> record(new NcDbUCSTableRecord);
    record->setName(ucs.name);
    record->setOrigin(ucs.origin());
    record->setXAxis(ucs.xAxis());
    record->setYAxis(ucs.yAxis());
    return isOk(table->add(id, record.get())) ? id : NcDbObjectId();
}

// The view on screen takes the system; an empty text when all went well.
QString setUcsOfActiveView(NcDbObjectId ucs)
{
    const Opened<NcDbViewportTable> table = openTable<NcDbViewportTable>(kForRead);
    if (!table)
        return QStringLiteral("\nFailed to get vport table");
    NcDbViewportTableRecord* record = nullptr;
    if (!isOk(table->getAt(QStringLiteral("*ACTIVE"), record, kForWrite)))
        return QStringLiteral("\nFailed to get vport table record");
    const Opened<NcDbViewportTableRecord> view(record);
    if (view->getName().isEmpty())
        return QStringLiteral("\nFailed to get name from vport table");
    if (!isOk(view->setUcs(ucs)))
        return QStringLiteral("\nFailed to get vport table record");
    return {};
}

QString makeCurrent(NcDbObjectId ucs)
{
    QString notLoaded = QStringLiteral("\nFailed to load vport info into vport table records");
    if (!isOk(ncedVports2VportTableRecords()))
        return notLoaded;
    QString failure = setUcsOfActiveView(ucs);
    if (!failure.isEmpty())
        return failure;
    return isOk(ncedVportTableRecords2Vports()) ? QString() : notLoaded;
}

} // namespace

void storeUcsOfDrawing(const UcsChooser& choose)
{
    if (!workingDatabase())
        return say(QStringLiteral("Ошибка: не удалось получить активную базу данных.\n"));
    const QString fileName = workingFileName();
    if (fileName.isEmpty())
        return say(QStringLiteral("Ошибка: не удалось получить имя файла чертежа.\n"));
    say(fill("\nТекущий чертеж: %1\n", fileName));

    const std::optional<QVector<UcsRecord>> systems = ucsOfDrawing();
    if (!systems)
        return;
    if (systems->isEmpty())
        return say(QStringLiteral("Таблица UCS пуста. В чертеже нет ни одной именованной ПСК!\n"));
    for (const UcsRecord& ucs : *systems)
        say(consoleLine(ucs));
    const QStringList offered = offeredNames(*systems);
    tellEqualNames(*systems, offered);
    const std::optional<UcsChoice> choice = choose(offered);
    if (choice && choice->index >= 0 && choice->index < systems->size())
        store({storableUcsName(choice->name), systems->at(choice->index).numbers});
}

void applyUcs(const UcsRecord& ucs)
{
    const NcDbObjectId id = spansPlane(ucs) ? addToDrawing(ucs) : NcDbObjectId();
    if (id.isNull())
        return say(QStringLiteral("Ошибка: не удалось создать объект UCS.\n"));
    const QString failure = makeCurrent(id);
    say(failure.isEmpty() ? fill("\nПСК '%1' успешно добавлен и применен", ucs.name) : failure);
}
