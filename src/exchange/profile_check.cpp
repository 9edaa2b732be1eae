#include "exchange/measure_check.h"

#include <QStringList>
#include <QVector>
#include <cmath>

namespace {

const char* const previousStatement =
    "SELECT ts.meas, ts.meas_ts_id FROM ts_meas ts JOIN cycles c ON ts.cycle_id = c.cycle_id WHERE ts.element_id = %1 "
    "AND c.date_end < (SELECT date_end FROM cycles WHERE cycle_id = %2) AND ts.meas IS NOT NULL ORDER BY c.date_end "
    "DESC LIMIT 1 ";

constexpr ProfileLimits limits;

quint32 bitsOf(const BaseMeasure& measure) { return static_cast<const TSMeasure&>(measure).validity; }

bool within(const TSMeasure& measure, double top, double bottom)
{
    return top >= measure.depthFrom && bottom <= measure.depthTo;
}

// The mean between the criterion's depths; infinite when it cannot be computed.
double meanOf(const TSMeasure& measure, const TemperatureLog& log)
{
    double mean = BaseMeasure::noValue;
    return profileMean(log, measure.depthFrom, measure.depthTo, mean) ? mean : BaseMeasure::noValue;
}

void compareMeans(TSMeasure& measure, const TemperatureLog& log, const PreviousMeasure& previous)
{
    if (previous.state == PreviousMeasure::Failed)
        return;
    measure.mean = meanOf(measure, log);
    TemperatureProfile before;
    if (previous.text.isEmpty() || !parseProfile(previous.text, before)) {
        measure.validity |= profileNoPrevious;
        return;
    }
    measure.previousMean = meanOf(measure, logOf(before));
    if (!std::isfinite(measure.mean) || !std::isfinite(measure.previousMean))
        measure.validity |= profileNoPrevious;
    else if (std::abs(measure.mean - measure.previousMean) > limits.mean)
        measure.validity |= profileMeanChanged;
}

struct Reading {
    double depth, temperature;
};

void findOutliers(TSMeasure& measure, const QVector<Reading>& readings)
{
    for (int i = 1; i + 1 < readings.size(); ++i) {
        const Reading& above = readings[i - 1];
        const Reading& here = readings[i];
        const Reading& below = readings[i + 1];
        if (!within(measure, above.depth, below.depth))
            continue;
        const double expected = above.temperature
            + (below.temperature - above.temperature) * (here.depth - above.depth) / (below.depth - above.depth);
        if (std::abs(here.temperature - expected) > limits.outlier)
            measure.outliers[here.depth] = here.temperature;
    }
    if (!measure.outliers.empty())
        measure.validity |= profileOutliers;
}

void findGradients(TSMeasure& measure, const QVector<Reading>& readings)
{
    for (int i = 1; i < readings.size(); ++i) {
        const Reading& above = readings[i - 1];
        const Reading& here = readings[i];
        if (!within(measure, above.depth, here.depth))
            continue;
        const double gradient = (here.temperature - above.temperature) / (here.depth - above.depth);
        if (std::abs(gradient) > limits.gradient)
            measure.gradients[here.depth] = here.temperature;
    }
    if (!measure.gradients.empty())
        measure.validity |= profileGradient;
}

void clear(TSMeasure& measure)
{
    measure.validity = 0;
    measure.validated = false;
    measure.mean = measure.previousMean = BaseMeasure::noValue;
    measure.depthFrom = measure.depthTo = BaseMeasure::noValue;
    measure.outliers.clear();
    measure.gradients.clear();
}

void checkAgainstNorms(TSMeasure& measure, const PositionNorms& norms, StoredCriteria& criteria)
{
    measure.depthFrom = norms.depthFrom;
    measure.depthTo = norms.depthTo;
    const TemperatureLog log = logOf(measure.profile);
    compareMeans(measure, log, criteria.previous(previousStatement, measure.elementId, measure.cycleId));
    QVector<Reading> readings;
    readings.reserve(int(log.size()));
    for (const auto& [depth, temperature] : log)
        readings.append({depth, temperature});
    findOutliers(measure, readings);
    findGradients(measure, readings);
}

void run(BaseMeasure& base, int positionId, StoredCriteria& criteria)
{
    auto& measure = static_cast<TSMeasure&>(base);
    clear(measure);
    if (measure.elementId < 0 || positionId < 0) {
        measure.validity = profileError;
        return;
    }
    const PositionNorms norms = criteria.norms(positionId);
    if (!norms.found || std::isinf(norms.depthFrom) || std::isinf(norms.depthTo))
        measure.validity |= profileNoNorm;
    else
        checkAgainstNorms(measure, norms, criteria);
    if (measure.validity == 0)
        measure.validity = profileValid;
    measure.validated = true;
}

QString text(const BaseMeasure& measure)
{
    struct BitText {
        quint32 bit;
        const char* text;
    };
    static constexpr BitText texts[] = {
        {profileError, "Неизвестная ошибка"},
        {profileNoNorm, "Не задан критерий"},
        {profileNoPrevious, "Не заданы данные сравнения"},
        {profileOutliers, "Выбросы данных"},
        {profileGradient, "Высокая скорость изменения"},
        {profileMeanChanged, "Превышение изменения ср.взвеш."},
        {profileValid, "Данные валидны"},
    };
    const quint32 bits = bitsOf(measure);
    if (bits == 0)
        return QStringLiteral("Неизвестно");
    QStringList lines;
    for (const BitText& row : texts) {
        const bool hidden = row.bit == profileValid && (bits & profileError);
        if ((bits & row.bit) && !hidden)
            lines.append(QString::fromUtf8(row.text));
    }
    return lines.join(QLatin1Char('\n'));
}

int code(const BaseMeasure& measure) { return int(bitsOf(measure)); }

// As for deformation marks: nothing to compare with is an error, a reading that
// exceeds a limit is a warning.
Verdict verdict(const BaseMeasure& measure)
{
    const quint32 bits = bitsOf(measure);
    if (bits == profileValid)
        return Verdict::Valid;
    const bool error = bits == 0 || (bits & (profileError | profileNoNorm | profileNoPrevious));
    return error ? Verdict::Error : Verdict::Warning;
}

} // namespace

const MeasureCheck& profileCheck()
{
    static const MeasureCheck check = {run, text, code, verdict, previousStatement};
    return check;
}
