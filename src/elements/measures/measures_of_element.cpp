#include "elements/measures/measures_of_element.h"

#include "session/project_session.h"

#include <QHash>

namespace {

QVector<int> idsOf(const sql::Result& rows)
{
    QVector<int> ids;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        ids.append(rows.toInt(row, 0));
    return ids;
}

Statement columnsOf(const MeasureFamily& family)
{
    QVector<Statement> names;
    for (const MeasureColumn& column : family.columns)
        names.append(compose("%1", Identifier(column.name)));
    return joined(names, ",");
}

// The columns of the family's own select, and behind them the id.
sql::Result rowsOf(const MeasureFamily& family, const QVector<int>& ids)
{
    return session().run(compose("select element_id, cycle_id, device_id, date, %1, performer_id, %2 from %3 where %2 "
                                 "in (%4)",
                                 columnsOf(family), Identifier(family.idColumn), Identifier(family.measureTable),
                                 IdList(ids)));
}

} // namespace

Measures loadMeasuresOf(const MeasureFamily& family, const Statement& statement, const MeasureLists& lists)
{
    const QVector<int> ids = idsOf(session().run(statement));
    if (ids.isEmpty())
        return {};
    const sql::Result rows = rowsOf(family, ids);
    const int idColumn = family.performerColumn() + 1;
    QHash<int, int> rowOfId;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        rowOfId.insert(rows.toInt(row, idColumn), row);
    Measures measures;
    for (const int id : ids) {
        const auto row = rowOfId.constFind(id);
        if (row == rowOfId.constEnd())
            continue; // deleted between the two
        std::unique_ptr<BaseMeasure> measure = makeMeasure(family.family, lists);
        measure->take(rows, *row);
        measure->measureId = id;
        measures.push_back(std::move(measure));
    }
    return measures;
}
