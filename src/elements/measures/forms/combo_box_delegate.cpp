#include "elements/measures/forms/combo_box_delegate.h"

#include <QComboBox>
#include <QSignalBlocker>

ComboBoxDelegate::ComboBoxDelegate(const EntryList& entries, QObject* parent) : QItemDelegate(parent), entries_(entries)
{ }

QWidget* ComboBoxDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const
{
    auto* combo = new QComboBox(parent);
    combo->addItem(QStringLiteral("Не установлено"), -1);
    for (const ListEntry& entry : entries_)
        combo->addItem(QString(entry.text).replace(QLatin1String(" | "), QLatin1String(" - ")), entry.id);
    return combo;
}

void ComboBoxDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* combo = qobject_cast<QComboBox*>(editor);
    if (!combo)
        return;
    const QVariant id = index.data(Qt::UserRole);
    combo->setCurrentIndex(id.isValid() ? qMax(0, combo->findData(id.toInt())) : 0);
}

void ComboBoxDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const auto* combo = qobject_cast<QComboBox*>(editor);
    if (!combo)
        return;
    {
        const QSignalBlocker blocker(model);
        model->setData(index, combo->currentText(), Qt::DisplayRole);
    }
    model->setData(index, combo->currentData(), Qt::UserRole);
}

void ComboBoxDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                            const QModelIndex&) const
{
    editor->setGeometry(option.rect);
}
