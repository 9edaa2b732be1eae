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

/// The layer that new entities lie on unless they are told another.
QString currentLayer();

/// The layer of an entity; empty when it cannot be opened.
QString layerOf(NcDbObjectId entity);

/// Opens a locked layer for changes until the end of the scope; a layer that
/// was not locked stays so. Nested holders of one layer do no harm.
class LayerUnlock {
public:
    explicit LayerUnlock(const QString& name);
    ~LayerUnlock();
    LayerUnlock(const LayerUnlock&) = delete;
    LayerUnlock& operator=(const LayerUnlock&) = delete;

    /// Whether the layer takes changes now.
    explicit operator bool() const { return open_; }

private:
    QString name_;
    bool open_ = false;
    bool wasLocked_ = false;
};

/// An entity opened for write, its layer unlocked until the end of the scope.
template <class T>
class Unlocked {
public:
    explicit Unlocked(NcDbObjectId id) : unlock_(layerOf(id)), object_(id, kForWrite) { }

    T* operator->() const { return object_.get(); }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return bool(object_); }

private:
    LayerUnlock unlock_; // outlives the open object
    Opened<T> object_;
};

/// Erases the entity, from a locked layer too. False when it is still there.
bool eraseEntity(NcDbObjectId id);
