#pragma once
// The technical state of a position: one document a position.

#include "reports/templates/export_template_class.h"
#include "reports/templates/position_tables.h"

class PositionStateExportTemplate : public ExportTemplateClass {
public:
    PositionStateExportTemplate() : ExportTemplateClass(reportKind(ReportKey::PositionState)) { }

    ReportOutcome generateAll() override;

protected:
    bool buildTable(const QString& variable, DocxTable& table, DocxTemplate& document) override;

private:
    QString takePosition(int positionId);

    ReportedNorms norms_;
    QVector<GradedCycle> cycles_;
};
