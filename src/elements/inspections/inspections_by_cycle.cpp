#include "elements/inspections/inspections_by_cycle.h"

#include "base/statement.h"
#include "session/project_session.h"

namespace {

QString stateText(const QString& stateId) { return session().states.value(stateId, stateId); }

void readCells(const InspectionFamily& family, CycleRow& row)
{
    enum Column { CycleId, StateId, InspectId };
    const sql::Result rows = session().run(compose("select cycle_id,state_id, inspect_id from %1 where element_id = %2",
                                                   Identifier(family.tables().inspections), row.elementId));
    for (int i = 0; rows.isTuples() && i < rows.ntuples(); ++i)
        row.cells[rows.toInt(i, CycleId)] = {rows.toInt(i, InspectId), stateText(rows.getvalue(i, StateId))};
}

// Writes the record into its cycle, in the place of one that stands there if that may go.
bool put(InspectionRecord& record, const ReplaceQuestion& mayReplace)
{
    record.inspectId = record.storedIn(record.cycleId);
    if (record.inspectId == -1)
        return record.insert();
    return mayReplace(record.questionText()) && record.update();
}

} // namespace

std::optional<CycleRows> readInspectionRows(const InspectionFamily& family, const HierarchyPlace& place,
                                            const ElementProgress& progress)
{
    enum Column { ElementId, Name, StateId };
    return readElementRows(
        compose("select element_id, element_name, state_id from %1 left join positions using (position_id) left join "
                "subobjects using (subobject_id) left join objects using (object_id) left join projects using "
                "(project_id) %2 order by element_name;",
                Identifier(family.tables().elements), scopeClause(place)),
        [&family](const sql::Result& elements, int at, CycleRow& row) {
            row.stateId = elements.getvalue(at, StateId);
            row.state = stateText(row.stateId);
            readCells(family, row);
        },
        progress);
}

int createInspections(InspectionRecord pattern, const CycleRows& rows, const ReplaceQuestion& mayReplace,
                      const ElementProgress& progress)
{
    int written = 0;
    int done = 0;
    for (const CycleRow& row : rows) {
        if (progress && !progress(done++, int(rows.size())))
            break;
        pattern.setElement(row.elementId);
        written += put(pattern, mayReplace);
    }
    return written;
}

int copyInspections(const InspectionFamily& family, const CycleRows& rows, CyclePair cycles,
                    const ReplaceQuestion& mayReplace, const ElementProgress& progress)
{
    int written = 0;
    int done = 0;
    for (const CycleRow& row : rows) {
        if (progress && !progress(done++, int(rows.size())))
            break;
        InspectionRecord record(family);
        if (row.idIn(cycles.source) == -1 || !record.load(row.idIn(cycles.source)))
            continue;
        record.cycleId = cycles.target;
        written += put(record, mayReplace);
    }
    return written;
}

int deleteInspections(const InspectionFamily& family, const CycleRows& rows, int cycleId)
{
    int deleted = 0;
    for (const CycleRow& row : rows) {
        if (row.idIn(cycleId) != -1)
            deleted += session()
                           .run(compose("delete from %2 where inspect_id=%1", row.idIn(cycleId),
                                        Identifier(family.tables().inspections)))
                           .isCommand();
    }
    return deleted;
}

bool recomputeStates(const InspectionFamily& family)
{
    return session()
        .run(compose("update %2 set  state_id = (coalesce((select state_id from %1 join cycles using (cycle_id) where "
                     "element_id = %2.element_id order by date_start DESC limit 1), 'exist'));",
                     Identifier(family.tables().inspections), Identifier(family.tables().elements)))
        .isCommand();
}

QString recomputeState(const InspectionFamily& family, int elementId, const QString& presentState)
{
    const sql::Result row = session().run(compose(
        "update %3 set state_id = coalesce((select state_id from(select state_id, cycle_id from %4 where "
        "element_id = %1) as elleft join cycles using (cycle_id)order by date_start DESC limit 1), '%2')where "
        "element_id = %1 returning state_id;",
        elementId, presentState, Identifier(family.tables().elements), Identifier(family.tables().inspections)));
    if (family.afterOne)
        session().run(compose(family.afterOne, elementId));
    return row.hasRow() ? row.getvalue(0, 0) : presentState;
}
