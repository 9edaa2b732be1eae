#include "elements/list/hierarchy.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "session/project_session.h"

namespace {

constexpr int levelCount = 4;

struct Level {
    const char* children; ///< of the node %1 above
    int nameColumn;
    const char* clause;
};

const Level levels[levelCount] = {
    {"SELECT project_id, name, owner, location, code FROM projects;", 1, " where project_id=%1 "},
    {"SELECT object_id,project_id,object,appearence FROM objects WHERE project_id=%1 ORDER BY appearence", 2,
     " where object_id=%1 "},
    {"SELECT subobject_id, object_id,subobject,appearence FROM subobjects WHERE object_id=%1  ORDER BY appearence", 2,
     " where subobject_id=%1 "},
    {"SELECT position_id,subobject_id,position,appearence FROM positions WHERE subobject_id=%1  ORDER BY appearence", 2,
     " where position_id=%1 "},
};

void addChildren(int level, int parent, QVector<HierarchyNode>& nodes)
{
    if (level >= levelCount)
        return;
    const sql::Result rows = session().run(compose(levels[level].children, parent));
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        const int id = rows.toInt(row, 0);
        nodes.append({{level, id}, rows.getvalue(row, levels[level].nameColumn)});
        addChildren(level + 1, id, nodes);
    }
}

} // namespace

QString placeText(const HierarchyPlace& place)
{
    return place.level < 0 ? QString() : fill("%1:%2", place.level, place.id);
}

HierarchyPlace placeOf(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    bool levelRead = false, idRead = false;
    const HierarchyPlace place{parts.value(0).toInt(&levelRead), parts.value(1).toInt(&idRead)};
    const bool good = levelRead && idRead && place.level >= 0 && place.level < levelCount;
    return good ? place : HierarchyPlace();
}

Statement scopeClause(const HierarchyPlace& place)
{
    return place.level < 0 ? Statement() : compose(levels[place.level].clause, place.id);
}

QVector<HierarchyNode> readHierarchy()
{
    QVector<HierarchyNode> nodes;
    addChildren(0, -1, nodes);
    return nodes;
}
