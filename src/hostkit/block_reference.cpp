#include "hostkit/block_reference.h"

bool isBlockReference(NcDbObjectId id) { return bool(Opened<NcDbBlockReference>(id, kForRead)); }

QString definitionNameOf(NcDbObjectId reference)
{
    if (!isBlockReference(reference))
        return {};
    const Opened<NcDbBlockTableRecord> record(NcDbDynBlockReference(reference).dynamicBlockTableRecord(), kForRead);
    return record ? record->getName() : QString();
}
