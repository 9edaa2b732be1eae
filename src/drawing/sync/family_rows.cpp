#include "drawing/sync/family_rows.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "hostkit/console.h"
#include "session/project_session.h"

namespace {

// A key that comes twice is told and ends the reading of the list there.
bool loadIds(std::set<int>& ids, const Statement& statement)
{
    const sql::Result rows = session().run(statement);
    if (!rows.isTuples())
        return false;
    for (int row = 0; row < rows.ntuples(); ++row) {
        const int id = rows.toInt(row, 0);
        if (!ids.insert(id).second) {
            say(fill("В базе данных обнаружено несколько элементов с одинаковым ID (%1)\n", id));
            return true;
        }
    }
    return true;
}

bool loadFamily(FamilyRows& rows, const Family& family, int positionId)
{
    const Statement all = compose("SELECT element_id, element_name FROM %1", Identifier(family.elements));
    return loadIds(rows.positionIds, all + compose(" WHERE position_id=%1", positionId)) && loadIds(rows.allIds, all);
}

} // namespace

bool loadRows(RowsOfFamilies& rows, int positionId)
{
    for (const FamilyKey key : {FamilyKey::Dm, FamilyKey::Ts, FamilyKey::Tss, FamilyKey::Ggs, FamilyKey::Tsg,
                                FamilyKey::Igs, FamilyKey::Rp}) {
        if (!loadFamily(rows[key], family(key), positionId))
            return false;
    }
    return true;
}
