#include "analysis/profiles/deformation_table.h"

#include "analysis/grading/position_attributes.h"
#include "base/placeholders.h"
#include "base/text.h"

#include <cmath>

namespace {

constexpr int kElevationDecimals = 4;
constexpr int kDecimals = 2;
constexpr int kRelativeDecimals = 6;
const char* const kMissing = "--";

QString orMissing(double value, int decimals)
{
    return std::isfinite(value) ? fixed(value, decimals) : QString(kMissing);
}

} // namespace

QString millimetres(double metres) { return fixed(metres * 1000.0, kDecimals); }

QStringList deformationTitles(const QString& base, const QString& current)
{
    return {"Имя", base, current, "Осадка, мм", "Разность \n осадок, мм", "Расстояние, м", "Отн. разн. \n осадки"};
}

std::vector<DeformationTableRow> deformationRows(const DeformationProfileClass& profile, double limit)
{
    std::vector<DeformationTableRow> rows;
    const DeformationProfilePoint* before = nullptr;
    for (const DeformationProfilePoint& point : profile.points) {
        QStringList cells = {point.name, orMissing(point.meas_base, kElevationDecimals),
                             orMissing(point.meas_current, kElevationDecimals),
                             point.valid ? millimetres(point.delta) : QString(kMissing)};
        const double distance = before ? std::hypot(point.x - before->x, point.y - before->y) : INFINITY;
        const bool isPair = before && before->valid && point.valid;
        // The pair as the profile's figures take it.
        ProfileFigures pair;
        if (isPair)
            pair = computeFigures({{before->x, before->y, true, before->delta}, {point.x, point.y, true, point.delta}});
        cells << (isPair ? millimetres(pair.deltaDiffMax) : QString(kMissing)) << orMissing(distance, kDecimals)
              << (isPair ? fixed(pair.relativeMax, kRelativeDecimals) : QString(kMissing));
        rows.push_back({cells, isOverLimit(point, limit)});
        before = &point;
    }
    return rows;
}

QString largestText(const DeformationProfileClass& profile)
{
    return fill("Максимальная  осадка,мм %1", millimetres(profile.deltaMaxAbs));
}

QString meanText(const DeformationProfileClass& profile)
{
    return fill("Средняя  осадка, мм %1", millimetres(profile.deltaMeanAbs));
}

bool isOverLimit(const DeformationProfilePoint& point, double limit)
{
    return point.valid && std::fabs(point.delta) > limit;
}

double settlementLimit(int positionId) { return loadAttributes(positionId).averageDiff / 100.0; }
