// What a user does with the layers of a drawing. An empty text is success, else
// the reason in words; the drawing then stays as it was.
#pragma once

#include <nrx/database.h>

NRX_API QString addLayer(NcDbDatabase& database, const QString& name, NcDbObjectId* made = nullptr);
// What lies on it follows.
NRX_API QString renameLayer(NcDbDatabase& database, NcDbObjectId layer, const QString& name);
// Refused while something lies on it, in a block too.
NRX_API QString eraseLayer(NcDbDatabase& database, NcDbObjectId layer);
// "Слой1", or the next number that is free.
NRX_API QString freeLayerName(const NcDbDatabase& database);
