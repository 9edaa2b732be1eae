// What a geographic information system is given of the project: its elements and
// their measures as tables with a place, whatever file they then go into.
#pragma once

#include <QString>
#include <QVariant>
#include <QVector>
#include <functional>

struct GisColumn {
    enum Type { Integer, Real, Text, Date };

    QString name;
    Type type;
};

struct GisPoint {
    double x = 0.0, y = 0.0; ///< metres in the project's coordinate system, or degrees east and north
    double z = 0.0;          ///< metres; not a number where the element has no mark
};

struct GisFeature {
    bool placed = false;      ///< false: an element without coordinates
    GisPoint plan;            ///< in the project's coordinate system
    GisPoint degrees;         ///< longitude, latitude (WGS 84); only of layers read for it
    QVector<QVariant> values; ///< in the order of the columns; null where the database has none
};

struct GisLayer {
    QString name;  ///< of the table or the file: "elements"
    QString title; ///< for people
    QVector<GisColumn> columns;
    QVector<GisFeature> features;
};

/// Told what is done; false gives the work up.
using GisProgress = std::function<bool(int done, int total)>;

struct GisLayers {
    enum class State { Read, GivenUp, Failed };

    State state = State::Read;
    QString problem; ///< of a failed one, the server's words
    GisLayer elements;
    GisLayer measures; ///< one feature a value; those of a thermal well one a depth
};

/// All elements of the project and all their measures, family by family.
/// `degrees`: with longitude and latitude, which asks for a coordinate system
/// that the server knows how to transform.
GisLayers readGisLayers(int projectId, bool degrees, const GisProgress& progress = {});
