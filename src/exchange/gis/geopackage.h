// Layers as one GeoPackage (OGC 12-128r18, version 1.3): a table a layer with its
// points in the project's own coordinate system.
#pragma once

#include "exchange/gis/gis_layers.h"

struct GeoPackage {
    QByteArray bytes; ///< empty when it was not made
    QString problem;
};

/// `wkt`: the coordinate system; empty for one that nobody knows.
GeoPackage geoPackage(const QVector<const GisLayer*>& layers, const QString& wkt, const QString& proj4Text);
