#include "elements/passports/passport_record.h"

#include "elements/inspections/inspections_by_cycle.h"
#include "session/project_session.h"

PassportRecord PassportRecord::withLists(FamilyKey family)
{
    PassportRecord record(passportFamily(family));
    record.lists.read(record.family());
    return record;
}

void PassportRecord::readMeasures()
{
    measures.clear();
    if (family().measures && row.isRead())
        measures = loadMeasuresOf(*measureFamily(family().family), compose(family().measures, id()));
}

void PassportRecord::readInspections()
{
    inspections.clear();
    const InspectionFamily* inspected = inspectionFamily(family().family);
    if (inspected && row.isRead())
        inspections = loadInspectionsOf(*inspected, id());
}

bool PassportRecord::deleteMeasure(int measureId)
{
    const MeasureFamily* measured = measureFamily(family().family);
    return measured
        && session()
               .run(compose("delete from %2 where %3=%1", measureId, Identifier(measured->measureTable),
                            Identifier(measured->idColumn)))
               .isCommand();
}

bool PassportRecord::deleteInspection(int inspectId)
{
    const InspectionFamily* inspected = inspectionFamily(family().family);
    return inspected
        && session()
               .run(compose("delete from %2 where inspect_id=%1", inspectId,
                            Identifier(inspected->tables().inspections)))
               .isCommand();
}

void PassportRecord::recomputeState()
{
    const InspectionFamily* inspected = inspectionFamily(family().family);
    if (!inspected || !row.isRead())
        return;
    ::recomputeState(*inspected, id(), row.value(StateId));
    row.readAfterInspection();
}
