#include "reports/templates/scoped_elements.h"

#include <array>

namespace {

constexpr int levelCount = 4;
using PerLevel = std::array<const char*, levelCount>;

const std::array<const char*, levelCount> kLevels = {"projects", "objects", "subobjects", "positions"};

// One row a query, in the order of ElementQuery: project, object, subobject, position.
const std::array<PerLevel, 4> kStatements = {{
    {{
        "select element_id,element_name, position from %2 left join positions using (position_id) left join "
        "subobjects using (subobject_id) left join objects using (object_id) left join projects using (project_id) "
        "where project_id = %1 order by objects.appearence,subobjects.appearence,positions.appearence, element_name; ",
        "select element_id,element_name, position from %2 left join positions using (position_id) left join "
        "subobjects using (subobject_id) left join objects using (object_id) where object_id = %1 order by "
        "subobjects.appearence,positions.appearence, element_name; ",
        "select element_id,element_name, position from %2 left join positions using (position_id) left join "
        "subobjects using (subobject_id) where subobject_id = %1 order by positions.appearence, element_name; ",
        "select element_id,element_name, position from %2 left join positions using (position_id) where "
        "position_id = %1 order by position, element_name; ",
    }},
    {{
        "select element_id,element_name, position, temperature_h from %2 left join positions using (position_id) left "
        "join positions_attributes using (position_id) left join subobjects using (subobject_id) left join objects "
        "using (object_id) left join projects using (project_id) where project_id = %1 order by "
        "objects.appearence,subobjects.appearence,positions.appearence, element_name; ",
        "select element_id,element_name, position, temperature_h from %2 left join positions using (position_id) left "
        "join positions_attributes using (position_id) left join subobjects using (subobject_id) left join objects "
        "using (object_id) where object_id = %1 order by subobjects.appearence,positions.appearence, element_name; ",
        "select element_id,element_name, position, temperature_h from %2 left join positions using (position_id) left "
        "join positions_attributes using (position_id) left join subobjects using (subobject_id) where "
        "subobject_id = %1 order by positions.appearence, element_name; ",
        "select element_id,element_name, position, temperature_h from %2 left join positions using (position_id) left "
        "join positions_attributes using (position_id) where position_id = %1 order by position, element_name; ",
    }},
    {{
        "select element_id, position, element_name,(select name from %3 where %3.type_id = %2.type_id) as type, "
        "(select note from states where states.state_id = %2.state_id) as state, y, x, ST_Y(geom) as b, ST_x(geom) as "
        "l, z, h from %2 left join positions using (position_id) left join subobjects using (subobject_id) left join "
        "objects using (object_id) left join projects using (project_id) where project_id = %1 order by "
        "objects.appearence,subobjects.appearence,positions.appearence, element_name; ",
        "select element_id, position, element_name,(select name from %3 where %3.type_id = %2.type_id) as type, "
        "(select note from states where states.state_id = %2.state_id) as state, y, x, ST_Y(geom) as b, ST_x(geom) as "
        "l, z, h from %2 left join positions using (position_id) left join subobjects using (subobject_id) left join "
        "objects using (object_id) where object_id = %1 order by subobjects.appearence,positions.appearence, "
        "element_name; ",
        "select element_id, position, element_name,(select name from %3 where %3.type_id = %2.type_id) as type, "
        "(select note from states where states.state_id = %2.state_id) as state, y, x, ST_Y(geom) as b, ST_x(geom) as "
        "l, z, h from %2 left join positions using (position_id) left join subobjects using (subobject_id) where "
        "subobject_id = %1 order by positions.appearence, element_name; ",
        "select element_id, position, element_name,(select name from %3 where %3.type_id = %2.type_id) as type, "
        "(select note from states where states.state_id = %2.state_id) as state, y, x, ST_Y(geom) as b, ST_x(geom) as "
        "l, z, h from %2 left join positions using (position_id) where position_id = %1 order by position, "
        "element_name; ",
    }},
    {{
        "select element_id,element_name, position, state_id from %2 left join positions using (position_id) left join "
        "subobjects using (subobject_id) left join objects using (object_id) left join projects using (project_id) "
        "where project_id = %1 order by objects.appearence,subobjects.appearence,positions.appearence, element_name; ",
        "select element_id,element_name, position, state_id from %2 left join positions using (position_id) left join "
        "subobjects using (subobject_id) left join objects using (object_id) where object_id = %1 order by "
        "subobjects.appearence,positions.appearence, element_name; ",
        "select element_id,element_name, position, state_id from %2 left join positions using (position_id) left join "
        "subobjects using (subobject_id) where subobject_id = %1 order by positions.appearence, element_name; ",
        "select element_id,element_name, position, state_id from %2 left join positions using (position_id) where "
        "position_id = %1 order by position, element_name; ",
    }},
}};

const PerLevel kDefective = {{
    "select element_id,element_name, position,state_id from( select element_id, element_name, position, state_id, "
    "coalesce(inspectresult, 0) as ir  from %1 left join(select inspectresult, element_id from %2 where cycle_id = "
    "%3) as dinsp  using (element_id) left join positions using (position_id) left join subobjects using "
    "(subobject_id) left join objects using (object_id)left join projects using (project_id) where  project_id = %4 "
    "order by objects.appearence,subobjects.appearence,positions.appearence, element_name) as all_ell where ir = 0 ",
    "select element_id,element_name, position,state_id from( select element_id, element_name, position, state_id, "
    "coalesce(inspectresult, 0) as ir  from %1 left join(select inspectresult, element_id from %2 where cycle_id = "
    "%3) as dinsp  using (element_id) left join positions using (position_id) left join subobjects using "
    "(subobject_id) left join objects using (object_id) where  object_id = %4 order by "
    "subobjects.appearence,positions.appearence, element_name) as all_ell where ir = 0 ",
    "select element_id,element_name, position,state_id from( select element_id, element_name, position, state_id, "
    "coalesce(inspectresult, 0) as ir  from %1 left join(select inspectresult, element_id from %2 where cycle_id = "
    "%3) as dinsp  using (element_id) left join positions using (position_id) left join subobjects using "
    "(subobject_id) where  subobject_id = %4 order by positions.appearence, element_name) as all_ell where ir = 0 ",
    "select element_id,element_name, position,state_id from( select element_id, element_name, position, state_id, "
    "coalesce(inspectresult, 0) as ir  from %1 left join(select inspectresult, element_id from %2 where cycle_id = "
    "%3) as dinsp  using (element_id) left join positions using (position_id) where  position_id = %4 order by "
    "position, element_name) as all_ell where ir = 0 ",
}};

// Where the level stands in the tables above; -1 for none.
int placeOf(const ProjectPart& part)
{
    for (int place = 0; place < levelCount; ++place) {
        if (part.level == QLatin1String(kLevels[size_t(place)]))
            return place;
    }
    return -1;
}

} // namespace

Statement elementStatement(ElementQuery query, const ProjectPart& part, const QString& elementTable,
                           const QString& typeTable)
{
    const int place = placeOf(part);
    if (place < 0)
        return {};
    const char* const text = kStatements[size_t(query)][size_t(place)];
    if (typeTable.isEmpty())
        return compose(text, part.id, Identifier(elementTable));
    return compose(text, part.id, Identifier(elementTable), Identifier(typeTable));
}

Statement defectiveStatement(const ProjectPart& part, const QString& elementTable, const QString& inspectionTable,
                             int cycleId)
{
    const int place = placeOf(part);
    if (place < 0)
        return {};
    return compose(kDefective[size_t(place)], Identifier(elementTable), Identifier(inspectionTable), cycleId, part.id);
}
