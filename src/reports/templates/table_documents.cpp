#include "reports/templates/table_documents.h"

#include "analysis/grading/position_measures.h"
#include "elements/families/family_key.h"
#include "reports/templates/cell_texts.h"
#include "reports/templates/deformation_table.h"
#include "reports/templates/element_list_table.h"
#include "reports/templates/inspection_table.h"
#include "reports/templates/position_tables.h"
#include "reports/templates/shades.h"
#include "reports/templates/temperature_table.h"
#include "session/project_session.h"

#include <cmath>

namespace {

// A table variable and which of the kind's tables it is.
template <class Value>
struct TableRow {
    const char* variable;
    Value value;
};

template <class Value, size_t count>
const Value* find(const TableRow<Value> (&rows)[count], const QString& variable)
{
    for (const TableRow<Value>& row : rows) {
        if (variable == QLatin1String(row.variable))
            return &row.value;
    }
    return nullptr;
}

bool isColorMap(const QString& variable) { return variable == QLatin1String("31_color_map"); }

} // namespace

bool DeformationExportTemplateClass::buildTable(const QString& variable, DocxTable& table, DocxTemplate&)
{
    static const TableRow<DeformationSource> tables[] = {
        {"32_deformation_table", DeformationSource::Marks},
        {"33_rp_deformation_table", DeformationSource::Benchmarks},
    };
    if (isColorMap(variable))
        fillColorMapTable(table, parameters.colorMap);
    if (const DeformationSource* source = find(tables, variable)) {
        DeformationTable data;
        if (!loadDeformations(*source, parameters, data))
            return false;
        fillDeformationTable(table, data, parameters.colorMap);
    }
    return true;
}

// --- temperatures -----------------------------------------------------------------

ReportOutcome TemperaturesExportTemplateClass::prepare()
{
    setVariable(QStringLiteral("33_cycle_name"), cells::cycleName(parameters.cycleId));
    return ReportOutcome::Made;
}

bool TemperaturesExportTemplateClass::buildTable(const QString& variable, DocxTable& table, DocxTemplate&)
{
    static const TableRow<Sections> tables[] = {
        {"32_temperature_table", Sections::None},
        {"34_temperature_table_by_position", Sections::ByPosition},
    };
    if (isColorMap(variable))
        fillColorMapTable(table, parameters.colorMap);
    if (const Sections* sections = find(tables, variable)) {
        TemperatureTable data;
        if (!loadTemperatures(parameters, data))
            return false;
        fillTemperatureTable(table, data, parameters.colorMap, *sections);
    }
    return true;
}

ReportOutcome TempDiffExportTemplateClass::prepare()
{
    setVariable(QStringLiteral("33_base_cycle_name"), cells::cycleName(parameters.baseCycleId));
    setVariable(QStringLiteral("34_curr_cycle_name"), cells::cycleName(parameters.currentCycleId));
    return ReportOutcome::Made;
}

bool TempDiffExportTemplateClass::buildTable(const QString& variable, DocxTable& table, DocxTemplate&)
{
    static const TableRow<Sections> tables[] = {
        {"32_temperature_diff_table", Sections::None},
        {"35_temperature_diff_by_position_table", Sections::ByPosition},
    };
    if (isColorMap(variable))
        fillColorMapTable(table, parameters.colorMap);
    if (const Sections* sections = find(tables, variable)) {
        TemperatureTable data;
        if (!loadTemperatureDifferences(parameters, data))
            return false;
        fillTemperatureTable(table, data, parameters.colorMap, *sections);
    }
    return true;
}

// --- inspections and lists ---------------------------------------------------------

ReportOutcome InspectionsExportTemplateClass::prepare()
{
    setVariable(QStringLiteral("34_cycle_name"), cells::cycleName(parameters.cycleId));
    return ReportOutcome::Made;
}

bool InspectionsExportTemplateClass::buildTable(const QString& variable, DocxTable& table, DocxTemplate& document)
{
    static const TableRow<FamilyKey> tables[] = {
        {"31_rp_insp_table", FamilyKey::Rp},
        {"32_ts_insp_table", FamilyKey::Ts},
        {"33_dm_insp_table", FamilyKey::Dm},
    };
    if (const FamilyKey* family = find(tables, variable)) {
        QVector<InspectionRow> data;
        if (!loadInspections(*family, parameters, data))
            return false;
        fillInspectionTable(table, document, data);
    }
    return true;
}

bool ElementListExportTemplateClass::buildTable(const QString& variable, DocxTable& table, DocxTemplate&)
{
    static const TableRow<FamilyKey> tables[] = {
        {"31_rp_list_table", FamilyKey::Rp},   {"32_ts_list_table", FamilyKey::Ts},
        {"33_dm_list_table", FamilyKey::Dm},   {"34_tss_list_table", FamilyKey::Tss},
        {"35_ggs_list_table", FamilyKey::Ggs}, {"36_tsg_list_table", FamilyKey::Tsg},
    };
    if (const FamilyKey* family = find(tables, variable))
        fillElementListTable(table, loadElementList(*family, parameters.part));
    return parameters.goOn(1, 1);
}

// --- the summary of positions --------------------------------------------------------

ReportOutcome PositionAnalyticExportTemplateClass::prepare()
{
    setVariable(QStringLiteral("52_current_cycle"), cells::cycleName(parameters.currentCycleId));
    setVariable(QStringLiteral("53_base_cycle"), cells::cycleName(parameters.baseCycleId));
    return ReportOutcome::Made;
}

bool PositionAnalyticExportTemplateClass::buildTable(const QString& variable, DocxTable& table, DocxTemplate&)
{
    if (variable != QLatin1String("51_analytic_table"))
        return true;
    enum Column { ObjectId, Object, SubobjectId, Subobject, PositionId, Position };
    const sql::Result rows = session().run(
        "select object_id, object, subobject_id, subobject, position_id,position from positions left join subobjects "
        "using (subobject_id) left join objects using (object_id) order by objects.appearence, subobjects.appearence, "
        "positions.appearence");
    QVector<SummaryRow> positions;
    for (int i = 0; i < rows.ntuples(); ++i) {
        if (!parameters.goOn(i + 1, rows.ntuples(), rows.getvalue(i, Position)))
            return false;
        positions.append(
            {rows.getvalue(i, Object), rows.getvalue(i, Subobject), rows.getvalue(i, Position),
             gradedPosition(rows.toInt(i, PositionId), parameters.baseCycleId, parameters.currentCycleId)});
    }
    fillSummaryTable(table, positions);
    return true;
}
