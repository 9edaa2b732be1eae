// An entity of a kind that this system does not know: it has a place, a layer
// and a colour, is not drawn and goes back into the file as it came.
#pragma once

#include <nrx/entity.h>

#include "group.h"

class NRX_API NcDbForeignEntity : public NcDbEntity {
    NCDB_ENTITY(NcDbForeignEntity)
    NcDbForeignEntity() = default;
    explicit NcDbForeignEntity(const QString& type) : type_(type) { }

    // As the file names it: "SPLINE".
    QString type() const { return type_; }
    // Records that follow the entity's own: vertices and their end.
    const DxfRecords& parts() const { return parts_; }
    void setParts(const DxfRecords& parts) { parts_ = parts; }

private:
    QString type_;
    DxfRecords parts_;
};
