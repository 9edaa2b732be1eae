#include "elements/list/list_statement.h"

#include "base/placeholders.h"

namespace {

const QString fileColumns = QStringLiteral(", coalesce (photoexist,0) as photoexist,  coalesce(abrisexist, 0) as "
                                           "abrisexist,  coalesce(geocolexist, 0) as geocolexist ");

const QString fileJoins = QStringLiteral(
    " left join(select count(file_id) as photoexist, element_id from  %1 where file_type = 'photo' group by "
    "element_id) as PHOTO_SQ using (element_id)  left join(select count(file_id) as abrisexist, element_id from  %1 "
    "where file_type = 'abris' group by element_id) as ABRIS_SQ using (element_id)  left join(select count(file_id) as "
    "geocolexist, element_id from %1 where file_type = 'geocol' group by element_id) as GEOCOL_SQ using (element_id) ");

const QString measured = QStringLiteral(
    "select element_id,element_name,type_id,state_id,position_id,x,y,z,h,mcycles %6 from  (select element_id, "
    "element_name, type_id, state_id, position_id, x, y, z, h, STRING_AGG(cycle_id::varchar(255), ',') as mcycles  "
    "from %3 left join(select %4, element_id, cycle_id from %5 %1 order by date) as SQ using (element_id) group by "
    "element_id) as CE  left join positions using (position_id)  left join subobjects using (subobject_id)  left join "
    "objects using (object_id) left join projects using (project_id) %7 %2  order by objects.appearence, "
    "subobjects.appearence, positions.appearence");

const QString unmeasured = QStringLiteral(
    "select element_id,element_name,type_id,state_id,position_id,x,y,z,h,null as mcycles %3 from  %2 left join "
    "positions using (position_id)  left join subobjects using (subobject_id)  left join objects using (object_id) "
    "left join projects using (project_id) %4 %1  order by objects.appearence, subobjects.appearence, "
    "positions.appearence");

} // namespace

QString listStatement(const ListFamily& family, const HierarchyPlace& place, int cycleId)
{
    const Family& tables = family.tables();
    const bool hasFiles = !tables.files.isEmpty();
    const QString columns = hasFiles ? fileColumns : QString();
    const QString joins = hasFiles ? fill(fileJoins, tables.files) : QString();
    if (family.measureId.isEmpty())
        return fill(unmeasured, scopeClause(place), tables.elements, columns, joins);
    const QString cycle = cycleId == -1 ? QString() : fill(" where cycle_id=%1 ", cycleId);
    return fill(measured, cycle, scopeClause(place), tables.elements, family.measureId, tables.measures, columns,
                joins);
}
