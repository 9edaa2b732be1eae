#pragma once
// A cell that shows ground: the hatch on its colour.

#include "elements/geology/ground_hatches.h"

#include <QStyledItemDelegate>

class IGSLayerHatchDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// The cells hold their GroundLook in this role. Patterns are read from the
    /// folder beside the module.
    explicit IGSLayerHatchDelegate(int lookRole, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    int lookRole_;
    mutable GroundHatches hatches_;
};
