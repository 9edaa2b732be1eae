#include "elements/list/forms/element_list_delegates.h"

#include "elements/list/element_list_model.h"

#include <QAbstractProxyModel>
#include <QComboBox>
#include <QSignalBlocker>

using Model = ElementListModel;

QWidget* ElementChoiceDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                             const QModelIndex& index) const
{
    auto* combo = new QComboBox(parent);
    formkit::addChoices(combo, choicesOf(index));
    return combo;
}

void ElementChoiceDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    if (auto* combo = qobject_cast<QComboBox*>(editor))
        combo->setCurrentIndex(combo->findData(index.data(Model::KeyRole)));
}

void ElementChoiceDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
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

formkit::Choices ElementListItemDelegate::choicesOf(const QModelIndex& index) const
{
    formkit::Choices choices;
    const auto map = index.data(Model::ChoicesRole).value<StringMap>();
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        choices.append({entry.value(), entry.key()});
    return choices;
}

void ElementListItemDelegate::put(QAbstractItemModel& model, const QModelIndex& cell, const ComboEntry& chosen) const
{
    {
        const QSignalBlocker quiet(&model);
        model.setData(cell, chosen.text, Qt::DisplayRole);
    }
    model.setData(cell, chosen.data, Model::KeyRole);
}

formkit::Choices ElementPositionItemDelegate::choicesOf(const QModelIndex& index) const
{
    formkit::Choices choices;
    const auto positions = index.data(Model::ChoicesRole).value<ComboData>();
    for (const auto& [id, text] : positions.entries)
        choices.append({text, id});
    return choices;
}

void ElementPositionItemDelegate::put(QAbstractItemModel& model, const QModelIndex& cell,
                                      const ComboEntry& chosen) const
{
    const QVariant before = cell.data(Model::KeyRole);
    {
        const QSignalBlocker quiet(&model);
        model.setData(cell, chosen.text, Qt::DisplayRole);
        model.setData(cell, chosen.data, Model::KeyRole);
    }
    model.setData(cell, before, Model::OldPositionRole);
}
