#pragma once
// Chooses one of a document's variables in a cell of a table. The cell shows
// the caption; its user role holds the variable.

#include "reports/templates/export_template_class.h"

#include <QStyledItemDelegate>

/// "Не выбрано" for none; an unknown variable shows its own name.
QString variableCaption(const ExportTemplateClass& document, const QString& variable);

class VariableListItemDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    VariableListItemDelegate(const ExportTemplateClass& document, QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

private:
    const ExportTemplateClass& document_;
};
