#include "exchange/element_scope.h"

#include "base/statement.h"
#include "session/project_session.h"

int ElementScope::positionOf(int elementId) const
{
    for (auto position = byPosition.begin(); position != byPosition.end(); ++position) {
        if (position.value().contains(elementId))
            return position.key();
    }
    return -1;
}

bool loadScope(const QString& elementTable, int positionId, bool allBase, ElementScope& scope)
{
    scope = ElementScope();
    const Statement statement =
        compose("select element_id, element_name, position_id from %1", Identifier(elementTable));
    const Statement condition =
        allBase ? Statement(" order by element_name") : compose(" where position_id = %1", positionId);
    const sql::Result rows = session().run(statement + condition);
    if (!rows.isTuples())
        return false;
    for (int row = 0; row < rows.ntuples(); ++row) {
        const int id = rows.toInt(row, 0);
        scope.elements.append({rows.getvalue(row, 1), id});
        if (!rows.isNull(row, 2))
            scope.byPosition[rows.toInt(row, 2)].append(id);
    }
    return true;
}
