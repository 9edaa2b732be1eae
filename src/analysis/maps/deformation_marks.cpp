#include "analysis/maps/deformation_marks.h"

#include "session/project_session.h"

#include <cmath>
#include <unordered_map>

namespace {

constexpr double kMillimetres = 1000.0; // of a metre

const PlaceStatements kMarks = {
    "select element_id,element_name,x,y,z,h from dm_elements where position_id = %1",
    "select element_id,element_name,x,y,z,h from dm_elements where x between %1 and %2 and y between %3 and %4"};

Statement baseStatement(int mark, int cycle)
{
    return compose("select meas from dm_meas where element_id = %1 and cycle_id = %2", mark, cycle);
}

Statement currentStatement(int mark, const Epochs& epochs)
{
    if (!epochs.forecast)
        return baseStatement(mark, epochs.current);
    return compose("select meas from dm_predictions_data where element_id = %1 and prediction_id = %2", mark,
                   *epochs.forecast);
}

// Left alone unless there is exactly one row with a number.
bool readElevation(const Statement& statement, double& elevation, bool& several)
{
    const sql::Result rows = session().run(statement);
    bool isNumber = false;
    const double value = rows.ntuples() == 1 ? rows.toDouble(0, 0, &isNumber) : 0.0;
    if (isNumber)
        elevation = value;
    several = several || rows.ntuples() > 1;
    return rows.isTuples();
}

} // namespace

Loaded DeformationMarks::load(const MapPlace& place, const Epochs& epochs, const MapProgress& progress)
{
    *this = DeformationMarks();
    const auto marks = elementsOf(place, kMarks);
    if (!marks)
        return Loaded::Refused;
    DeformationMarks read;
    for (const MapElement& mark : *marks) {
        DeformationRow row;
        row.name = mark.name;
        row.element_id = mark.id;
        row.x = mark.x;
        row.y = mark.y;
        bool several = false;
        if (!readElevation(baseStatement(mark.id, epochs.base), row.base, several)
            || !readElevation(currentStatement(mark.id, epochs), row.current, several))
            return Loaded::Refused;
        row.valid = std::isfinite(row.base) && std::isfinite(row.current);
        if (row.valid)
            row.movement = (row.current - row.base) * kMillimetres;
        if (several)
            read.repeated_ << row.name;
        read.rows.push_back(row);
        if (progress && !progress(int(read.rows.size()), int(marks->size())))
            return Loaded::Stopped;
    }
    *this = std::move(read);
    return Loaded::All;
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
