// A coordinate system in the words of geographic information systems.
#pragma once

#include <QString>

/// "+proj=tmerc +lat_0=0 ..." as WKT 1, the text that a GeoPackage holds. A
/// projection that has no name there is told by the text itself, as an extension
/// which PROJ and all that is built on it read. Empty for a text without "+proj".
QString projectionWkt(const QString& proj4Text, const QString& name);
