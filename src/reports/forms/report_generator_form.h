#pragma once
// The one window from which all reports are made.

#include "reports/generator/report_run.h"

#include <QDialog>

class ConditionWidget;
class QListWidget;

class ReportGeneratorForm : public QDialog {
    Q_OBJECT

public:
    explicit ReportGeneratorForm(QWidget* parent = nullptr);
    ~ReportGeneratorForm() override;

private:
    void build();
    void fillDocuments();
    void showDocument();
    void showTemplates();
    void showConditions();
    void showTemplateMenu(const QPoint& place);
    ExportTemplateClass* document() const;
    int chosenTemplate() const;
    ReportParameters parameters() const;

    void generate();
    QString askPath(const ExportTemplateClass& document);
    void run(ExportTemplateClass& document, const QString& path);
    void createTemplate();
    void editTemplate();
    void deleteTemplate();

    std::vector<std::unique_ptr<ExportTemplateClass>> classes_;
    std::vector<ConditionWidget*> widgets_; ///< of the chosen document
    QListWidget* documents_;
    QListWidget* templates_;
    QListWidget* conditions_;
};

// TERVA_REPORTS
void openReports();
