// What the editing commands do to entities of one drawing. Coordinates are those
// of the world. What lies on a locked layer is left as it is.
#pragma once

#include <nrx/database.h>

// Which of the ids can be changed: they stand in the current space, are not
// erased and lie on no locked layer.
NRX_API NcDbObjectIdArray editable(const NcDbDatabase& database, const NcDbObjectIdArray& ids);

// The number of entities that followed.
NRX_API int transformEntities(const NcDbObjectIdArray& ids, const NcGeMatrix3d& matrix);
NRX_API int eraseEntities(const NcDbObjectIdArray& ids);
// Copies in the current space, in the order of the ids; attributes keep their texts.
NRX_API NcDbObjectIdArray copyEntities(NcDbDatabase& database, const NcDbObjectIdArray& ids,
                                       const NcGeMatrix3d& matrix = {});
// Takes a reference or a polyline apart; the parts stand in its place. Empty for
// an entity that has no parts.
NRX_API NcDbObjectIdArray explodeEntity(NcDbDatabase& database, NcDbObjectId id);
// A parallel line at the distance, on the side of the point; null for an entity
// without one, or where it would vanish. Outside of any drawing.
NRX_API std::unique_ptr<NcDbEntity> offsetOf(const NcDbEntity& entity, double distance, const NcGePoint3d& side);

// Turns what the attributes of model space show into plain texts, for programs
// that draw no attributes. The number of texts.
NRX_API int attributesToTexts(NcDbDatabase& database);

// Mirroring about the line through two points.
NRX_API NcGeMatrix3d mirrorMatrix(const NcGePoint3d& from, const NcGePoint3d& to);

// Area and length of a closed line, a circle, a hatch; false for other entities.
struct AreaFigures {
    double area = 0.0, length = 0.0;
};
NRX_API bool areaOf(const NcDbEntity& entity, AreaFigures& figures);
NRX_API AreaFigures areaOf(const std::vector<NcGePoint3d>& corners);

// All entities' box; nothing when none has one.
NRX_API std::optional<NcGeExtents> extentsOf(const NcDbObjectIdArray& ids);
