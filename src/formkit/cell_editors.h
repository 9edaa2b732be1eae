#pragma once
// How cells of tables are edited.

#include "formkit/choices.h"

#include <QItemDelegate>
#include <QStyledItemDelegate>

namespace formkit {

/// A combo box with what the cell may become; the cell's user role is the id.
class ChoiceDelegate : public QItemDelegate {
    Q_OBJECT

public:
    using QItemDelegate::QItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

protected:
    virtual Choices choicesOf(const QModelIndex& index) const = 0;
    /// Puts what was chosen into the cell of the table behind any order.
    virtual void put(QAbstractItemModel& model, const QModelIndex& cell, const ComboEntry& chosen) const = 0;
};

/// A line that takes what the session's number pattern takes.
class NumberDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace formkit
