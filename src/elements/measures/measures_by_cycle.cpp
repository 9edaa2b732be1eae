#include "elements/measures/measures_by_cycle.h"

#include "base/dates.h"
#include "base/placeholders.h"
#include "base/statement.h"
#include "elements/measures/family_measures.h"
#include "hostkit/console.h"
#include "session/project_session.h"

namespace {

sql::Result deleteIds(const MeasureFamily& family, const QVector<int>& ids)
{
    return session().run(compose("delete from %1 where %2 in (%3)", Identifier(family.measureTable),
                                 Identifier(family.idColumn), IdList(ids)));
}

void readCells(const MeasureFamily& family, CycleRow& row)
{
    enum Column { CycleId, Date, MeasureId };
    const sql::Result rows = session().run(
        compose("select cycle_id,TO_CHAR(date::date, 'yyyy-mm-dd') as date, %1 from %2 where element_id = %3",
                Identifier(family.idColumn), Identifier(family.measureTable), row.elementId));
    if (!rows.isTuples())
        say(fill("\nИзмерения элемента %1 не прочитаны: %2\n", row.name, rows.errorMessage()));
    for (int i = 0; rows.isTuples() && i < rows.ntuples(); ++i) {
        const QDate date = dateFrom(rows.getvalue(i, Date), QStringLiteral("yyyy-MM-dd"));
        row.cells[rows.toInt(i, CycleId)] = {rows.toInt(i, MeasureId), dateText(date, QStringLiteral("dd.MM.yyyy"))};
    }
}

// What is deleted for another reading stays unless that one is taken.
class Replacement {
public:
    explicit Replacement(bool needed) : open_(needed && session().run("begin").isCommand()) { }
    ~Replacement()
    {
        if (open_)
            session().run("rollback");
    }
    // What the server says to it; nothing is kept unless it is a good one.
    sql::Result keep()
    {
        sql::Result answer = session().run("commit");
        open_ = open_ && !answer.isCommand();
        return answer;
    }

private:
    bool open_;
};

int copyOne(const MeasureFamily& family, const CycleRow& row, const MeasureCopy& copy, const MeasureLists& lists)
{
    if (row.idIn(copy.source) == -1)
        return 0;
    const std::unique_ptr<BaseMeasure> measure = makeMeasure(family.family, lists);
    const int standing = row.idIn(copy.target);
    const bool replaces = standing != -1;
    if (measure->load(row.idIn(copy.source)) != measureOk || (replaces && !copy.mayReplace()))
        return 0;
    Replacement replacement(replaces);
    const auto refused = [&row](const sql::Result& result) {
        say(fill("\nИзмерение элемента %1 не перенесено: %2\n", row.name, result.errorMessage()));
        return 0;
    };
    if (replaces) {
        const sql::Result deleted = deleteIds(family, {standing});
        if (!deleted.isCommand())
            return refused(deleted);
    }
    const Statement insert = measure->setCycleId(copy.target) == measureOk ? measure->insertSql() : Statement();
    if (!insert.isEmpty()) { // a reading without a device or a performer is not carried over
        const sql::Result inserted = session().run(insert);
        if (!inserted.isTuples())
            return refused(inserted);
    }
    if (replaces) {
        const sql::Result kept = replacement.keep();
        if (!kept.isCommand())
            return refused(kept);
    }
    return int(replaces) + int(!insert.isEmpty());
}

} // namespace

std::optional<CycleRows> readMeasureRows(const MeasureFamily& family, const HierarchyPlace& place,
                                         const ElementProgress& progress)
{
    return readElementRows(
        compose(
            "select element_id, element_name from %1 left join positions using (position_id) left join subobjects "
            "using (subobject_id) left join objects using (object_id) left join projects using (project_id) %2 order "
            "by element_name;",
            Identifier(family.elementTable), scopeClause(place)),
        [&family](const sql::Result&, int, CycleRow& row) { readCells(family, row); }, progress);
}

int copyMeasures(const MeasureFamily& family, const CycleRows& rows, const MeasureCopy& copy,
                 const ElementProgress& progress)
{
    // A measure copied onto itself would be deleted before it is written.
    if (copy.source == copy.target)
        return 0;
    MeasureLists lists;
    if (loadElements(lists, family.elementTable, -1, true) != measureOk || loadCycles(lists) != measureOk
        || loadDevices(lists) != measureOk || loadPerformers(lists) != measureOk)
        return 0;
    int changed = 0;
    int done = 0;
    for (const CycleRow& row : rows) {
        if (progress && !progress(done++, int(rows.size())))
            break;
        changed += copyOne(family, row, copy, lists);
    }
    return changed;
}

bool deleteMeasures(const MeasureFamily& family, const CycleRows& rows, int cycleId)
{
    QVector<int> ids;
    for (const CycleRow& row : rows) {
        if (row.idIn(cycleId) != -1)
            ids.append(row.idIn(cycleId));
    }
    return ids.isEmpty() || deleteIds(family, ids).isCommand();
}
