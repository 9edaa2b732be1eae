#include "drawing/sync/family_rows.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "drawing/sync/family_texts.h"
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

void deleteRows(const Family& family, const std::set<int>& ids)
{
    session().run(compose("DELETE FROM %1 WHERE element_id in (%2)", Identifier(family.elements), IdList(ids)));
}

// How many rows of the table hang on each element; a family without the table has none.
Statement countIn(const QString& table)
{
    return table.isEmpty() ? Statement("0")
                           : compose("(select count(*) from %1 where %1.element_id = e.element_id)", Identifier(table));
}

enum Column { IdColumn, NameColumn, MeasuresColumn, FilesColumn };

Statement doomedStatement(const Family& family, const std::set<int>& ids)
{
    return compose("select element_id, element_name, %1, %2 from %3 e where element_id in (%4) order by element_id",
                   countIn(family.measures), countIn(family.files), Identifier(family.elements), IdList(ids));
}

// What goes with each row. False when it cannot be told: nothing is offered then.
bool tellDoomed(const Family& family, const std::set<int>& ids)
{
    const sql::Result rows = session().run(doomedStatement(family, ids));
    if (!rows.isTuples()) {
        say("\nОшибка: не удалось прочитать элементы без блоков из базы данных\n");
        return false;
    }
    for (int row = 0; row < rows.ntuples(); ++row)
        say(fill("Нет в чертеже: element_id=%1 %2, измерений: %3, файлов: %4 \n", rows.getvalue(row, IdColumn),
                 rows.getvalue(row, NameColumn), rows.getvalue(row, MeasuresColumn), rows.getvalue(row, FilesColumn)));
    return true;
}

void offerFamily(FamilyRows& rows, const Family& family, const SyncQuestions& questions)
{
    std::set<int>& missing = rows.positionIds;
    for (const int id : rows.metIds)
        missing.erase(id);
    if (missing.empty())
        return;
    const QString question = fill(auditTexts(family.key).missingRows, int(missing.size()));
    if (tellDoomed(family, missing) && questions.ask && questions.ask(question)) {
        deleteRows(family, missing);
        return;
    }
    for (const int id : missing)
        say(fill("Пропускаем element_id=%1 \n", id));
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

void offerMissingRows(RowsOfFamilies& rows, const SyncQuestions& questions)
{
    for (const FamilyKey key :
         {FamilyKey::Dm, FamilyKey::Ts, FamilyKey::Tss, FamilyKey::Rp, FamilyKey::Ggs, FamilyKey::Igs, FamilyKey::Tsg})
        offerFamily(rows[key], family(key), questions);
}
