#pragma once
// A small form that edits one element in its row and in the drawing at once.
// A palette makes the pane of the picked block's family, has it load the row,
// hands it the block, and shows it. The pane carries its own button "Применить".

#include "elements/element_block.h"

#include <QWidget>

class InspectorPane : public QWidget {
    Q_OBJECT

public:
    explicit InspectorPane(FamilyKey family, QWidget* parent = nullptr);
    ~InspectorPane() override;

    FamilyKey family() const { return family_; }
    /// The element that is shown; -1 until one was loaded.
    int elementId() const { return elementId_; }

    /// Shows the row with its measures. False when there is none of the key, or
    /// no connection: the fields are then empty and nothing can be applied.
    bool load(int elementId);
    /// What apply() changes in the drawing: a copy of the block's record and its
    /// place in the drawing. Without one the row alone is written.
    void setBlock(const ElementBlock& block, NcDbObjectId reference);
    /// Another than the one that was given once the type was changed.
    NcDbObjectId reference() const { return reference_; }
    /// Writes the block, then the row with what follows from it. False when
    /// nothing was written: the name is taken, which is told, or nothing is loaded.
    bool apply();

signals:
    /// The row and the block were written.
    void applied(int elementId);

protected:
    virtual bool loadRow(int elementId) = 0;
    virtual bool applyRow() = 0;

    ElementBlock& block() { return block_; }
    bool hasBlock() const { return !reference_.isNull(); }
    void setReference(NcDbObjectId reference) { reference_ = reference; }

private:
    FamilyKey family_;
    int elementId_ = -1;
    ElementBlock block_;
    NcDbObjectId reference_;
};

/// A pane of the family; the caller or `parent` owns it.
InspectorPane* makeInspectorPane(FamilyKey family, QWidget* parent = nullptr);

/// The panes of the family that live now and show this element read it anew.
void reloadInspectorPanes(FamilyKey family, int elementId);
