#include "reports/forms/variable_list_delegate.h"

#include <QComboBox>
#include <QStandardItemModel>

QString variableCaption(const ExportTemplateClass& document, const QString& variable)
{
    return variable.isEmpty() ? QStringLiteral("Не выбрано") : document.variableCaptions.value(variable, variable);
}

VariableListItemDelegate::VariableListItemDelegate(const ExportTemplateClass& document, QObject* parent)
    : QStyledItemDelegate(parent), document_(document)
{ }

QWidget* VariableListItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const
{
    auto* box = new QComboBox(parent);
    box->addItem(variableCaption(document_, QString()), QString());
    for (const QString& variable : document_.variables()) {
        const bool separates = document_.variableTypes.value(variable) == ReportVariable::Separator;
        box->addItem(separates ? QStringLiteral("----") : variableCaption(document_, variable), variable);
        if (separates)
            qobject_cast<QStandardItemModel*>(box->model())->item(box->count() - 1)->setEnabled(false);
    }
    // The choice counts at once: the form may be saved while the box is open.
    auto* self = const_cast<VariableListItemDelegate*>(this);
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), self,
            [self, box] { emit self->commitData(box); });
    return box;
}

void VariableListItemDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* box = qobject_cast<QComboBox*>(editor);
    box->setCurrentIndex(qMax(0, box->findData(index.data(Qt::UserRole))));
}

void VariableListItemDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const auto* box = qobject_cast<QComboBox*>(editor);
    model->setData(index, box->currentData(), Qt::UserRole);
    model->setData(index, box->currentText(), Qt::EditRole);
}
