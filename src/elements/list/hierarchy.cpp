#include "elements/list/hierarchy.h"

#include "base/placeholders.h"
#include "database/hierarchy/project_nodes.h"

namespace {

// By the level of the node.
const char* const clauses[NodeLevelCount] = {" where project_id=%1 ", " where object_id=%1 ", " where subobject_id=%1 ",
                                             " where position_id=%1 "};

void addChildren(int level, int parent, QVector<HierarchyNode>& nodes)
{
    if (level >= NodeLevelCount)
        return;
    for (const NamedNode& child : readNodes(level, parent)) {
        nodes.append({{level, child.node.id}, child.name});
        addChildren(level + 1, child.node.id, nodes);
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
    const bool good = levelRead && idRead && place.level >= 0 && place.level < NodeLevelCount;
    return good ? place : HierarchyPlace();
}

Statement scopeClause(const HierarchyPlace& place)
{
    return place.level < 0 ? Statement() : compose(clauses[place.level], place.id);
}

QVector<HierarchyNode> readHierarchy()
{
    QVector<HierarchyNode> nodes;
    addChildren(0, -1, nodes);
    return nodes;
}
