// Layers of the working drawing.
#pragma once

#include "hostkit/opened.h"

#include <QStringList>

/// Adds the layer with the colour index unless the drawing has it. False when
/// the drawing did not take it.
bool ensureLayer(const QString& name, int colorIndex);

/// Sets the layer's lock; false when there is no such layer.
bool setLayerLocked(const QString& name, bool locked);

/// In the table's order.
QStringList layerNames();

/// Opens a locked layer for changes until the end of the scope.
class LayerUnlock {
public:
    explicit LayerUnlock(const QString& name);
    ~LayerUnlock();
    LayerUnlock(const LayerUnlock&) = delete;
    LayerUnlock& operator=(const LayerUnlock&) = delete;

private:
    QString name_;
};
