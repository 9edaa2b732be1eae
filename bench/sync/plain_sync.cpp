#include "sync/plain_sync.h"

#include "hostkit/block_reference.h"
#include "hostkit/model_space.h"

namespace {

bool hasAttribute(NcDbObjectId id, const QString& tag, const QString& value)
{
    const Opened<NcDbBlockReference> reference(id, kForRead);
    bool found = false;
    forEachAttribute(*reference, kForRead, [&](const NcDbAttribute& attribute) {
        found = found || (attribute.tag() == tag && attribute.textString() == value);
    });
    return found;
}

} // namespace

void plainBlockToRow(NcDbObjectId reference)
{
    ElementBlock block(reference);
    ElementBlock row(block.kind);
    if (row.loadFromDatabase(block.elementId()))
        block.setAttribute("name", row.attributes.value("name"));
    block.updateRow();
}

NcDbObjectId plainFind(const QString& blockName, const QString& tag, const QString& value)
{
    const Opened<NcDbBlockTableRecord> space = openModelSpace(kForRead);
    const std::unique_ptr<NcDbBlockTableRecordIterator> entities(space->newIterator());
    for (entities->start(); !entities->done(); entities->step()) {
        NcDbObjectId id;
        entities->getEntityId(id);
        if (definitionNameOf(id) == blockName && hasAttribute(id, tag, value))
            return id;
    }
    return {};
}
