#include "analysis/maps/forms/temperature_map_form.h"

#include "base/text.h"

#include <cmath>

using namespace formkit;

namespace {

const QColor kInterpolated(0, 255, 0);
const char* const kNoValue = "--";

QString modeTitle(Sampling::Mode mode)
{
    switch (mode) {
    case Sampling::Elevation: return QStringLiteral("Температура\nна отметке");
    case Sampling::Average: return QStringLiteral("Средневзвешенная\nтемпература");
    case Sampling::Depth: break;
    }
    return QStringLiteral("Температура\nна глубине");
}

} // namespace

TemperatureMapForm::TemperatureMapForm(QWidget* parent)
    : WellMapDialog({"TemperatureMapForm", "Построение карты температур", "Термоскважины", kNoValue}, parent),
      cycle_(cycleBox("MeasData", session().currentCycleId))
{
    layOutWells({{"Цикл измерений", cycle_}}, {cycle_});
    start();
}

MapSubject TemperatureMapForm::subject() const
{
    return {QStringLiteral("Карта температур, °С"), cycle_->currentText(), depthText()};
}

Loaded TemperatureMapForm::load(const MapProgress& /*progress*/)
{
    const bool loaded = wells_.load(place(), chosenId(cycle_));
    startSampling();
    return loaded ? Loaded::All : Loaded::Refused;
}

QStringList TemperatureMapForm::wellNames() const
{
    QStringList names;
    for (const WellRow& well : wells_.rows)
        names << well.name;
    return names;
}

QString TemperatureMapForm::keyCaption(Sampling::Mode mode) const
{
    return mode == Sampling::Elevation ? QStringLiteral("Отметка") : QStringLiteral("Глубина");
}

void TemperatureMapForm::showSampled(const Sampling& sampling)
{
    wells_.sample(sampling);
    std::vector<MapPoint> points;
    for (const WellRow& well : wells_.rows)
        points.push_back({well.name, well.x, well.y, {well.valid ? well.value : HUGE_VAL}, well.value, well.valid});
    showPoints({modeTitle(sampling.mode)}, points);
}

// A reading as it is, or the value between two readings in green.
QTableWidgetItem* TemperatureMapForm::valueItem(size_t well, Sampling::Mode mode, double key) const
{
    const TemperatureLog& log = wells_.log(well, mode);
    const auto reading = log.find(key);
    if (reading != log.end())
        return numberItem(reading->second, 2, fixed(reading->second, 2));
    double value = HUGE_VAL;
    const bool between = interpolate(log, key, value);
    QTableWidgetItem* item = numberItem(between ? value : HUGE_VAL, 2, kNoValue);
    if (between)
        item->setBackground(kInterpolated);
    return item;
}
