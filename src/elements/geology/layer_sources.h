#pragma once
// The geological wells whose layers a thermal well can take over.

#include <QString>
#include <QVector>
#include <optional>

struct LayerSource {
    int elementId = -1;
    QString name;
    double distance = 0.0; ///< in the plan, m
    double dz = 0.0;       ///< its mouth above that of the thermal well, m

    QString text() const;
};

/// All geological wells with layers, the nearest first; nothing when the server
/// refused or the thermal well has no row.
std::optional<QVector<LayerSource>> loadLayerSources(int thermalWellId);
