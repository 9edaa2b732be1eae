#include "formkit/cell_editors.h"

#include "formkit/number_validator.h"

#include <QAbstractProxyModel>
#include <QComboBox>
#include <QLineEdit>

namespace formkit {

QWidget* ChoiceDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    auto* combo = new QComboBox(parent);
    addChoices(combo, choicesOf(index));
    return combo;
}

void ChoiceDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    if (auto* combo = qobject_cast<QComboBox*>(editor))
        combo->setCurrentIndex(combo->findData(index.data(Qt::UserRole)));
}

void ChoiceDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const auto* combo = qobject_cast<QComboBox*>(editor);
    if (!combo || combo->currentIndex() < 0)
        return;
    // Signals are held back where they arise: in the table behind the order.
    QModelIndex cell = index;
    while (const auto* proxy = qobject_cast<const QAbstractProxyModel*>(model)) {
        cell = proxy->mapToSource(cell);
        model = proxy->sourceModel();
    }
    put(*model, cell, {combo->currentText(), combo->currentData()});
}

QWidget* NumberDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const
{
    auto* line = new QLineEdit(parent);
    line->setFrame(false);
    line->setValidator(new NumberValidator(line));
    return line;
}

} // namespace formkit
