// Entities of the working drawing, found the ways in which people and scripts
// point at them.
#pragma once

#include <nrx/editor.h>

#include <QRectF>

// What the words of a script ask of an entity; all given ones must hold.
struct EntityQuery {
    QString block; // name of the (dynamic) definition
    QString layer;
    QString className;  // "NcDbHatch"
    QString tag, value; // an attribute and its text; the tag alone is not asked
    quint64 handle = 0;
};

// The top entity within a few pixels (or 1/200 of the view's height) of a point
// in world coordinates; null when none is there.
NRX_API NcDbObjectId pickEntityAt(const NcGePoint3d& world, double tolerance = -1.0);
// "handle:2A" as an entity of the working drawing; null when there is none.
NRX_API NcDbObjectId pickEntityByText(const QString& text);
// Every visible entity of the current space.
NRX_API NcDbObjectIdArray pickAll();
// Entities that lie wholly between two corners in user coordinates.
NRX_API NcDbObjectIdArray pickInWindow(const NcGePoint3d& from, const NcGePoint3d& to);

// Reads "block=ts_def", "layer=0", "class=NcDbHatch", "handle=2A"; any other
// name is an attribute's tag ("element_id=5"). False with the reason in `error`.
NRX_API bool parseEntityQuery(const QStringList& words, EntityQuery& query, QString& error);
// Entities of model space in the order of their making.
NRX_API NcDbObjectIdArray findEntities(const EntityQuery& query);
// Text of an attribute of a block reference; false when it has none of that tag.
NRX_API bool attributeText(NcDbObjectId reference, const QString& tag, QString& text);
