#include "analysis/forecast/forms/scope_combos.h"

#include "formkit/choices.h"
#include "formkit/widgets.h"
#include "session/project_session.h"

using namespace formkit;

namespace {

constexpr int kAll = -1;
constexpr int kLevels = 4;
constexpr int kCharacters = 16;

struct LevelRow {
    const char* name;
    const char* statement; // of what is chosen a level above
};

const std::array<LevelRow, kLevels> levels = {{
    {"ProjectCombo", "select project_id, name from projects"},
    {"ObjectCombo", "select object_id, object from objects where project_id=%1 order by appearence"},
    {"SubobjectCombo", "select subobject_id, subobject from subobjects where object_id=%1 order by appearence"},
    {"PositionCombo", "select position_id, position from positions where subobject_id=%1 order by appearence"},
}};

Choices choicesAt(int level, int above)
{
    Choices choices{{QStringLiteral("Все"), kAll}};
    if (level == 0)
        return choices + choicesOf(session().run(levels[0].statement));
    return above == kAll ? choices
                         : choices + choicesOf(session().run(compose(levels[size_t(level)].statement, above)));
}

} // namespace

ScopeCombos::ScopeCombos(QObject* parent) : QObject(parent)
{
    for (size_t level = 0; level < combos_.size(); ++level)
        combos_[level] = narrowCombo(levels[level].name, kCharacters);
    const std::array<int, kLevels> current{session().projectId, session().currentObjectId, session().currentSubobjectId,
                                           session().currentPositionId};
    fillFrom(0);
    for (int level = 0; level < kLevels; ++level) {
        if (!formkit::choose(combos_[size_t(level)], current[size_t(level)]))
            break;
        fillFrom(level + 1);
    }
    for (int level = 0; level < kLevels; ++level)
        connect(combos_[size_t(level)], QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, level] {
            fillFrom(level + 1);
            emit changed();
        });
}

// Boxes below show what the chosen one holds; setChoices() tells nobody.
void ScopeCombos::fillFrom(int level)
{
    for (; level < kLevels; ++level) {
        const int above = level > 0 ? chosenId(combos_[size_t(level) - 1]) : kAll;
        setChoices(combos_[size_t(level)], choicesAt(level, above));
    }
}

ForecastScope ScopeCombos::scope() const
{
    return {chosenId(combos_[Project]), chosenId(combos_[Object]), chosenId(combos_[Subobject]),
            chosenId(combos_[Position])};
}

QString ScopeCombos::text() const
{
    for (int level = kLevels - 1; level > 0; --level) {
        if (chosenId(combos_[size_t(level)]) != kAll)
            return combos_[size_t(level)]->currentText();
    }
    return combos_[Project]->currentText();
}
