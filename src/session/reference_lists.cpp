// The lists that forms read without asking the server.
#include "session/project_session.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "hostkit/console.h"

void ProjectSession::reloadLevelMaps()
{
    levelMaps = {{-3, QStringLiteral("Карта температур")},
                 {-2, QStringLiteral("Карта деформаций")},
                 {-1, QStringLiteral("Пользовательская")}};
    if (!connected)
        return;
    const sql::Result rows = run("select levelmap_id, levelmap_name from levelmaps");
    for (int i = 0; i < rows.ntuples(); ++i)
        levelMaps.insert(rows.toInt(i, 0), rows.getvalue(i, 1));
}

bool ProjectSession::reloadCycles()
{
    if (!checkConnection()) {
        say(QStringLiteral("Ошибка соединения с базой данных"));
        return false;
    }
    enum Column { Id, Number, Start, End, Description, StartDate };
    const sql::Result rows = run("select cycle_id, number, TO_CHAR(date_start::date, 'dd.mm.yy') as date_start, "
                                 "TO_CHAR(date_end::date, 'dd.mm.yy') as date_end, description, date_start as ds "
                                 "from cycles order by ds");
    if (!rows.isTuples())
        return false;
    cycles.clear();
    cycleOrder.clear();
    for (int i = 0; i < rows.ntuples(); ++i) {
        const int id = rows.toInt(i, Id);
        cycles.insert(
            id,
            {rows.getvalue(i, Number), rows.getvalue(i, Start), rows.getvalue(i, End), rows.getvalue(i, Description)});
        cycleOrder.append(id);
    }
    return true;
}

void ProjectSession::reloadPredictions()
{
    enum Column { Id, Date, Name, BeginCycle, EndCycle, Elements };
    const sql::Result rows =
        run("select prediction_id,dm_predictions.prediction_date,name,begin_cycle_id,end_cycle_id, "
            "count(meas_id) as elements from dm_predictions left join dm_predictions_data "
            "using (prediction_id) group by prediction_id order by dm_predictions.prediction_date ");
    if (!rows.isTuples()) {
        say(fill(QStringLiteral("Ошибка запроса списка прогнозов '%1'"), connection.errorMessage()));
        return;
    }
    const auto cycleText = [this](int cycleId) {
        return fill(QStringLiteral("Цикл %1"), cycles.value(cycleId).value(0));
    };
    predictions.clear();
    predictionOrder.clear();
    for (int i = 0; i < rows.ntuples(); ++i) {
        const int id = rows.toInt(i, Id);
        predictions.insert(id,
                           {rows.getvalue(i, Date), rows.getvalue(i, Name), cycleText(rows.toInt(i, BeginCycle)),
                            cycleText(rows.toInt(i, EndCycle)), rows.getvalue(i, Elements)});
        predictionOrder.append(id);
    }
}

bool ProjectSession::reloadStates()
{
    const sql::Result rows = run("select state_id,note, colorindex from states");
    if (!rows.isTuples())
        return false;
    states.clear();
    stateColors.clear();
    for (int i = 0; i < rows.ntuples(); ++i) {
        states.insert(rows.getvalue(i, 0), rows.getvalue(i, 1));
        stateColors.insert(rows.getvalue(i, 0), rows.toInt(i, 2));
    }
    return true;
}

QVector<int> ProjectSession::cycleRange(int first, int last) const
{
    if (first == -1 && last == -1)
        return {};
    if (first == -1)
        return {last};
    if (last == -1)
        return {first};
    const int begin = cycleOrder.indexOf(first);
    const int end = cycleOrder.indexOf(last);
    if (begin == -1 && end == -1)
        return {};
    if (begin == -1)
        return {last};
    if (end == -1)
        return {first};
    return cycleOrder.mid(qMin(begin, end), qAbs(end - begin) + 1);
}

QVector<ComboEntry> ProjectSession::cycleEntries(const QString& separator) const
{
    QVector<ComboEntry> entries;
    for (int id : cycleOrder)
        entries.append({cycles.value(id).join(separator), id});
    return entries;
}

QVector<ComboEntry> ProjectSession::predictionEntries(const QString& separator) const
{
    QVector<ComboEntry> entries;
    for (int id : predictionOrder)
        entries.append({predictions.value(id).mid(0, 2).join(separator), id});
    return entries;
}

QVector<ComboEntry> ProjectSession::stateEntries() const
{
    QVector<ComboEntry> entries;
    for (auto state = states.begin(); state != states.end(); ++state)
        entries.append({state.value(), state.key()});
    return entries;
}

QVector<int> ProjectSession::positionsOf(int scope, int id) const
{
    // One row a scope: project, object, subobject.
    static const char* const statements[] = {
        "select position_id, subobject_id from positions left join subobjects using (subobject_id) "
        "left join objects using (object_id) left join projects using (project_id) where project_id = %1",
        "select position_id, subobject_id from positions left join subobjects using (subobject_id) "
        "left join objects using (object_id) where object_id = %1",
        "select position_id, subobject_id from positions left join subobjects using (subobject_id) "
        "where subobject_id = %1",
    };
    if (scope == 3)
        return {id};
    if (scope < 0 || scope > 3)
        return {};
    const sql::Result rows = run(compose(statements[scope], id));
    QVector<int> positions;
    for (int i = 0; i < rows.ntuples(); ++i)
        positions.append(rows.toInt(i, 0));
    return positions;
}
