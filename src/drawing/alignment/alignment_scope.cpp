#include "drawing/alignment/alignment_scope.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <nrx/editor.h>

namespace {

const FamilyKey alignedFamilies[] = {FamilyKey::Dm,  FamilyKey::Ts,  FamilyKey::Rp,
                                     FamilyKey::Tss, FamilyKey::Ggs, FamilyKey::Tsg};

std::optional<AlignmentScope> currentPosition()
{
    if (session().currentPositionId == -1) {
        say(QStringLiteral("Не выбрана текущая позиция"));
        return {};
    }
    std::optional<AlignmentScope> scope = AlignmentScope::ofCurrentPosition();
    if (!scope)
        say(QStringLiteral("Не установлено соединение с базой данных"));
    return scope;
}

} // namespace

std::optional<AlignmentScope> AlignmentScope::ofCurrentPosition()
{
    AlignmentScope scope;
    scope.everything_ = false;
    for (const FamilyKey key : alignedFamilies) {
        const sql::Result rows = session().run(compose("select element_id from %1 where position_id=%2",
                                                       Identifier(family(key).elements), session().currentPositionId));
        if (!rows.isTuples())
            return {};
        QSet<int>& ids = scope.ids_[key];
        for (int row = 0; row < rows.ntuples(); ++row)
            ids.insert(rows.toInt(row, 0));
    }
    return scope;
}

bool AlignmentScope::contains(const ElementBlock& element) const
{
    if (everything_)
        return true;
    const Family* family = element.family();
    return family && ids_.value(family->key).contains(element.elementId());
}

std::optional<AlignmentScope> askAlignmentScope()
{
    QString answer;
    // The blank at the beginning belongs to the list.
    ncedInitGet(0, QStringLiteral(" Позиции Чертежу _ Position Drawing"));
    if (ncedGetKword(QStringLiteral("Обрабатывать элементы по [Позиции/Чертежу]  <Позиции>"), answer) != kPromptNormal)
        return {};
    say(fill("\n Выбор '%1'", answer));
    return answer == QLatin1String("Position") ? currentPosition() : AlignmentScope();
}
