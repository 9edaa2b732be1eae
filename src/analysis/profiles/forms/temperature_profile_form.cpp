#include "analysis/profiles/forms/temperature_profile_form.h"

#include "base/placeholders.h"

using namespace formkit;

namespace {

constexpr int kCycleLength = 20; // characters that a box of cycles has room for

QComboBox* cycleCombo(const char* name, int chosen)
{
    QComboBox* made = narrowCombo(name, kCycleLength, session().cycleEntries(" - "));
    choose(made, chosen);
    return made;
}

QString cycleNumber(const QComboBox* cycle) { return session().cycles.value(chosenId(cycle)).value(0); }

} // namespace

TemperatureProfileForm::TemperatureProfileForm(QWidget* parent)
    : SectionForm("TemperatureProfileForm", "Профиль температур.", parent),
      cycle_(cycleCombo("MeasData", session().currentCycleId))
{
    layOutSection({{"Цикл измерений", growing(cycle_)}});
    connect(cycle_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &TemperatureProfileForm::reload);
}

bool TemperatureProfileForm::loadWells(const WellPlace& place, std::vector<SectionWell>& wells)
{
    return loadSectionWells(chosenId(cycle_), place, wells);
}

SectionTitles TemperatureProfileForm::titles() const { return {cycleNumber(cycle_), cycle_->currentText(), false}; }

TemperatureDiffProfileForm::TemperatureDiffProfileForm(QWidget* parent)
    : SectionForm("TemperatureDiffProfileForm", "Профиль разности температур.", parent),
      base_(cycleCombo("BaseCycleCombo", session().baseCycleId)),
      current_(cycleCombo("MeasData", session().currentCycleId))
{
    layOutSection({
        {"Исходный цикл измерений", growing(base_)},
        {"Текущий цикл измерений", current_},
    });
    for (QComboBox* cycle : {base_, current_})
        connect(cycle, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &TemperatureDiffProfileForm::reload);
}

bool TemperatureDiffProfileForm::loadWells(const WellPlace& place, std::vector<SectionWell>& wells)
{
    std::vector<SectionWell> before;
    const bool read =
        loadSectionWells(chosenId(base_), place, before) && loadSectionWells(chosenId(current_), place, wells);
    subtract(before, wells);
    return read;
}

SectionTitles TemperatureDiffProfileForm::titles() const
{
    return {cycleNumber(current_), fill("Исходный: %1; текущий: %2", base_->currentText(), current_->currentText()),
            true};
}
