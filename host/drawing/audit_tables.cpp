#include "audit_parts.h"

#include <set>

namespace {

void auditNames(AuditReport& report, const NcDbSymbolTable& table)
{
    std::set<QString> names;
    for (NcDbObjectId id : HostAccess::records(table)) {
        const auto* record = HostAccess::objectAs<NcDbSymbolTableRecord>(id);
        if (!record || record->ownerId() != table.objectId()) {
            report.add(AuditFinding::MissingRecord, id, QStringLiteral("Таблица называет запись, которой нет"));
            continue;
        }
        if (record->isErased())
            continue;
        const QString name = record->getName();
        if (name.isEmpty())
            report.add(AuditFinding::EmptyName, id, QStringLiteral("Запись без имени"));
        else if (!names.insert(name.toCaseFolded()).second)
            report.add(AuditFinding::DoubledName, id, QStringLiteral("Имя повторяется: ") + name);
        else if (!table.has(name))
            report.add(AuditFinding::StaleIndex, id, QStringLiteral("Таблица не находит имя: ") + name);
    }
}

template <class T>
void expect(AuditReport& report, NcDbObjectId id, const char* what)
{
    if (!HostAccess::objectAs<T>(id) || !HostAccess::isLiving(id))
        report.add(AuditFinding::MissingTable, id, QStringLiteral("Нет обязательного объекта: ") + QLatin1String(what));
}

} // namespace

void auditTables(AuditReport& report)
{
    const NcDatabaseData& drawing = report.drawing();
    expect<NcDbBlockTable>(report, drawing.blockTable, "BlockTable");
    expect<NcDbLayerTable>(report, drawing.layerTable, "LayerTable");
    expect<NcDbUCSTable>(report, drawing.ucsTable, "UCSTable");
    expect<NcDbViewportTable>(report, drawing.viewportTable, "ViewportTable");
    expect<NcDbDictionary>(report, drawing.groupDictionary, "GroupDictionary");
    expect<NcDbBlockTableRecord>(report, drawing.modelSpace, "*Model_Space");
    expect<NcDbBlockTableRecord>(report, drawing.paperSpace, "*Paper_Space");
    expect<NcDbBlockTableRecord>(report, drawing.currentSpace, "CurrentSpace");
    expect<NcDbLayerTableRecord>(report, drawing.currentLayer, "CLAYER");
    expect<NcDbLayerTableRecord>(report,
                                 HostAccess::recordId(report.database(), drawing.layerTable, QStringLiteral("0")), "0");
    forEachLiving<NcDbSymbolTable>(report.database(), [&](const NcDbSymbolTable& table) { auditNames(report, table); });
}
