// The project for geographic information systems.
#pragma once

#include "exchange/gis/gis_layers.h"

enum class GisFormat {
    GeoPackage, ///< one file with both layers, in the project's coordinate system
    GeoJson,    ///< two files in longitude and latitude: NAME.geojson and NAME-measures.geojson
};

struct GisExport {
    bool written = false;
    QString message;   ///< for the user, whatever came of it
    QStringList paths; ///< of the files that were written
};

/// The project's elements and measures; prints nothing. A user who gives up, a
/// server that refuses and a disk that is full leave nothing half-written.
GisExport exportToGis(GisFormat format, int projectId, const QString& path, const GisProgress& progress = {});
