#pragma once
// The layer editors of both kinds of wells; exec() says Accepted once the layers
// are stored.

#include "elements/geology/forms/base_layer_editor_dialog.h"

/// Of a thermal well, which may take the layers of a geological one over.
class TSLayerEditorDialog : public BaseLayerEditorDialog {
    Q_OBJECT

public:
    explicit TSLayerEditorDialog(int elementId, QWidget* parent = nullptr);

protected:
    const char* layerTable() const override { return thermalWellLayers; }

private:
    void copyFromWell();
};

/// Of an engineering-geological well.
class IGSLayerEditorDialog : public BaseLayerEditorDialog {
    Q_OBJECT

public:
    explicit IGSLayerEditorDialog(int elementId, QWidget* parent = nullptr);

protected:
    const char* layerTable() const override { return geologicalWellLayers; }
};
