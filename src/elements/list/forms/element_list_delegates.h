#pragma once
// The editors of the element list's choices: a combo box with what the cell may
// become. An edit reaches the table as one change.

#include "formkit/cell_editors.h"

/// Types and states.
class ElementListItemDelegate : public formkit::ChoiceDelegate {
    Q_OBJECT

public:
    using ChoiceDelegate::ChoiceDelegate;

protected:
    formkit::Choices choicesOf(const QModelIndex& index) const override;
    void put(QAbstractItemModel& model, const QModelIndex& cell, const ComboEntry& chosen) const override;
};

/// Positions; the old one is kept beside the new.
class ElementPositionItemDelegate : public formkit::ChoiceDelegate {
    Q_OBJECT

public:
    using ChoiceDelegate::ChoiceDelegate;

protected:
    formkit::Choices choicesOf(const QModelIndex& index) const override;
    void put(QAbstractItemModel& model, const QModelIndex& cell, const ComboEntry& chosen) const override;
};
