#pragma once
// Binds the tags of a Word file to the variables of a kind of document.

#include "reports/generator/template_bindings.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QTableWidget;

class TemplateEditorDialog : public QDialog {
    Q_OBJECT

public:
    TemplateEditorDialog(const ExportTemplateClass& document, const TemplateBindings& bindings,
                         QWidget* parent = nullptr);

    /// Of the saved template; empty until it is saved.
    QString descriptionPath() const { return savedPath_; }
    /// Shows the tags of the file; a fault is told.
    void takeDocx(const QString& path);

    /// Saves; stays open when something could not be saved.
    void accept() override;

private:
    void chooseDocx();
    void showRows();
    void readRows();
    bool copyDocx();

    const ExportTemplateClass& document_;
    TemplateBindings bindings_;
    QString savedPath_;
    QLineEdit* name_;
    QLineEdit* docx_;
    QCheckBox* copy_;
    QTableWidget* rows_;
    QLabel* note_;
};
