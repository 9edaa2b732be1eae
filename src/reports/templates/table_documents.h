#pragma once
// The documents that are made in one file: their tables and texts.

#include "reports/templates/export_template_class.h"

/// Vertical movements of marks and benchmarks over the chosen cycles.
class DeformationExportTemplateClass : public ExportTemplateClass {
public:
    DeformationExportTemplateClass() : ExportTemplateClass(reportKind(ReportKey::Deformations)) { }

protected:
    bool buildTable(const QString& variable, DocxTable& table, DocxTemplate& document) override;
};

/// Temperatures of wells in one cycle.
class TemperaturesExportTemplateClass : public ExportTemplateClass {
public:
    TemperaturesExportTemplateClass() : ExportTemplateClass(reportKind(ReportKey::Temperatures)) { }

protected:
    ReportOutcome prepare() override;
    bool buildTable(const QString& variable, DocxTable& table, DocxTemplate& document) override;
};

/// Differences of temperatures between two cycles.
class TempDiffExportTemplateClass : public ExportTemplateClass {
public:
    TempDiffExportTemplateClass() : ExportTemplateClass(reportKind(ReportKey::TemperatureDifference)) { }

protected:
    ReportOutcome prepare() override;
    bool buildTable(const QString& variable, DocxTable& table, DocxTemplate& document) override;
};

/// Inspections of one cycle.
class InspectionsExportTemplateClass : public ExportTemplateClass {
public:
    InspectionsExportTemplateClass() : ExportTemplateClass(reportKind(ReportKey::Inspections)) { }

protected:
    ReportOutcome prepare() override;
    bool buildTable(const QString& variable, DocxTable& table, DocxTemplate& document) override;
};

/// Elements of six families.
class ElementListExportTemplateClass : public ExportTemplateClass {
public:
    ElementListExportTemplateClass() : ExportTemplateClass(reportKind(ReportKey::ElementLists)) { }

protected:
    bool buildTable(const QString& variable, DocxTable& table, DocxTemplate& document) override;
};

/// The states of all positions of the project.
class PositionAnalyticExportTemplateClass : public ExportTemplateClass {
public:
    PositionAnalyticExportTemplateClass() : ExportTemplateClass(reportKind(ReportKey::PositionSummary)) { }

protected:
    ReportOutcome prepare() override;
    bool buildTable(const QString& variable, DocxTable& table, DocxTemplate& document) override;
};
