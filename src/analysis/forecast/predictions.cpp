#include "analysis/forecast/predictions.h"

#include "base/dates.h"
#include "session/project_session.h"
#include "session/server_problem.h"

namespace {

const QString kServerDate = QStringLiteral("yyyy-MM-dd");

Statement filterOf(const ForecastScope& scope)
{
    if (scope.position != -1)
        return compose(" where position_id=%1 ", scope.position);
    if (scope.subobject != -1)
        return compose(" where subobject_id=%1 ", scope.subobject);
    if (scope.object != -1)
        return compose(" where object_id=%1 ", scope.object);
    if (scope.project != -1)
        return compose(" where project_id=%1 ", scope.project);
    return {};
}

bool loadMeasures(MarkMeasures& mark)
{
    enum Column { Cycle, Date, Measure };
    const sql::Result rows = session().run(
        compose("select cycle_id,TO_CHAR(date::date, 'yyyy-mm-dd') as date,meas from %1 where element_id=%2 "
                "order by date,cycle_id",
                "dm_meas", mark.id));
    if (!rows.isTuples())
        return false;
    for (int row = 0; row < rows.ntuples(); ++row) {
        if (!rows.isNull(row, Measure))
            mark.add(rows.isNull(row, Cycle) ? -1 : rows.toInt(row, Cycle),
                     dateFrom(rows.getvalue(row, Date), kServerDate), rows.toDouble(row, Measure));
    }
    return true;
}

} // namespace

bool loadMarks(const ForecastScope& scope, QVector<MarkMeasures>& marks, const ForecastProgress& progress)
{
    marks.clear();
    const sql::Result rows = session().run(compose(
        "select element_id, element_name  from %1 left join positions using (position_id) left join subobjects using "
        "(subobject_id) left join objects using (object_id) left join projects using (project_id) %2 "
        "order by element_name;",
        "dm_elements", filterOf(scope)));
    if (!rows.isTuples())
        return false;
    for (int row = 0; row < rows.ntuples(); ++row) {
        MarkMeasures mark;
        mark.id = rows.toInt(row, 0);
        mark.name = rows.getvalue(row, 1);
        if (!loadMeasures(mark) || (progress && !progress(row + 1, rows.ntuples()))) {
            marks.clear();
            return false;
        }
        marks.append(mark);
    }
    return true;
}

bool storePrediction(const NewPrediction& prediction, QString* problem)
{
    const QString day = dateText(prediction.day, kServerDate);
    const sql::Result made =
        session().run(compose("insert into dm_predictions (name, prediction_date, begin_cycle_id, end_cycle_id) "
                              "VALUES ('%1','%2',%3,%4) returning prediction_id",
                              prediction.name, day, prediction.beginCycle, prediction.endCycle));
    if (!orProblem(made, made.hasRow(), problem))
        return false;
    QVector<Statement> groups;
    groups.reserve(prediction.marks.size());
    for (const PredictedMark& mark : prediction.marks)
        groups.append(compose("('%1','%2','%3','%4')", mark.element, made.toInt(0, 0), day, mark.value));
    const sql::Result stored = session().run(
        compose("insert into dm_predictions_data (element_id,prediction_id,prediction_date,meas) VALUES %1",
                joined(groups, ",")));
    return orProblem(stored, stored.isCommand(), problem);
}

bool loadPredictions(QVector<StoredPrediction>& predictions, QString* problem)
{
    enum Column { Id, Date, Name, BeginCycle, EndCycle, Elements };
    const sql::Result rows = session().run(
        "select prediction_id,dm_predictions.prediction_date,name,begin_cycle_id,end_cycle_id, "
        "count(meas_id) as elements from dm_predictions left join dm_predictions_data using (prediction_id) "
        "group by prediction_id");
    predictions.clear();
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        predictions.append({rows.toInt(row, Id), rows.getvalue(row, Date), rows.getvalue(row, Name),
                            rows.toInt(row, BeginCycle), rows.toInt(row, EndCycle), rows.toInt(row, Elements)});
    return orProblem(rows, rows.isTuples(), problem);
}

bool deletePredictions(const QVector<int>& ids, QString* problem)
{
    // "cascade" is read as the table's other name here; the rows of the forecast
    // go with it by their foreign key.
    const sql::Result gone =
        session().run(compose("delete from dm_predictions cascade where prediction_id in (%1)", IdList(ids)));
    return orProblem(gone, gone.isCommand(), problem);
}
