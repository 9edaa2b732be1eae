#include "foreign_entity.h"

#include <drawing/class_table.h>
#include <drawing/entity_clone.h>

#include <algorithm>

NCRX_DEFINE(NcDbForeignEntity, NcDbEntity)

namespace {

// A copy's parts get handles of their own when they are written.
DxfGroups withoutHandle(DxfGroups groups)
{
    const auto handle =
        std::find_if(groups.begin(), groups.end(), [](const DxfGroup& group) { return group.code == 5; });
    if (handle != groups.end())
        groups.erase(handle);
    return groups;
}

} // namespace

// What its groups mean is not known, so nothing can be moved.
NcStatus NcDbForeignEntity::transformBy(const NcGeMatrix3d&) { return NcStatus::InvalidInput; }

std::optional<NcGeExtents> NcDbForeignEntity::extents() const { return {}; }

NcDbEntity* NcDbForeignEntity::clone() const
{
    return cloned(*this, [this](NcDbForeignEntity& copy) {
        copy.type_ = type_;
        for (const DxfRecord& part : parts_)
            copy.parts_.push_back({part.type, withoutHandle(withoutReferences(part.groups))});
    });
}
