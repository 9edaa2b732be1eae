#include "exchange/measure_check.h"

#include <array>
#include <cmath>

namespace {

const char* const previousStatement =
    "SELECT dm.meas, dm.meas_dm_id FROM dm_meas dm JOIN cycles c ON dm.cycle_id = c.cycle_id WHERE dm.element_id = %1 "
    "AND c.date_end < (SELECT date_end FROM cycles WHERE cycle_id = %2) AND dm.meas IS NOT NULL ORDER BY c.date_end "
    "DESC LIMIT 1 ";

DMMeasure& mark(BaseMeasure& measure) { return static_cast<DMMeasure&>(measure); }

int validityOf(const BaseMeasure& measure) { return static_cast<const DMMeasure&>(measure).validity; }

int validate(DMMeasure& measure, int positionId, StoredCriteria& criteria)
{
    if (measure.elementId < 0 || positionId < 0)
        return settlementError;
    const PositionNorms norms = criteria.norms(positionId);
    if (!norms.found || std::isinf(norms.settlement))
        return settlementNoNorm;
    const PreviousMeasure previous = criteria.previous(previousStatement, measure.elementId, measure.cycleId);
    bool ok = false;
    const double before = previous.text.toDouble(&ok);
    if (previous.state != PreviousMeasure::Found || !ok)
        return settlementNoPrevious;
    if (!std::isfinite(measure.meas()) || !std::isfinite(before))
        return settlementError;
    // The norm is in centimetres, marks are in metres.
    const double limit = norms.settlement / 100;
    return std::abs(measure.meas() - before) > limit ? settlementExceeded : settlementValid;
}

void run(BaseMeasure& measure, int positionId, StoredCriteria& criteria)
{
    mark(measure).validity = validate(mark(measure), positionId, criteria);
}

QString text(const BaseMeasure& measure)
{
    // "сравнения" is misspelt in the third: users know the text so.
    static const std::array<QString, 6> texts = {
        QStringLiteral("Неизвестно"),          QStringLiteral("Корректно"),
        QStringLiteral("Превышение значения"), QStringLiteral("Нет данных сревнения"),
        QStringLiteral("Не задан критерий"),   QStringLiteral("Неизвестная ошибка"),
    };
    return texts.at(size_t(validityOf(measure)));
}

Verdict verdict(const BaseMeasure& measure)
{
    switch (validityOf(measure)) {
    case settlementValid: return Verdict::Valid;
    case settlementExceeded: return Verdict::Warning;
    default: return Verdict::Error;
    }
}

} // namespace

const MeasureCheck& settlementCheck()
{
    static const MeasureCheck check = {run, text, validityOf, verdict, previousStatement};
    return check;
}
