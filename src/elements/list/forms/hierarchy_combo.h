#pragma once
// A combo box with the tree of project, objects, subobjects and positions below
// an entry for everywhere.

#include "elements/list/hierarchy.h"

#include <QComboBox>

class HierarchyCombo : public QComboBox {
    Q_OBJECT

public:
    /// Reads the tree.
    explicit HierarchyCombo(QWidget* parent = nullptr);

    /// Reads the tree anew; what is chosen stays where it is still there.
    void reload();
    HierarchyPlace place() const;
};
