// A layer as GeoJSON (RFC 7946): longitude and latitude, UTF-8. The coordinates of
// the project stand among the properties; its system is the member "projection".
#pragma once

#include "exchange/gis/gis_layers.h"

QByteArray geoJson(const GisLayer& layer, const QString& proj4Text);
