#include "analysis/profiles/section_wells.h"

#include "session/project_session.h"

#include <cmath>
#include <map>
#include <set>

namespace {

// Wells that stand in several rows are those of several measures.
Statement wellsOf(int cycle, const WellPlace& place)
{
    Statement statement =
        compose("select element_name,x,y,z,h,meas,element_id from ts_elements left join (select element_id, meas from "
                "ts_meas where cycle_id = %1) as ms using (element_id)",
                cycle);
    if (!place.stored.empty()) {
        std::vector<int> ids;
        for (const LineElement& well : place.stored)
            ids.push_back(well.id);
        statement += compose(" where element_id in (%1)", IdList(ids));
    } else if (place.positionId) {
        statement += compose(" where position_id = %1", *place.positionId);
    }
    return statement;
}

double orZero(double value) { return std::isfinite(value) ? value : 0.0; }

TemperatureLog readLog(const QString& stored)
{
    TemperatureProfile profile;
    parseProfile(stored, profile);
    TemperatureLog log = logOf(profile);
    for (auto reading = log.begin(); reading != log.end();) {
        const bool good = std::isfinite(reading->first) && std::isfinite(reading->second);
        reading = good ? std::next(reading) : log.erase(reading);
    }
    return log;
}

bool valueAt(const TemperatureLog& log, double depth, double& value)
{
    const auto found = log.find(depth);
    if (found == log.end())
        return interpolate(log, depth, value);
    value = found->second;
    return true;
}

// The wells of a stored profile, in its order and at its places.
void takePlaces(const std::vector<LineElement>& stored, std::vector<SectionWell>& wells)
{
    std::map<int, SectionWell> byId;
    for (SectionWell& well : wells)
        byId.emplace(well.id, std::move(well));
    wells.clear();
    for (const LineElement& place : stored) {
        const auto found = byId.find(place.id);
        if (found == byId.end())
            continue;
        SectionWell well = found->second;
        well.param = place.param;
        well.dist = place.dist;
        wells.push_back(well);
    }
}

} // namespace

bool loadSectionWells(int cycle, const WellPlace& place, std::vector<SectionWell>& wells)
{
    enum Column { Name, X, Y, Z, H, Meas, Id };
    wells.clear();
    const sql::Result rows = session().run(wellsOf(cycle, place));
    std::set<int> seen;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        SectionWell well;
        well.id = rows.toInt(row, Id);
        bool isX = false, isY = false;
        well.x = rows.toDouble(row, X, &isX);
        well.y = rows.toDouble(row, Y, &isY);
        if (!isX || !isY || !seen.insert(well.id).second)
            continue;
        well.name = rows.getvalue(row, Name);
        well.z = orZero(rows.toDouble(row, Z));
        well.h = orZero(rows.toDouble(row, H));
        well.log = readLog(rows.getvalue(row, Meas));
        wells.push_back(std::move(well));
    }
    if (!place.stored.empty())
        takePlaces(place.stored, wells);
    return rows.isTuples();
}

TemperatureLog differenceOf(const TemperatureLog& base, const TemperatureLog& current)
{
    std::set<double> depths;
    for (const TemperatureLog* log : {&base, &current}) {
        for (const auto& [depth, value] : *log)
            depths.insert(depth);
    }
    TemperatureLog difference;
    for (const double depth : depths) {
        double before = 0.0, now = 0.0;
        if (valueAt(base, depth, before) && valueAt(current, depth, now))
            difference[depth] = now - before;
    }
    return difference;
}

void subtract(const std::vector<SectionWell>& base, std::vector<SectionWell>& current)
{
    std::map<int, const TemperatureLog*> before;
    for (const SectionWell& well : base)
        before[well.id] = &well.log;
    for (SectionWell& well : current) {
        const auto found = before.find(well.id);
        well.log = found == before.end() ? TemperatureLog() : differenceOf(*found->second, well.log);
    }
}
