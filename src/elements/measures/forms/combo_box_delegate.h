// A combo box in the cells of a table: the text is shown, the id is the cell's
// user role.
#pragma once

#include "elements/measures/measure_lists.h"

#include <QItemDelegate>

class ComboBoxDelegate : public QItemDelegate {
    Q_OBJECT

public:
    explicit ComboBoxDelegate(const EntryList& entries, QObject* parent = nullptr);

    /// The first item stands for -1, "not set".
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// An id that the list lacks shows the first item.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Text and id change with one notification, that of the id.
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    EntryList entries_;
};
