#include "analysis/profiles/profile_record.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "session/project_session.h"

#include <cmath>
#include <set>

namespace {

constexpr int kDecimals = 6;

double number(const sql::Result& rows, int row, int column, double otherwise)
{
    bool ok = false;
    const double value = rows.toDouble(row, column, &ok);
    return ok && std::isfinite(value) ? value : otherwise;
}

SectionView viewOf(const sql::Result& row)
{
    enum Column { Id, Position, Name, OrigX, OrigY, HScale, VScale, Step, ByElevation, ToFooter };
    SectionView view;
    view.origX = number(row, 0, OrigX, view.origX);
    view.origY = number(row, 0, OrigY, view.origY);
    view.horizontal = number(row, 0, HScale, view.horizontal);
    view.vertical = number(row, 0, VScale, view.vertical);
    view.picketStep = number(row, 0, Step, view.picketStep);
    view.byElevation = row.getvalue(0, ByElevation) == QLatin1String("1");
    view.toFooter = row.getvalue(0, ToFooter) == QLatin1String("1");
    return view;
}

// Of a row that begins with id, name, x, y, z, h.
bool readElement(const sql::Result& rows, int row, LineElement& element)
{
    enum Column { Id, Name, X, Y, Z, H };
    bool known[3] = {false, false, false};
    element.id = rows.toInt(row, Id, &known[0]);
    element.name = rows.getvalue(row, Name);
    element.x = rows.toDouble(row, X, &known[1]);
    element.y = rows.toDouble(row, Y, &known[2]);
    element.z = number(rows, row, Z, 0.0);
    element.h = number(rows, row, H, 0.0);
    return known[0] && known[1] && known[2] && std::isfinite(element.x) && std::isfinite(element.y);
}

// What stands between the brackets of "LINESTRING(...)"; of a row without a
// geometry the line through its elements.
QString lineOf(const ProfileFamily& family, const ProfileRecord& record)
{
    const QString stored = session().run(compose(family.line, record.id)).getvalue(0, 0);
    const int open = stored.indexOf(QLatin1Char('('));
    if (open >= 0)
        return stored.mid(open + 1, stored.lastIndexOf(QLatin1Char(')')) - open - 1);
    std::vector<LineVertex> places;
    for (const LineElement& point : record.points)
        places.push_back({point.x, point.y, 0.0});
    return ProfileLine(places, false).text();
}

// position, name, of a temperature profile its view; then the key of a row that is there, then the line.
QVector<StatementValue> valuesOf(const ProfileFamily& family, const ProfileRecord& record, bool withKey)
{
    QVector<StatementValue> values = {record.positionId, record.name};
    if (family.hasView) {
        const SectionView& view = record.view;
        for (const double value : {view.origX, view.origY, view.horizontal, view.vertical, view.picketStep})
            values << Numeral(value, kDecimals);
        values << (view.byElevation ? 1 : 0) << (view.toFooter ? 1 : 0);
    }
    if (withKey)
        values << record.id;
    values << record.lineText;
    return values;
}

Statement pointsStatement(const ProfileFamily& family, const ProfileRecord& record)
{
    QVector<Statement> rows;
    for (const LineElement& point : record.points)
        rows << compose("(%1,%2,%3,%4)", record.id, point.id, Numeral(point.param, kDecimals),
                        Numeral(point.dist, kDecimals));
    return family.insertPoints + joined(rows, ",");
}

bool isStored(const ProfileFamily& family, const ProfileRecord& record)
{
    return record.id >= 0 && session().run(compose(family.exists, record.id, record.positionId)).hasRow();
}

bool told(const sql::Result& result, bool good, QString* problem)
{
    if (!good && problem)
        *problem = result.errorMessage();
    return good;
}

// One statement: all of it holds, or nothing of it does.
bool updateRow(const ProfileFamily& family, const ProfileRecord& record, QString* problem)
{
    Statement whole = "with emptied as (" + compose(family.removePoints, record.id);
    const Statement row = compose(family.update, valuesOf(family, record, true));
    whole += record.points.empty() ? ") " + row : "), kept as (" + row + ") " + pointsStatement(family, record);
    const sql::Result result = session().run(whole);
    return told(result, result.isCommand(), problem);
}

bool insertRow(const ProfileFamily& family, ProfileRecord& record, QString* problem)
{
    const sql::Result row = session().run(compose(family.insert, valuesOf(family, record, false)));
    if (!told(row, row.hasRow(), problem))
        return false;
    record.id = row.toInt(0, 0);
    if (record.points.empty())
        return true;
    const sql::Result points = session().run(pointsStatement(family, record));
    if (told(points, points.isCommand(), problem))
        return true;
    session().run(compose(family.remove, record.id));
    record.id = -1;
    return false;
}

} // namespace

