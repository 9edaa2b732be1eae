#include "drawing/sync/missing_rows.h"

#include "base/placeholders.h"
#include "drawing/sync/audit_texts.h"
#include "hostkit/console.h"
#include "session/project_session.h"

namespace {

void deleteRows(const Family& family, const std::set<int>& ids)
{
    QStringList keys;
    for (const int id : ids)
        keys.append(QString::number(id));
    session().run("DELETE FROM " + family.elements + " WHERE element_id in (" + keys.join(QLatin1Char(',')) + ")");
}

void offerFamily(FamilyRows& rows, const Family& family, const SyncQuestions& questions)
{
    std::set<int>& missing = rows.positionIds;
    for (const int id : rows.seenIds)
        missing.erase(id);
    if (missing.empty())
        return;
    if (questions.ask && questions.ask(fill(auditTexts(family.key).missingRows, int(missing.size())))) {
        deleteRows(family, missing);
        return;
    }
    for (const int id : missing)
        say(fill("Пропускаем element_id=%1 \n", id));
}

} // namespace

void offerMissingRows(RowsOfFamilies& rows, const SyncQuestions& questions)
{
    for (const FamilyKey key :
         {FamilyKey::Dm, FamilyKey::Ts, FamilyKey::Tss, FamilyKey::Rp, FamilyKey::Ggs, FamilyKey::Igs, FamilyKey::Tsg})
        offerFamily(rows[key], family(key), questions);
}
