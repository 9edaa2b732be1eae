#include "reports/generator/project_nodes.h"

#include "elements/families/families.h"
#include "session/project_session.h"

namespace {

const char* const kProject = "projects";
const char* const kObject = "objects";
const char* const kSubobject = "subobjects";
const char* const kPosition = "positions";

struct LevelStatement {
    const char* level;
    const char* elements; ///< of the table %1 in the node %2
};

const LevelStatement kLevels[] = {
    {kProject,
     "select element_id,element_name,x,y,z from %1 left join positions using (position_id) left join subobjects using "
     "(subobject_id) left join objects using (object_id) left join projects using (project_id) where project_id=%2"},
    {kObject,
     "select element_id,element_name,x,y,z from %1 left join positions using (position_id) left join subobjects using "
     "(subobject_id) left join objects using (object_id) where object_id=%2"},
    {kSubobject,
     "select element_id,element_name,x,y,z from %1 left join positions using (position_id) left join subobjects using "
     "(subobject_id) where subobject_id=%2"},
    {kPosition,
     "select element_id,element_name,x,y,z from %1 left join positions using (position_id) where "
     "position_id=%2"},
};

} // namespace

QVector<ReportNode> projectNodes()
{
    enum Column { ProjectId, ObjectId, Object, SubobjectId, Subobject, PositionId, Position };
    const ProjectSession& now = session();
    const sql::Result rows = now.run(
        "select project_id, object_id, object, subobject_id, subobject, position_id, position from projects left join "
        "objects using (project_id) left join subobjects using (object_id) left join positions using (subobject_id) "
        "order by project_id, objects.appearence, object_id, subobjects.appearence, subobject_id, "
        "positions.appearence, position_id");
    QVector<ReportNode> nodes;
    int project = -1, object = -1, subobject = -1;
    // A node is told when its key first comes up.
    const auto meets = [&rows](int row, int column, int& last) {
        if (rows.isNull(row, column) || rows.toInt(row, column) == last)
            return false;
        last = rows.toInt(row, column);
        return true;
    };
    for (int row = 0; row < rows.ntuples(); ++row) {
        if (meets(row, ProjectId, project))
            nodes.append({{kProject, project}, now.projectName, 0});
        if (meets(row, ObjectId, object))
            nodes.append({{kObject, object}, rows.getvalue(row, Object), 1});
        if (meets(row, SubobjectId, subobject))
            nodes.append({{kSubobject, subobject}, rows.getvalue(row, Subobject), 2});
        if (!rows.isNull(row, PositionId))
            nodes.append({{kPosition, rows.toInt(row, PositionId)}, rows.getvalue(row, Position), 3});
    }
    return nodes;
}

QVector<ElementChoice> elementsIn(const ProjectPart& part, FamilyKey key)
{
    enum Column { Id, Name, X, Y, Z };
    QVector<ElementChoice> elements;
    for (const LevelStatement& level : kLevels) {
        if (part.level != QLatin1String(level.level))
            continue;
        const sql::Result rows = session().run(compose(level.elements, Identifier(family(key).elements), part.id));
        for (int row = 0; row < rows.ntuples(); ++row)
            elements.append({rows.toInt(row, Id), rows.getvalue(row, Name), rows.toDouble(row, X),
                             rows.toDouble(row, Y), rows.toDouble(row, Z)});
    }
    return elements;
}
