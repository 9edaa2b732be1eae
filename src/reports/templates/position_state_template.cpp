#include "reports/templates/position_state_template.h"

#include "analysis/grading/position_measures.h"
#include "reports/templates/file_series.h"
#include "session/project_session.h"

bool PositionStateExportTemplate::buildTable(const QString& variable, DocxTable& table, DocxTemplate&)
{
    if (variable == QLatin1String("41_pos_term_table)"))
        fillSoilStateTable(table, cycles_);
    if (variable == QLatin1String("42_pos_def_table"))
        fillDeformationStateTable(table, cycles_);
    if (variable == QLatin1String("43_pos_norm_table"))
        fillNormTable(table, norms_);
    return true;
}

QString PositionStateExportTemplate::takePosition(int positionId)
{
    const sql::Result row = session().run(compose("select position from positions where position_id = %1", positionId));
    if (!row.hasRow())
        return {};
    norms_ = ReportedNorms::load(positionId);
    cycles_.clear();
    for (const int cycle : parameters.cycles) {
        const QStringList texts = session().cycles.value(cycle);
        cycles_.append({texts.value(0), texts.value(1), gradedPosition(positionId, parameters.baseCycleId, cycle)});
    }
    const QString name = row.getvalue(0, 0);
    setVariable(QStringLiteral("40_pos_name"), name);
    setVariable(QStringLiteral("401_pos_morm"), norms_.construction);
    return QStringLiteral("") + name;
}

ReportOutcome PositionStateExportTemplate::generateAll()
{
    return FileSeries(parameters, QStringLiteral("Общий_паспорт_позиций.docx"))
        .run(
            parameters.positions, [this](int id) { return takePosition(id); },
            [this](const QString& path) { return exportFile(path); });
}
