#include "analysis/maps/point_remarks.h"

#include "analysis/maps/build_messages.h"
#include "geometry/tolerance_grid.h"

#include <cmath>
#include <map>

namespace {

constexpr size_t kFewest = 3;
constexpr size_t kMostPlaces = 5;

using Numbers = std::vector<int>;

QString namesOf(const std::vector<MapPoint>& points, const Numbers& numbers)
{
    QStringList names;
    for (const MapPoint& point : points)
        names << point.name;
    return pointNames(numbers, names);
}

// The first point of each place that is shared, with all that stand there; a
// place of one value is no matter.
std::map<int, Numbers> sharedPlaces(const std::vector<MapPoint>& points, const std::vector<size_t>& used)
{
    geometry::ToleranceGrid places(points.size());
    std::map<int, Numbers> shared;
    for (size_t number : used) {
        const geometry::Point3 place{points[number].x, points[number].y, 0.0};
        int first = -1;
        places.chainsNear(place, [&](std::int32_t head) {
            for (std::int32_t i = head; i >= 0 && first < 0; i = places.next(i)) {
                if (geometry::planDistance({points[size_t(i)].x, points[size_t(i)].y, 0.0}, place) < geometry::GEOM_TOL)
                    first = i;
            }
        });
        if (first < 0)
            places.add(place, std::int32_t(number));
        else if (!(std::fabs(points[size_t(first)].value - points[number].value) < geometry::GEOM_TOL))
            shared.emplace(first, Numbers{first}).first->second.push_back(int(number));
    }
    return shared;
}

} // namespace

PointRemarks remarksOn(const std::vector<MapPoint>& points, const std::vector<size_t>& used)
{
    PointRemarks remarks;
    QStringList lines;
    if (used.size() < kFewest) {
        remarks.marked.insert(used.begin(), used.end());
        lines << (used.empty() ? QStringLiteral("Не выбрано ни одной точки со значением.")
                               : QStringLiteral("Выбрано меньше трёх точек: %1.")
                                     .arg(namesOf(points, Numbers(used.begin(), used.end()))));
    }
    QStringList places;
    const std::map<int, Numbers> shared = sharedPlaces(points, used);
    for (const auto& [first, numbers] : shared) {
        remarks.marked.insert(numbers.begin(), numbers.end());
        if (places.size() < int(kMostPlaces))
            places << namesOf(points, numbers);
    }
    if (shared.size() > kMostPlaces)
        places << QStringLiteral("и ещё мест: %1").arg(shared.size() - kMostPlaces);
    if (!shared.empty())
        lines << QStringLiteral("В одном месте с разными значениями (карта возьмёт первое): %1.")
                     .arg(places.join(QStringLiteral("; ")));
    remarks.text = lines.join(QLatin1Char('\n'));
    return remarks;
}
