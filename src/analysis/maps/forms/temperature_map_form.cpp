#include "analysis/maps/forms/temperature_map_form.h"

#include "analysis/maps/forms/sampling_pane.h"
#include "base/text.h"

#include <cmath>

using namespace formkit;

namespace {

constexpr int kCycleLength = 20; // characters that the box of cycles has room for
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
    : MapDialog({"TemperatureMapForm", "Построение карты температур", "Термоскважины", kNoValue}, parent),
      sampling_(new SamplingPane),
      cycle_(narrowCombo("MeasData", kCycleLength, session().cycleEntries(" - ")))
{
    choose(cycle_, session().currentCycleId);
    layOutMap({{"Цикл измерений", cycle_}}, sampling_);
    connect(cycle_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &TemperatureMapForm::reload);
    connect(sampling_, &SamplingPane::modeChanged, this, &TemperatureMapForm::showTables);
    connect(sampling_, &SamplingPane::changed, this, &TemperatureMapForm::recompute);
    start();
}

bool TemperatureMapForm::load()
{
    const MapPlace taken = place();
    const bool loaded = wells_.load({taken.byPosition, taken.positionId, chosenId(cycle_), taken.border, taken.states});
    sampling_->startWith(wells_.keys(Sampling::Depth), wells_.keys(Sampling::Elevation));
    return loaded;
}

void TemperatureMapForm::showTables()
{
    showValues();
    recompute();
}

void TemperatureMapForm::recompute()
{
    wells_.sample(sampling_->sampling());
    std::vector<MapPoint> points;
    for (const WellRow& well : wells_.rows)
        points.push_back({well.name, well.x, well.y, {well.valid ? well.value : HUGE_VAL}, well.value, well.valid});
    showPoints({modeTitle(sampling_->mode())}, points);
}

void TemperatureMapForm::showValues()
{
    const std::vector<double> keys = wells_.keys(sampling_->mode());
    QStringList names;
    for (const WellRow& well : wells_.rows)
        names << well.name;
    QStringList titles;
    for (double key : keys)
        titles << fixed(key, 2);
    QTableWidget* table = values();
    table->clear();
    table->setRowCount(titles.size());
    table->setColumnCount(names.size());
    table->setHorizontalHeaderLabels(names);
    table->setVerticalHeaderLabels(titles);
    setValuesCorner(sampling_->mode() == Sampling::Elevation ? QStringLiteral("Отметка") : QStringLiteral("Глубина"));
    for (int row = 0; row < titles.size(); ++row) {
        for (int column = 0; column < names.size(); ++column)
            table->setItem(row, column, valueItem(size_t(column), keys[size_t(row)]));
    }
    table->resizeColumnsToContents();
}

// A reading as it is, or the value between two readings in green.
QTableWidgetItem* TemperatureMapForm::valueItem(size_t well, double key) const
{
    const TemperatureLog& log = wells_.log(well, sampling_->mode());
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
