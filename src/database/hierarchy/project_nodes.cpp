#include "database/hierarchy/project_nodes.h"

#include "base/statement.h"
#include "session/project_session.h"

namespace {

const NodeLevel& levelOf(const ProjectNode& node) { return nodeLevels()[size_t(node.level)]; }

} // namespace

std::vector<NamedNode> readNodes(int level, int parentId)
{
    const NodeLevel& described = nodeLevels()[size_t(level)];
    const sql::Result rows = session().run(compose(described.list, parentId));
    std::vector<NamedNode> nodes;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        const int appearence = described.orderColumn < 0 ? 0 : rows.toInt(row, described.orderColumn);
        nodes.push_back({{rows.toInt(row, 0), level, appearence}, rows.getvalue(row, described.nameColumn)});
    }
    return nodes;
}

std::optional<NamedNode> createNode(int level, int parentId)
{
    const NodeLevel& described = nodeLevels()[size_t(level)];
    const sql::Result row = session().run(compose(described.create, parentId));
    if (!row.hasRow())
        return {};
    return NamedNode{{row.toInt(0, 0), level, row.toInt(0, 1)}, QString::fromUtf8(described.newName)};
}

void renameNode(const ProjectNode& node, const QString& name)
{
    session().run(compose(levelOf(node).rename, name, node.id));
}

bool deleteNode(const ProjectNode& node) { return session().run(compose(levelOf(node).remove, node.id)).isCommand(); }

void moveNode(const ProjectNode& node, int parentId) { session().run(compose(levelOf(node).move, parentId, node.id)); }

bool storePlace(const ProjectNode& node)
{
    return session().run(compose(levelOf(node).place, node.appearence, node.id)).isCommand();
}

bool hasPositionCounts() { return session().run("select * from positions_counts").isTuples(); }

PositionCounts readPositionCounts()
{
    const sql::Result rows = session().run(
        "select position_id, dm_count,rp_count,ts_count,tss_count,tsg_count,ggs_count,igs_count,def_prof_count,"
        "term_prof_count, contour_count from positions_counts");
    PositionCounts counts;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        QStringList& ofPosition = counts[rows.toInt(row, 0)];
        for (int column = 1; column < rows.nfields(); ++column)
            ofPosition << rows.getvalue(row, column);
    }
    return counts;
}

QStringList countTitles() { return {"ДМ", "РП", "ТС", "ТСС", "ТСГ", "ГГС", "ИГС", "ДП", "ТП", "К"}; }

bool positionHasElements(int positionId)
{
    const sql::Result counts =
        session().run(compose("select (select count(element_id) from dm_elements where position_id=%1) as dm_count,"
                              "(select count(element_id) from ts_elements where position_id = %1) as ts_count, "
                              "(select count(element_id) from rp_elements where position_id = %1) as rp_count, "
                              "(select count(element_id) from ggs_elements where position_id = %1) as ggs_count, "
                              "(select count(element_id) from tss_elements where position_id = %1) as tss_count, "
                              "(select count(element_id) from tsg_elements where position_id = %1) as tsg_count",
                              positionId));
    if (!counts.hasRow())
        return true; // nobody knows
    for (int column = 0; column < counts.nfields(); ++column) {
        if (counts.toInt(0, column) != 0)
            return true;
    }
    return false;
}
