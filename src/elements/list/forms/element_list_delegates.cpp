#include "elements/list/forms/element_list_delegates.h"

#include "elements/list/element_list_model.h"

#include <QSignalBlocker>

using Model = ElementListModel;

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
