// Block references of the working drawing, seen without what they mean.
#pragma once

#include "hostkit/opened.h"

/// Whether the object is a reference to a block.
bool isBlockReference(NcDbObjectId id);

/// The name of the definition that a reference comes from, of a dynamic block
/// never that of its anonymous copy; empty for anything but a reference.
QString definitionNameOf(NcDbObjectId reference);

/// Opens the attributes of the reference one after another.
template <class Visit>
void forEachAttribute(const NcDbBlockReference& reference, NcOpenMode mode, Visit visit)
{
    const std::unique_ptr<NcDbObjectIterator> ids(reference.attributeIterator());
    for (; !ids->done(); ids->step()) {
        const Opened<NcDbAttribute> attribute(ids->objectId(), mode);
        if (attribute)
            visit(*attribute);
    }
}
