#include "object_copy.h"

#include <dxf/foreign_entity.h>

namespace {

void copyName(const NcDbObject& from, NcDbObject& to)
{
    HostAccess::plainName(static_cast<NcDbSymbolTableRecord&>(to)) =
        static_cast<const NcDbSymbolTableRecord&>(from).getName();
}

template <class Class, class... Members>
std::unique_ptr<NcDbObject> copied(const NcDbObject& object, Members... members)
{
    auto copy = std::make_unique<Class>();
    const auto& from = static_cast<const Class&>(object);
    (members(from, *copy), ...);
    return copy;
}

template <class Class>
std::unique_ptr<NcDbObject> copyNothing(const NcDbObject&)
{
    return std::make_unique<Class>();
}

std::unique_ptr<NcDbObject> copyLayer(const NcDbObject& object)
{
    return copied<NcDbLayerTableRecord>(object, [](const auto& from, auto& to) {
        copyName(from, to);
        HostAccess::color(to) = from.color();
        HostAccess::linetype(to) = from.linetype();
        HostAccess::locked(to) = from.isLocked();
        HostAccess::off(to) = from.isOff();
        HostAccess::frozen(to) = from.isFrozen();
    });
}

std::unique_ptr<NcDbObject> copyBlock(const NcDbObject& object)
{
    return copied<NcDbBlockTableRecord>(object, [](const auto& from, auto& to) {
        copyName(from, to);
        HostAccess::layout(to) = from.isLayout();
        HostAccess::origin(to) = from.origin();
        HostAccess::sortents(to) = HostAccess::sortents(from);
        if (const DynamicDefinition* dynamic = HostAccess::dynamic(from).get())
            HostAccess::dynamic(to) = std::make_unique<DynamicDefinition>(*dynamic);
    });
}

std::unique_ptr<NcDbObject> copyUcs(const NcDbObject& object)
{
    return copied<NcDbUCSTableRecord>(object, [](const auto& from, auto& to) {
        copyName(from, to);
        HostAccess::origin(to) = from.origin();
        HostAccess::xAxis(to) = from.xAxis();
        HostAccess::yAxis(to) = from.yAxis();
    });
}

std::unique_ptr<NcDbObject> copyView(const NcDbObject& object)
{
    return copied<NcDbViewportTableRecord>(object, [](const auto& from, auto& to) {
        copyName(from, to);
        HostAccess::center(to) = from.centerPoint();
        HostAccess::height(to) = from.height();
        HostAccess::width(to) = from.width();
        from.getUcs(HostAccess::ucsOrigin(to), HostAccess::ucsX(to), HostAccess::ucsY(to));
    });
}

std::unique_ptr<NcDbObject> copyOrder(const NcDbObject& object)
{
    return copied<NcDbSortentsTable>(object, [](const auto& from, auto& to) {
        HostAccess::block(to) = HostAccess::block(from);
        HostAccess::order(to) = HostAccess::order(from);
    });
}

std::unique_ptr<NcDbObject> copyDictionary(const NcDbObject& object)
{
    return copied<NcDbDictionary>(
        object, [](const auto& from, auto& to) { HostAccess::entries(to) = HostAccess::entries(from); });
}

std::unique_ptr<NcDbObject> copyGroup(const NcDbObject& object)
{
    return copied<NcDbGroup>(object, [](const auto& from, auto& to) {
        HostAccess::description(to) = from.description();
        HostAccess::members(to) = HostAccess::members(from);
    });
}

struct CopyRow {
    const NcRxClass* (*cls)();
    std::unique_ptr<NcDbObject> (*copy)(const NcDbObject&);
};

const CopyRow kCopies[] = {
    {NcDbLayerTableRecord::desc, copyLayer},
    {NcDbBlockTableRecord::desc, copyBlock},
    {NcDbUCSTableRecord::desc, copyUcs},
    {NcDbViewportTableRecord::desc, copyView},
    {NcDbSortentsTable::desc, copyOrder},
    {NcDbDictionary::desc, copyDictionary},
    {NcDbGroup::desc, copyGroup},
    {NcDbLayerTable::desc, copyNothing<NcDbLayerTable>},
    {NcDbBlockTable::desc, copyNothing<NcDbBlockTable>},
    {NcDbUCSTable::desc, copyNothing<NcDbUCSTable>},
    {NcDbViewportTable::desc, copyNothing<NcDbViewportTable>},
};

// A clone leaves out what means nothing in another place of the drawing.
std::unique_ptr<NcDbObject> copyEntity(const NcDbEntity& entity)
{
    std::unique_ptr<NcDbEntity> copy(entity.clone());
    if (!copy)
        return nullptr;
    if (entity.isA() == NcDbBlockReference::desc())
        HostAccess::attributes(static_cast<NcDbBlockReference&>(*copy)) =
            HostAccess::attributes(static_cast<const NcDbBlockReference&>(entity));
    if (entity.isA() == NcDbViewport::desc())
        HostAccess::clip(static_cast<NcDbViewport&>(*copy)) =
            HostAccess::clip(static_cast<const NcDbViewport&>(entity));
    if (entity.isA() == NcDbForeignEntity::desc())
        static_cast<NcDbForeignEntity&>(*copy).setParts(static_cast<const NcDbForeignEntity&>(entity).parts());
    return copy;
}

} // namespace

std::unique_ptr<NcDbObject> fullCopy(const NcDbObject& object)
{
    std::unique_ptr<NcDbObject> copy;
    if (object.isKindOf(NcDbEntity::desc()))
        copy = copyEntity(static_cast<const NcDbEntity&>(object));
    for (const CopyRow& row : kCopies)
        if (!copy && row.cls() == object.isA())
            copy = row.copy(object);
    if (!copy)
        return nullptr;
    NcObjectData& data = HostAccess::data(*copy);
    data = HostAccess::data(object);
    data.readers = 0;
    data.openForWrite = false;
    return copy;
}

NcDbObjectIdArray* listOf(NcDbObject& object)
{
    if (object.isKindOf(NcDbBlockTableRecord::desc()))
        return &HostAccess::entities(static_cast<NcDbBlockTableRecord&>(object));
    if (object.isKindOf(NcDbSymbolTable::desc()))
        return &HostAccess::records(static_cast<NcDbSymbolTable&>(object));
    return nullptr;
}

void exchangeLists(NcDbObject& one, NcDbObject& other)
{
    if (NcDbObjectIdArray* list = listOf(one))
        list->swap(*listOf(other));
}
