#include "analysis/grading/attribute_texts.h"

#include "base/placeholders.h"
#include "base/text.h"

#include <cmath>
#include <numeric>

namespace {

constexpr int kDepth = 1, kTemperature = 2, kCentimetres = 2, kRatio = 5;

QString depthOr(double depth) { return std::isfinite(depth) ? fixed(depth, kDepth) : QStringLiteral(" -- "); }

QString limitOr(double limit) { return std::isfinite(limit) ? general(limit) : QStringLiteral("inf"); }

QString centimetres(double limit) { return numberOrDashes(limit, kCentimetres); }
QString ratio(double limit) { return numberOrDashes(limit, kRatio); }

bool isNone(const GradeCounts& counts) { return std::accumulate(counts.begin(), counts.end(), 0) == 0; }

} // namespace

QString numberOrDashes(double number, int decimals, double factor)
{
    return std::isfinite(number) ? fixed(number * factor, decimals) : QStringLiteral("--");
}

QString depthText(const PositionAttributes& attributes)
{
    if (std::isfinite(attributes.deepMin) && attributes.deepMin == attributes.deepMax)
        return fill("Глубина %1 м.", depthOr(attributes.deepMin));
    return fill("Интервал от %1м. до %2м.", depthOr(attributes.deepMin), depthOr(attributes.deepMax));
}

QString settlementText(const PositionAttributes& attributes)
{
    return fill("%1 см", centimetres(attributes.averageDiff));
}

QString attributeIdText(const PositionAttributes& attributes)
{
    return fill("ID: %1", attributes.exist ? QString::number(attributes.id) : QStringLiteral("--"));
}

QString thermalRange(Grade grade, const PositionAttributes& attributes)
{
    switch (grade) {
    case Grade::Normal: return fill("Менее %1 ", numberOrDashes(attributes.temperatureH, kTemperature));
    case Grade::Limited: return fill("От %1 ", numberOrDashes(attributes.temperatureH, kTemperature));
    case Grade::LimitedII:
    case Grade::Fail: return fill("От %1 ", numberOrDashes(attributes.temperatureBf, kTemperature));
    default: return {};
    }
}

QString settlementRange(Grade grade, const PositionAttributes& attributes)
{
    const QString normal = centimetres(attributes.averageDiff), limited = centimetres(1.1 * attributes.averageDiff);
    switch (grade) {
    case Grade::Normal: return fill("менее %1 см", normal);
    case Grade::Limited: return fill("от %1 см до %2 см", normal, limited);
    case Grade::Fail: return fill("более %1 см", limited);
    default: return {};
    }
}

QString relativeRange(Grade grade, const PositionAttributes& attributes)
{
    const double limit = attributes.relativeDiff;
    const QString normal = ratio(kProfileNormal * limit), limited = ratio(kProfileLimited * limit),
                  limitedII = ratio(kProfileLimitedII * limit);
    switch (grade) {
    case Grade::Normal: return fill("менее %1 ", normal);
    case Grade::Limited: return fill("от %1 до  %2 ", normal, limited);
    case Grade::LimitedII: return fill("от %1 до  %2 ", limited, limitedII);
    case Grade::Fail: return fill("более %1 ", limitedII);
    default: return {};
    }
}

QString normText(const Norm& norm)
{
    return QStringList{norm.code, norm.description, limitOr(norm.relativeDiff), limitOr(norm.averageDiff),
                       limitOr(norm.roll)}
        .join(QStringLiteral(" - "));
}

QString thermalRemark(const PositionAttributes& attributes, const GradeCounts& wells)
{
    if (!attributes.exist)
        return QStringLiteral("Атрибуты позиции не заданы");
    if (isNone(wells))
        return QStringLiteral("В позиции нет термоскважин");
    if (std::isinf(attributes.temperatureH))
        return QStringLiteral("Не задана температура твёрдого состояния Th");
    if (std::isinf(attributes.deepMin) || attributes.deepMin > attributes.deepMax)
        return QStringLiteral("Не задан интервал глубин");
    return {};
}

QString settlementRemark(const PositionAttributes& attributes, const GradeCounts& marks)
{
    if (!attributes.exist)
        return QStringLiteral("Атрибуты позиции не заданы");
    if (isNone(marks))
        return QStringLiteral("В позиции нет деформационных марок");
    return std::isinf(attributes.averageDiff) ? QStringLiteral("Не задана предельная осадка") : QString();
}

QString relativeRemark(const PositionAttributes& attributes, const GradeCounts& profiles)
{
    if (!attributes.exist)
        return QStringLiteral("Атрибуты позиции не заданы");
    if (isNone(profiles))
        return QStringLiteral("В позиции нет деформационных профилей");
    if (std::isinf(attributes.relativeDiff) || attributes.relativeDiff == 0.0)
        return QStringLiteral("Не задана предельная относительная осадка");
    return {};
}