const ProfileFamily& temperatureProfiles()
{
    static const ProfileFamily family = {
        "select profile_id,position_id,profile_name,origx,origy,hscale,vscale,pkstep,byelevation,tofooter from "
        "termal_profiles where profile_id=%1 ",
        "select element_id, element_name, x, y, z, h, param, dist from termal_profiles_points left join "
        "termal_profiles using(profile_id) left join ts_elements using(element_id) where profile_id = %1 order by "
        "param ",
        "select profile_id from termal_profiles where profile_id=%1 and position_id=%2",
        "delete from  termal_profiles where profile_id = %1",
        "insert into termal_profiles (position_id,profile_name,origx,origy,hscale,vscale,pkstep,byelevation,tofooter,"
        "geom)  values(%1, '%2', '%3', '%4', '%5', '%6', '%7', %8, %9, ST_GeomFromText('LINESTRING(%10)', 9999)) "
        "returning profile_id",
        "update termal_profiles set (position_id,profile_name,origx,origy,hscale,vscale,pkstep,byelevation,tofooter,"
        "geom)= (%1,'%2','%3','%4','%5','%6','%7',%8,%9,ST_GeomFromText('LINESTRING(%11)',9999)) where "
        "profile_id=%10",
        "insert into termal_profiles_points(profile_id, element_id, param, dist) values ",
        "delete from termal_profiles_points where profile_id = %1",
        "select ST_AsText(geom) from termal_profiles where profile_id=%1",
        "select profile_id, profile_name from termal_profiles where position_id=%1 order by profile_id",
        "select element_id, element_name, x, y, z, h from ts_elements where ",
        true,
    };
    return family;
}

const ProfileFamily& deformationProfiles()
{
    static const ProfileFamily family = {
        "select profile_id,position_id,profile_name from deformation_profiles where profile_id=%1 ",
        "select element_id, element_name, x, y, z, h, param, dist from deformation_profiles_points left join "
        "deformation_profiles using(profile_id) left join dm_elements using(element_id) where profile_id = %1 order "
        "by param ",
        "select profile_id from deformation_profiles where profile_id=%1 and position_id=%2",
        "delete from  deformation_profiles where profile_id = %1",
        "insert into deformation_profiles (position_id,profile_name,geom) values "
        "(%1,'%2',ST_GeomFromText('LINESTRING(%3)',9999)) returning profile_id",
        "update deformation_profiles set (position_id,profile_name,geom) = "
        "(%1,'%2',ST_GeomFromText('LINESTRING(%4)',9999)) where profile_id=%3",
        "insert into deformation_profiles_points(profile_id, element_id, param, dist) values ",
        "delete from deformation_profiles_points where profile_id = %1",
        "select ST_AsText(geom) from deformation_profiles where profile_id=%1",
        "select profile_id, profile_name from deformation_profiles where position_id=%1 order by profile_id",
        "select element_id, element_name, x, y, z, h from dm_elements where ",
        false,
    };
    return family;
}

bool loadProfile(const ProfileFamily& family, int id, ProfileRecord& record, int* lost)
{
    enum Column { Param = 6, Dist };
    const sql::Result row = session().run(compose(family.read, id));
    if (!row.hasRow())
        return false;
    record = ProfileRecord();
    record.id = id;
    record.positionId = row.toInt(0, 1);
    record.name = row.getvalue(0, 2);
    if (family.hasView)
        record.view = viewOf(row);
    const sql::Result rows = session().run(compose(family.points, id));
    int gone = 0;
    for (int i = 0; rows.isTuples() && i < rows.ntuples(); ++i) {
        LineElement element;
        if (!readElement(rows, i, element)) {
            ++gone;
            continue;
        }
        element.param = number(rows, i, Param, 0.0);
        element.dist = number(rows, i, Dist, 0.0);
        record.points.push_back(element);
    }
    record.lineText = lineOf(family, record);
    if (lost)
        *lost = gone;
    return rows.isTuples();
}

bool storeProfile(const ProfileFamily& family, ProfileRecord& record, QString* problem)
{
    return isStored(family, record) ? updateRow(family, record, problem) : insertRow(family, record, problem);
}

std::vector<NamedProfile> positionProfiles(const ProfileFamily& family, int positionId)
{
    std::vector<NamedProfile> profiles;
    const sql::Result rows = session().run(compose(family.list, positionId));
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        profiles.push_back({rows.toInt(row, 0), rows.getvalue(row, 1)});
    return profiles;
}

QString presetName(const ProfileFamily& family, int positionId)
{
    std::set<QString> taken;
    for (const NamedProfile& profile : positionProfiles(family, positionId))
        taken.insert(profile.name);
    int count = int(taken.size());
    QString name;
    do
        name = fill("Профиль %1", ++count);
    while (taken.count(name) > 0);
    return name;
}

bool loadLineElements(const ProfileFamily& family, const ProfileLine& line, double tolerance,
                      std::optional<int> positionId, std::vector<LineElement>& elements)
{
    elements.clear();
    if (!(line.length() > 0.0))
        return true;
    Statement statement = family.elements + boxCondition(line, tolerance);
    if (positionId)
        statement += compose(" and position_id =%1", *positionId);
    const sql::Result rows = session().run(statement);
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        LineElement element;
        if (readElement(rows, row, element))
            elements.push_back(element);
    }
    return rows.isTuples();
}
