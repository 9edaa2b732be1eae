#include "analysis/grading/position_measures.h"

#include "session/project_session.h"

#include <cmath>

namespace {

double metres(const sql::Result& rows, int row, int column)
{
    bool ok = false;
    const double value = rows.toDouble(row, column, &ok);
    return ok && std::isfinite(value) ? value : PositionAttributes::none;
}

sql::Result read(const Statement& statement, bool* unread)
{
    sql::Result rows = session().run(statement);
    if (unread && !rows.isTuples())
        *unread = true;
    return rows;
}

// Rows of one element stand together: measures beyond the first one are passed over.
template <class Elements>
bool isRepeated(const Elements& elements, int id)
{
    return !elements.empty() && elements.back().id == id;
}

} // namespace

std::vector<MeasuredWell> loadWells(int positionId, int cycle, bool* unread)
{
    const sql::Result rows = read(
        compose("select element_id, element_name, meas from ts_elements left join (select element_id, meas_ts_id, meas "
                "from ts_meas where cycle_id = %2) as mscurr using (element_id) where position_id = %1 "
                "order by element_name, element_id, meas_ts_id",
                positionId, cycle),
        unread);
    std::vector<MeasuredWell> wells;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        if (isRepeated(wells, rows.toInt(row, 0)))
            continue;
        TemperatureProfile profile;
        parseProfile(rows.getvalue(row, 2), profile);
        wells.push_back({rows.toInt(row, 0), rows.getvalue(row, 1), logOf(profile)});
    }
    return wells;
}

std::vector<MeasuredMark> loadMarks(int positionId, int baseCycle, int currentCycle, bool* unread)
{
    enum Column { Id, Name, Base, Current };
    const sql::Result rows = read(
        compose(
            "select element_id, element_name, meas_base, meas_current from dm_elements "
            "left join (select element_id, meas_dm_id as base_id, meas as meas_base from dm_meas where cycle_id = %2) "
            "as msbase using (element_id) "
            "left join (select element_id, meas_dm_id as current_id, meas as meas_current from dm_meas "
            "where cycle_id = %3) as mscurr using (element_id) "
            "where position_id = %1 order by element_name, element_id, base_id, current_id",
            positionId, baseCycle, currentCycle),
        unread);
    std::vector<MeasuredMark> marks;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        if (!isRepeated(marks, rows.toInt(row, Id)))
            marks.push_back(
                {rows.toInt(row, Id), rows.getvalue(row, Name), metres(rows, row, Base), metres(rows, row, Current)});
    }
    return marks;
}

std::vector<MeasuredProfile> loadProfiles(int positionId, int baseCycle, int currentCycle, bool* unread)
{
    enum Column { Id, Name, Element, Param, X, Y, Base, Current };
    const sql::Result rows = read(
        compose(
            "select profile_id, profile_name, element_id, param, x, y, meas_base, meas_current "
            "from deformation_profiles left join deformation_profiles_points using (profile_id) "
            "left join dm_elements using (element_id) "
            "left join (select element_id, meas_dm_id as base_id, meas as meas_base from dm_meas where cycle_id = %2) "
            "as msbase using (element_id) "
            "left join (select element_id, meas_dm_id as current_id, meas as meas_current from dm_meas "
            "where cycle_id = %3) as mscurr using (element_id) "
            "where deformation_profiles.position_id = %1 "
            "order by profile_name, profile_id, param, element_id, base_id, current_id",
            positionId, baseCycle, currentCycle),
        unread);
    std::vector<MeasuredProfile> profiles;
    QString last; // of the mark before: its measures beyond the first one
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        if (!isRepeated(profiles, rows.toInt(row, Id))) {
            profiles.push_back({rows.toInt(row, Id), rows.getvalue(row, Name), {}});
            last.clear();
        }
        const QString place = rows.getvalue(row, Element) + QLatin1Char('@') + rows.getvalue(row, Param);
        if (rows.isNull(row, Element) || place == last)
            continue;
        last = place;
        const double base = metres(rows, row, Base), current = metres(rows, row, Current);
        const bool valid = std::isfinite(base) && std::isfinite(current);
        profiles.back().points.push_back(
            {rows.toDouble(row, X), rows.toDouble(row, Y), valid, valid ? current - base : 0.0});
    }
    return profiles;
}

ElementCounts loadElementCounts(int positionId, bool* unread)
{
    enum Column { Dm, Ggs, Rp, Ts, Tsg, Tss };
    const sql::Result rows = read(compose("select dm_count, ggs_count, rp_count, ts_count, tsg_count, tss_count from "
                                          "positions_counts where position_id=%1",
                                          positionId),
                                  unread);
    return {rows.toInt(0, Dm), rows.toInt(0, Ggs), rows.toInt(0, Rp),
            rows.toInt(0, Ts), rows.toInt(0, Tsg), rows.toInt(0, Tss)};
}

PositionGrades gradedPosition(int positionId, int baseCycle, int currentCycle)
{
    PositionGrades grades;
    grades.positionId = positionId;
    grades.baseCycle = baseCycle;
    grades.currentCycle = currentCycle;
    grades.attributes = loadAttributes(positionId);
    grades.unread = grades.attributes.unread;
    bool* unread = &grades.unread;
    grades.elements = loadElementCounts(positionId, unread);
    gradePosition({loadWells(positionId, currentCycle, unread), loadMarks(positionId, baseCycle, currentCycle, unread),
                   loadProfiles(positionId, baseCycle, currentCycle, unread)},
                  grades);
    return grades;
}

QVector<ListedPosition> listPositions()
{
    enum Column { ObjectId, Object, SubobjectId, Subobject, PositionId, Position };
    const sql::Result rows = session().run(
        "select object_id, object, subobject_id, subobject, position_id,position from positions left join subobjects "
        "using (subobject_id) left join objects using (object_id) order by objects.appearence, subobjects.appearence, "
        "positions.appearence");
    QVector<ListedPosition> positions;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        positions.append({rows.getvalue(row, Object), rows.getvalue(row, Subobject), rows.getvalue(row, Position),
                          rows.isNull(row, PositionId) ? -1 : rows.toInt(row, PositionId)});
    return positions;
}
