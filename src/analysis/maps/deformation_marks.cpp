#include "analysis/maps/deformation_marks.h"

#include "analysis/maps/two_states.h"

#include <cmath>
#include <unordered_map>

namespace {

constexpr double kMillimetres = 1000.0; // of a metre

const PlaceStatements kMarks = {
    "select element_id,element_name,x,y,z,h from dm_elements where position_id = %1",
    "select element_id,element_name,x,y,z,h from dm_elements where x between %1 and %2 and y between %3 and %4"};

// For readTwoStates(), in the place of one mark.
Statement ofCycle(int cycle)
{
    return compose("select meas from dm_meas where element_id = %1 and cycle_id = %2", kElementInTurn, cycle);
}

Statement ofForecast(int forecast)
{
    return compose("select meas from dm_predictions_data where element_id = %1 and prediction_id = %2", kElementInTurn,
                   forecast);
}

// Missing unless there is exactly one row with a number.
double elevationOf(const ElementRows& rows)
{
    bool isNumber = false;
    const double elevation = rows.count() == 1 ? rows.real(0, 0, &isNumber) : 0.0;
    return isNumber ? elevation : DeformationRow::none;
}

DeformationRow rowOf(const MapElement& mark, const ElementRows& base, const ElementRows& current)
{
    DeformationRow row;
    row.name = mark.name;
    row.element_id = mark.id;
    row.x = mark.x;
    row.y = mark.y;
    row.base = elevationOf(base);
    row.current = elevationOf(current);
    row.valid = std::isfinite(row.base) && std::isfinite(row.current);
    if (row.valid)
        row.movement = (row.current - row.base) * kMillimetres;
    return row;
}

} // namespace

Loaded DeformationMarks::load(const MapPlace& place, const Epochs& epochs, const MapProgress& progress)
{
    *this = DeformationMarks();
    const auto marks = elementsOf(place, kMarks);
    if (!marks)
        return Loaded::Refused;
    DeformationMarks read;
    const auto take = [&read](const MapElement& mark, const ElementRows& base, const ElementRows& current) {
        read.rows.push_back(rowOf(mark, base, current));
        if (base.count() > 1 || current.count() > 1)
            read.repeated_ << mark.name;
    };
    const Statement current = epochs.forecast ? ofForecast(*epochs.forecast) : ofCycle(epochs.current);
    const Loaded loaded = readTwoStates(*marks, ofCycle(epochs.base), current, take, progress);
    if (loaded == Loaded::All)
        *this = std::move(read);
    return loaded;
}

// Marks go into squares as wide as the distance; partners stand in the same or
// in a neighbouring one, and a square holds few marks that are no partners.
std::set<size_t> degenerateMarks(const std::vector<DeformationRow>& rows)
{
    // Doubles of large coordinates are coarse: 0.1 m there may read as a hair less.
    constexpr double limit = DEGENERATE_DISTANCE - geometry::GEOM_TOL;
    const auto square = [](double v) { return qint64(std::floor(v / DEGENERATE_DISTANCE)); };
    const auto key = [](qint64 x, qint64 y) { return quint64(x) * 0x9E3779B97F4A7C15ULL ^ quint64(y); };
    std::unordered_map<quint64, std::vector<size_t>> squares;
    for (size_t i = 0; i < rows.size(); ++i) {
        if (std::isfinite(rows[i].x) && std::isfinite(rows[i].y))
            squares[key(square(rows[i].x), square(rows[i].y))].push_back(i);
    }
    const auto hasPartner = [&](size_t i) {
        for (qint64 x = square(rows[i].x) - 1; x <= square(rows[i].x) + 1; ++x) {
            for (qint64 y = square(rows[i].y) - 1; y <= square(rows[i].y) + 1; ++y) {
                const auto found = squares.find(key(x, y));
                if (found == squares.end())
                    continue;
                for (const size_t other : found->second) {
                    if (other != i && std::hypot(rows[other].x - rows[i].x, rows[other].y - rows[i].y) < limit)
                        return true;
                }
            }
        }
        return false;
    };
    std::set<size_t> found;
    for (const auto& [place, members] : squares) {
        for (const size_t member : members) {
            if (hasPartner(member))
                found.insert(member);
        }
    }
    return found;
}
