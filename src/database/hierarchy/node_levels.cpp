#include "database/hierarchy/node_levels.h"

const std::array<NodeLevel, NodeLevelCount>& nodeLevels()
{
    static const std::array<NodeLevel, NodeLevelCount> levels = {{
        {
            "SELECT project_id, name, owner, location, code FROM projects;",
            1,
            -1,
            nullptr,
            nullptr,
            "UPDATE projects SET name='%1' WHERE project_id=%2",
            nullptr,
            nullptr,
            nullptr,
            nullptr,
        },
        {
            "SELECT object_id,project_id,object,appearence FROM objects WHERE project_id=%1 ORDER BY appearence",
            2,
            3,
            "INSERT INTO objects(project_id,object) VALUES (%1,'Новый объект') RETURNING object_id,appearence ",
            "Новый объект",
            "UPDATE objects SET object='%1' WHERE object_id=%2",
            "DELETE FROM objects WHERE object_id=%1",
            "UPDATE objects SET appearence=%1 WHERE object_id=%2",
            "SELECT project_id, name FROM projects",
            "UPDATE objects SET project_id=%1 WHERE object_id=%2",
        },
        {
            "SELECT subobject_id, object_id,subobject,appearence FROM subobjects WHERE object_id=%1  "
            "ORDER BY appearence",
            2,
            3,
            "INSERT INTO subobjects(object_id,subobject) VALUES (%1,'Новый подобъект') "
            "RETURNING subobject_id,appearence ",
            "Новый подобъект",
            "UPDATE subobjects SET subobject='%1' WHERE subobject_id=%2",
            "DELETE FROM subobjects WHERE subobject_id=%1",
            "UPDATE subobjects SET appearence=%1 WHERE subobject_id=%2",
            "SELECT object_id, object FROM objects",
            "UPDATE subobjects SET object_id=%1 WHERE subobject_id=%2",
        },
        {
            "SELECT position_id,subobject_id,position,appearence FROM positions WHERE subobject_id=%1  "
            "ORDER BY appearence",
            2,
            3,
            "INSERT INTO positions(subobject_id,position) VALUES (%1,'Новая позиция') "
            "RETURNING position_id, appearence",
            "Новая позиция",
            "UPDATE positions SET position='%1' WHERE position_id=%2",
            "DELETE FROM positions WHERE position_id=%1",
            "UPDATE positions SET appearence=%1 WHERE position_id=%2",
            "SELECT subobject_id, subobject FROM subobjects",
            "UPDATE positions SET subobject_id=%1 WHERE position_id=%2",
        },
    }};
    return levels;
}
