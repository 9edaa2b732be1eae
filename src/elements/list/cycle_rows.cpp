#include "elements/list/cycle_rows.h"

#include "session/project_session.h"

std::optional<CycleRows> readElementRows(const Statement& statement, const RowReader& read,
                                         const ElementProgress& progress)
{
    const sql::Result elements = session().run(statement);
    if (!elements.isTuples())
        return {};
    CycleRows rows;
    for (int at = 0; at < elements.ntuples(); ++at) {
        if (progress && !progress(at, elements.ntuples()))
            return {};
        CycleRow row;
        row.elementId = elements.toInt(at, 0);
        row.name = elements.getvalue(at, 1);
        read(elements, at, row);
        rows.push_back(std::move(row));
    }
    return rows;
}
