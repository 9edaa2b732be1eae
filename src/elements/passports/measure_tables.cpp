#include "elements/passports/measure_tables.h"

#include "base/dates.h"
#include "base/placeholders.h"
#include "base/text.h"

#include <cmath>
#include <set>

namespace {

constexpr int profileDecimals = 2;

const QString missing = QStringLiteral("--");

QString numberText(double number, int decimals) { return std::isfinite(number) ? fixed(number, decimals) : missing; }

// The rows above the depths.
enum ProfileRow { AirTemperature, MeasureDate, MeasurePerformer, MeasureDevice, FirstDepth };

} // namespace

void MeasureTableModel::showMeasures()
{
    beginResetModel();
    prepare();
    endResetModel();
}

const BaseMeasure* MeasureTableModel::measureAt(const QModelIndex& cell) const
{
    const int number = cell.isValid() ? numberOfMeasure(cell) : -1;
    return number >= 0 && number < measureCount() ? &measure(number) : nullptr;
}

QVariant MeasureTableModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return role == Qt::DisplayRole && measureAt(index) ? QVariant(textAt(index)) : QVariant();
}

QString MeasureTableModel::dateOf(const BaseMeasure& measure) const
{
    return measure.date.isValid() ? dateText(measure.date.date(), QStringLiteral("dd.MM.yyyy")) : QString();
}

QString MeasureTableModel::deviceOf(const BaseMeasure& measure) const
{
    return record_.lists.devices.value(measure.deviceId);
}

QString MeasureTableModel::performerOf(const BaseMeasure& measure) const
{
    return record_.lists.performers.value(measure.performerId);
}

// --- a row a measure ------------------------------------------------------------------

int MeasureRows::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : measureCount(); }

int MeasureRows::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : record().family().measureTitles.size();
}

QVariant MeasureRows::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    return orientation == Qt::Horizontal ? QVariant(record().family().measureTitles.value(section).caption)
                                         : QVariant(section + 1);
}

QString MeasureRows::textAt(const QModelIndex& cell) const
{
    const BaseMeasure& shown = measure(cell.row());
    const auto value = [&shown](size_t i) {
        return numberText(shown.values[i], shown.family().columns[int(i)].decimals);
    };
    switch (record().family().measureTitles[cell.column()].part) {
    case MeasurePart::Cycle: return record().lists.cycleText(shown.cycleId);
    case MeasurePart::FirstValue: return value(0);
    case MeasurePart::SecondValue: return value(1);
    case MeasurePart::Date: return dateOf(shown);
    case MeasurePart::Device: return deviceOf(shown);
    case MeasurePart::Performer: return performerOf(shown);
    }
    return {};
}

// --- a column a measure ----------------------------------------------------------------

void ProfileTable::prepare()
{
    logs_.clear();
    std::set<double> all;
    for (int i = 0; i < measureCount(); ++i) {
        logs_.push_back(logOf(static_cast<const TSMeasure&>(measure(i)).profile));
        for (const auto& [depth, temperature] : logs_.back())
            all.insert(depth);
    }
    depths_ = QVector<double>(all.begin(), all.end());
}

int ProfileTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || logs_.empty() ? 0 : FirstDepth + depths_.size();
}

int ProfileTable::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(logs_.size()); }

QVariant ProfileTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList above = {"Т. возд", "Дата", "Исполнитель", "Прибор"};
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal)
        return section < measureCount() ? record().lists.cycleText(measure(section).cycleId) : QString();
    if (section < FirstDepth)
        return above[section];
    const double depth = depths_.value(section - FirstDepth);
    return fill("%1 (%2)", fixed(record().mouth() - depth, profileDecimals), fixed(depth, profileDecimals));
}

QString ProfileTable::textAt(const QModelIndex& cell) const
{
    const BaseMeasure& shown = measure(cell.column());
    switch (cell.row()) {
    case AirTemperature: return numberText(shown.values[0], profileDecimals);
    case MeasureDate: return dateOf(shown);
    case MeasurePerformer: return performerOf(shown);
    case MeasureDevice: return deviceOf(shown);
    default: break;
    }
    const TemperatureLog& log = logs_[size_t(cell.column())];
    const auto reading = log.find(depths_.value(cell.row() - FirstDepth));
    return reading == log.end() ? missing : numberText(reading->second, profileDecimals);
}
