#include "layer_operations.h"

#include "host_access.h"

namespace {

const QString kFirstLayer = QStringLiteral("0");
// A drawing file gives these a meaning of their own.
const QString kForbidden = QStringLiteral("<>/\\\":;?*|,=`");

QString nameFault(const NcDbDatabase& database, const QString& name, NcDbObjectId holder)
{
    if (name.isEmpty())
        return QStringLiteral("Имя слоя пусто.");
    for (const QChar& sign : name)
        if (kForbidden.contains(sign) || !sign.isPrint())
            return QStringLiteral("Имя слоя не может содержать знаки ") + kForbidden;
    const NcDbObjectId known = HostAccess::recordId(database, database.layerTableId(), name);
    if (!known.isNull() && known != holder)
        return QStringLiteral("Слой «%1» уже есть.").arg(name);
    return {};
}

int entitiesOn(const NcDbDatabase& database, const QString& layer)
{
    int count = 0;
    for (const auto& entry : HostAccess::data(database).objects) {
        if (entry.second->isErased() || !entry.second->isKindOf(NcDbEntity::desc()))
            continue;
        const auto& entity = static_cast<const NcDbEntity&>(*entry.second);
        count += entity.layer().compare(layer, Qt::CaseInsensitive) == 0;
    }
    return count;
}

const NcDbLayerTableRecord* recordOf(NcDbObjectId layer)
{
    return HostAccess::isLiving(layer) ? HostAccess::objectAs<NcDbLayerTableRecord>(layer) : nullptr;
}

} // namespace

QString addLayer(NcDbDatabase& database, const QString& wanted, NcDbObjectId* made)
{
    const QString name = wanted.trimmed();
    QString fault = nameFault(database, name, {});
    NcDbLayerTable* table = nullptr;
    if (!fault.isEmpty())
        return fault;
    if (!isOk(database.getSymbolTable(table, kForWrite)))
        return QStringLiteral("Слой не создан: таблица слоёв занята.");
    auto layer = std::make_unique<NcDbLayerTableRecord>();
    layer->setName(name);
    NcDbObjectId id;
    const bool added = isOk(table->add(id, layer.get()));
    if (added)
        layer.release()->close();
    table->close();
    if (made)
        *made = id;
    return added ? QString() : QStringLiteral("Слой «%1» не создан.").arg(name);
}

QString renameLayer(NcDbDatabase& database, NcDbObjectId layer, const QString& wanted)
{
    const NcDbLayerTableRecord* present = recordOf(layer);
    const QString name = wanted.trimmed();
    if (!present)
        return QStringLiteral("Такого слоя нет.");
    if (present->getName() == kFirstLayer)
        return QStringLiteral("Слой 0 не переименовывается.");
    QString fault = nameFault(database, name, layer);
    NcDbLayerTableRecord* record = nullptr;
    if (!fault.isEmpty() || present->getName() == name)
        return fault;
    if (!isOk(ncdbOpenObject(record, layer, kForWrite)))
        return QStringLiteral("Слой занят.");
    const bool renamed = isOk(record->setName(name));
    record->close();
    return renamed ? QString() : QStringLiteral("Слой не переименован.");
}

QString eraseLayer(NcDbDatabase& database, NcDbObjectId layer)
{
    const NcDbLayerTableRecord* present = recordOf(layer);
    if (!present)
        return QStringLiteral("Такого слоя нет.");
    if (present->getName() == kFirstLayer)
        return QStringLiteral("Слой 0 не удаляется.");
    if (database.clayer() == layer)
        return QStringLiteral("Текущий слой не удаляется: сначала сделайте текущим другой.");
    if (const int count = entitiesOn(database, present->getName()); count > 0)
        return QStringLiteral("Слой «%1» не удалён: на нём объектов: %2.").arg(present->getName()).arg(count);
    NcDbObject* record = nullptr;
    if (!isOk(ncdbOpenNcDbObject(record, layer, kForWrite)))
        return QStringLiteral("Слой занят.");
    const bool erased = isOk(record->erase());
    record->close();
    return erased ? QString() : QStringLiteral("Слой не удалён.");
}

QString freeLayerName(const NcDbDatabase& database)
{
    for (int number = 1;; ++number) {
        QString name = QStringLiteral("Слой%1").arg(number);
        if (HostAccess::recordId(database, database.layerTableId(), name).isNull())
            return name;
    }
}
