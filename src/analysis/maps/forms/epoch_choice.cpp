#include "analysis/maps/forms/epoch_choice.h"

#include "formkit/widgets.h"
#include "session/project_session.h"

using namespace formkit;

namespace {

constexpr int kCycleLength = 20; // characters that a box has room for

} // namespace

EpochChoice::EpochChoice(const Names& names, QObject* parent)
    : QObject(parent),
      names_(names),
      base_(narrowCombo(names.base, kCycleLength, session().cycleEntries(" - "))),
      current_(narrowCombo(names.current, kCycleLength, session().cycleEntries(" - "))),
      useForecast_(check("UsePredictionCheck", "Прогноз")),
      forecasts_(narrowCombo("PredictionsList", kCycleLength, session().predictionEntries(" - ")))
{
    choose(base_, session().baseCycleId);
    choose(current_, session().currentCycleId);
    enableBoxes();
    for (QComboBox* box : {base_, current_, forecasts_})
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &EpochChoice::changed);
    connect(useForecast_, &QCheckBox::toggled, this, [this] {
        enableBoxes();
        emit changed();
    });
}

void EpochChoice::enableBoxes()
{
    current_->setEnabled(!useForecast_->isChecked());
    forecasts_->setEnabled(useForecast_->isChecked());
}

std::vector<Cells> EpochChoice::rows() const
{
    return {{names_.baseCaption, base_}, {names_.currentCaption, current_}, {useForecast_, forecasts_}};
}

Epochs EpochChoice::epochs() const
{
    Epochs chosen;
    chosen.base = chosenId(base_);
    chosen.current = chosenId(current_);
    if (useForecast_->isChecked())
        chosen.forecast = chosenId(forecasts_);
    return chosen;
}

QString EpochChoice::baseText() const { return base_->currentText(); }
QString EpochChoice::currentText() const { return current_->currentText(); }
QString EpochChoice::currentShown() const
{
    return useForecast_->isChecked() ? QStringLiteral("прогноз ") + forecasts_->currentText() : currentText();
}
