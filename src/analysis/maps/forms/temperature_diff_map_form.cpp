#include "analysis/maps/forms/temperature_diff_map_form.h"

#include "analysis/maps/value_labels.h"
#include "base/placeholders.h"

#include <cmath>

using namespace formkit;

TemperatureDiffMapForm::TemperatureDiffMapForm(QWidget* parent)
    : WellMapDialog({"TemperatureDiffMapForm", "Построение карты разности температур", "Термоскважины", "--"}, parent),
      base_(cycleBox("BaseCycleCombo", session().baseCycleId)),
      current_(cycleBox("MeasData", session().currentCycleId))
{
    layOutWells({{"Исходный цикл измерений", base_}, {"Текущий цикл измерений", current_}}, {base_, current_});
    start();
}

MapSubject TemperatureDiffMapForm::subject() const
{
    return {QStringLiteral("Карта разности температур, °С"),
            fill("%1 … %2", base_->currentText(), current_->currentText()), depthText()};
}

Loaded TemperatureDiffMapForm::load(const MapProgress& progress)
{
    Epochs epochs;
    epochs.base = chosenId(base_);
    epochs.current = chosenId(current_);
    const Loaded loaded = wells_.load(place(), epochs, progress);
    startSampling();
    return loaded;
}

QString TemperatureDiffMapForm::loadRemarks() const
{
    return repeatedNote(wells_.repeated(), QStringLiteral("взят первый замер"));
}

QStringList TemperatureDiffMapForm::wellNames() const
{
    QStringList names;
    for (const DifferenceRow& well : wells_.rows)
        names << well.name;
    return names;
}

QString TemperatureDiffMapForm::keyCaption(Sampling::Mode mode) const
{
    return mode == Sampling::Elevation ? QStringLiteral("Абс. отметка") : QStringLiteral("Глубина");
}

QTableWidgetItem* TemperatureDiffMapForm::valueItem(size_t well, Sampling::Mode mode, double key) const
{
    QTableWidgetItem* item = textItem(wells_.cell(well, mode, key));
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

void TemperatureDiffMapForm::showSampled(const Sampling& sampling)
{
    wells_.sample(sampling);
    std::vector<MapPoint> points;
    for (const DifferenceRow& well : wells_.rows) {
        const double base = well.valid ? well.base : HUGE_VAL;
        const double difference = well.valid ? well.difference : HUGE_VAL;
        points.push_back({well.name, well.x, well.y, {base, difference}, difference, well.valid});
    }
    showPoints({QStringLiteral("Исх. т-ра (°C)"), QStringLiteral("Δt (°C)")}, points);
}

void TemperatureDiffMapForm::drawLabels(const geometry::PointList& /*points*/) const
{
    std::vector<LabelPair> pairs;
    for (const size_t row : usedRows()) {
        const DifferenceRow& well = wells_.rows[row];
        pairs.push_back({{well.x, well.y, 0.0}, baseLabel(well.base), differenceLabel(well.difference)});
    }
    drawLabelPairs(pairs);
}
