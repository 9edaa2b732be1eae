#pragma once
// The editors of the element list's choices: a combo box with what the cell may
// become. An edit reaches the table as one change.

#include "formkit/choices.h"

#include <QItemDelegate>

/// Shared by both: the cell's key is chosen, text and key are given back.
class ElementChoiceDelegate : public QItemDelegate {
    Q_OBJECT

public:
    using QItemDelegate::QItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

protected:
    virtual formkit::Choices choicesOf(const QModelIndex& index) const = 0;
    /// Puts the chosen text and key into the cell.
    virtual void put(QAbstractItemModel& model, const QModelIndex& cell, const ComboEntry& chosen) const = 0;
};

/// Types and states.
class ElementListItemDelegate : public ElementChoiceDelegate {
    Q_OBJECT

public:
    using ElementChoiceDelegate::ElementChoiceDelegate;

protected:
    formkit::Choices choicesOf(const QModelIndex& index) const override;
    void put(QAbstractItemModel& model, const QModelIndex& cell, const ComboEntry& chosen) const override;
};

/// Positions; the old one is kept beside the new.
class ElementPositionItemDelegate : public ElementChoiceDelegate {
    Q_OBJECT

public:
    using ElementChoiceDelegate::ElementChoiceDelegate;

protected:
    formkit::Choices choicesOf(const QModelIndex& index) const override;
    void put(QAbstractItemModel& model, const QModelIndex& cell, const ComboEntry& chosen) const override;
};
