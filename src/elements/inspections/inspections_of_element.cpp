#include "elements/inspections/inspections_of_element.h"

#include "base/statement.h"
#include "session/project_session.h"

#include <algorithm>

std::vector<InspectionRecord> loadInspectionsOf(const InspectionFamily& family, int elementId)
{
    const sql::Result found = session().run(compose("select inspect_id, cycle_id from %2 where element_id = %1",
                                                    elementId, Identifier(family.tables().inspections)));
    QVector<int> ids;
    for (int row = 0; found.isTuples() && row < found.ntuples(); ++row)
        ids.append(found.toInt(row, 0));
    if (ids.isEmpty())
        return {};
    // The family's own text, for many keys in the place of one.
    const sql::Result rows = session().run(compose(family.select, compose("any(array[%1])", IdList(ids))));
    std::vector<InspectionRecord> records;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        records.emplace_back(family);
        records.back().take(rows, row);
        records.back().elementId = elementId;
    }
    std::sort(records.begin(), records.end(),
              [](const InspectionRecord& a, const InspectionRecord& b) { return a.inspectId < b.inspectId; });
    return records;
}
