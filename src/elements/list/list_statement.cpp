#include "elements/list/list_statement.h"

namespace {

const char* const fileColumns = ", coalesce (photoexist,0) as photoexist,  coalesce(abrisexist, 0) as "
                                "abrisexist,  coalesce(geocolexist, 0) as geocolexist ";

const char* const fileJoins =
    " left join(select count(file_id) as photoexist, element_id from  %1 where file_type = 'photo' group by "
    "element_id) as PHOTO_SQ using (element_id)  left join(select count(file_id) as abrisexist, element_id from  %1 "
    "where file_type = 'abris' group by element_id) as ABRIS_SQ using (element_id)  left join(select count(file_id) as "
    "geocolexist, element_id from %1 where file_type = 'geocol' group by element_id) as GEOCOL_SQ using (element_id) ";

const char* const measured =
    "select element_id,element_name,type_id,state_id,position_id,x,y,z,h,mcycles %6 from  (select element_id, "
    "element_name, type_id, state_id, position_id, x, y, z, h, STRING_AGG(cycle_id::varchar(255), ',') as mcycles  "
    "from %3 left join(select %4, element_id, cycle_id from %5 %1 order by date) as SQ using (element_id) group by "
    "element_id) as CE  left join positions using (position_id)  left join subobjects using (subobject_id)  left join "
    "objects using (object_id) left join projects using (project_id) %7 %2  order by objects.appearence, "
    "subobjects.appearence, positions.appearence";

const char* const unmeasured =
    "select element_id,element_name,type_id,state_id,position_id,x,y,z,h,null as mcycles %3 from  %2 left join "
    "positions using (position_id)  left join subobjects using (subobject_id)  left join objects using (object_id) "
    "left join projects using (project_id) %4 %1  order by objects.appearence, subobjects.appearence, "
    "positions.appearence";

} // namespace

Statement listStatement(const ListFamily& family, const HierarchyPlace& place, int cycleId)
{
    const Family& tables = family.tables();
    const bool hasFiles = !tables.files.isEmpty();
    const Statement columns = hasFiles ? Statement(fileColumns) : Statement();
    const Statement joins = hasFiles ? compose(fileJoins, Identifier(tables.files)) : Statement();
    if (family.measureId.isEmpty())
        return compose(unmeasured, scopeClause(place), Identifier(tables.elements), columns, joins);
    const Statement cycle = cycleId == -1 ? Statement() : compose(" where cycle_id=%1 ", cycleId);
    return compose(measured, cycle, scopeClause(place), Identifier(tables.elements), Identifier(family.measureId),
                   Identifier(tables.measures), columns, joins);
}
