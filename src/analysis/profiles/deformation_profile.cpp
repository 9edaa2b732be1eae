#include "analysis/profiles/deformation_profile.h"

#include "session/project_session.h"

#include <cmath>
#include <set>

namespace {

double metres(const sql::Result& rows, int row, int column)
{
    bool ok = false;
    const double value = rows.toDouble(row, column, &ok);
    return ok && std::isfinite(value) ? value : INFINITY;
}

double orZero(double value) { return std::isfinite(value) ? value : 0.0; }

void noteRepeated(const QString& name, QStringList& names)
{
    if (!names.contains(name))
        names << name;
}

void takeMeasures(DeformationProfilePoint& point, double base, double current)
{
    point.meas_base = base;
    point.meas_current = current;
    point.valid = std::isfinite(base) && std::isfinite(current);
    point.delta = point.valid ? current - base : 0.0;
}

const char* storedStatement(bool isPrediction)
{
    return isPrediction
        ? "select element_id, element_name, x, y, z, h, meas_base, meas_current, meas_current - meas_base as delta, "
          "param, dist from deformation_profiles_points left join deformation_profiles using(profile_id) left join "
          "dm_elements using(element_id) left join(select element_id, meas as meas_base from dm_meas where cycle_id = "
          "%1) as msbase using (element_id) left join(select element_id, meas as meas_current from "
          "dm_predictions_data where prediction_id = %2) as mscurr using (element_id) where profile_id = %3 order by "
          "param "
        : "select element_id, element_name, x, y, z, h, meas_base, meas_current, meas_current - meas_base as delta, "
          "param, dist from deformation_profiles_points left join deformation_profiles using(profile_id) left join "
          "dm_elements using(element_id) left join(select element_id, meas as meas_base from dm_meas where cycle_id = "
          "%1) as msbase using (element_id) left join(select element_id, meas as meas_current from dm_meas where "
          "cycle_id = %2) as mscurr using (element_id) where profile_id = %3 order by param ";
}

const char* lineStatement(bool isPrediction)
{
    return isPrediction
        ? "select element_name,element_id,x,y,z,h,meas_base,meas_current from dm_elements left join (select "
          "element_id, meas as meas_base from dm_meas where cycle_id = %1) as msbase using (element_id)left join "
          "(select element_id, meas as meas_current from dm_predictions_data where prediction_id = %2) as mscurr "
          "using (element_id)where "
        : "select element_name,element_id,x,y,z,h,meas_base,meas_current from dm_elements left join (select "
          "element_id, meas as meas_base from dm_meas where cycle_id = %1) as msbase using (element_id)left join "
          "(select element_id, meas as meas_current from dm_meas where cycle_id = %2) as mscurr using "
          "(element_id)where ";
}

} // namespace

bool DeformationProfileClass::load(int profileId, const MovementRange& range, int* lost)
{
    *this = DeformationProfileClass();
    const sql::Result head = session().run(compose(deformationProfiles().read, profileId));
    if (!head.hasRow())
        return false;
    id = profileId;
    positionId = head.toInt(0, 1);
    name = head.getvalue(0, 2);

    enum Column { Id, Name, X, Y, Z, H, Base, Current, Delta, Param, Dist };
    const sql::Result rows =
        session().run(compose(storedStatement(range.isPrediction), range.baseCycle, range.current, profileId));
    std::set<std::pair<int, double>> seen;
    int gone = 0;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        DeformationProfilePoint point;
        bool isX = false, isY = false;
        point.id = rows.toInt(row, Id);
        point.name = rows.getvalue(row, Name);
        point.x = rows.toDouble(row, X, &isX);
        point.y = rows.toDouble(row, Y, &isY);
        point.param = orZero(rows.toDouble(row, Param));
        if (!seen.insert({point.id, point.param}).second) {
            noteRepeated(point.name, repeated);
            continue;
        }
        if (!isX || !isY) {
            ++gone;
            continue;
        }
        point.z = orZero(rows.toDouble(row, Z));
        point.h = orZero(rows.toDouble(row, H));
        point.dist = orZero(rows.toDouble(row, Dist));
        length = std::max(length, point.dist);
        takeMeasures(point, metres(rows, row, Base), metres(rows, row, Current));
        points.push_back(point);
    }
    if (lost)
        *lost = gone;
    computeFigures();
    return rows.isTuples();
}

bool DeformationProfileClass::load(const ProfileLine& line, double tolerance, std::optional<int> position,
                                   const MovementRange& range)
{
    *this = DeformationProfileClass();
    length = line.length();
    if (!(length > 0.0))
        return true;
    enum Column { Name, Id, X, Y, Z, H, Base, Current };
    Statement statement = compose(lineStatement(range.isPrediction), range.baseCycle, range.current);
    statement += boxCondition(line, tolerance);
    if (position)
        statement += compose(" and position_id =%1", *position);
    const sql::Result rows = session().run(statement);
    std::set<int> seen;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        DeformationProfilePoint point;
        point.id = rows.toInt(row, Id);
        point.name = rows.getvalue(row, Name);
        point.x = rows.toDouble(row, X);
        point.y = rows.toDouble(row, Y);
        if (!seen.insert(point.id).second) {
            if (line.closest(point.x, point.y).offset < tolerance)
                noteRepeated(point.name, repeated);
            continue;
        }
        point.z = orZero(rows.toDouble(row, Z));
        point.h = orZero(rows.toDouble(row, H));
        takeMeasures(point, metres(rows, row, Base), metres(rows, row, Current));
        points.push_back(point);
    }
    keepCaught(points, line, tolerance);
    computeFigures();
    return rows.isTuples();
}

void DeformationProfileClass::computeFigures()
{
    std::vector<ProfilePoint> plain;
    for (const DeformationProfilePoint& point : points)
        plain.push_back({point.x, point.y, point.valid, point.delta});
    static_cast<ProfileFigures&>(*this) = ::computeFigures(plain);
}

bool DeformationProfileClass::isMeasured() const
{
    return std::any_of(points.begin(), points.end(), [](const DeformationProfilePoint& point) { return point.valid; });
}
