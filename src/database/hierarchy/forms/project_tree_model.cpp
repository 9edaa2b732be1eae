#include "database/hierarchy/forms/project_tree_model.h"

#include "formkit/icons.h"
#include "session/project_session.h"

#include <QRegularExpression>
#include <QScopedValueRollback>

namespace {

constexpr int nodeRole = Qt::UserRole + 1;

const std::array<const char*, NodeLevelCount> iconNames = {"project", "object", "subobject", "position"};

QStandardItem* countItem(const QString& count)
{
    auto* item = new QStandardItem(count);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

QStandardItem* findBelow(const QStandardItem* parent, const ProjectNode& node)
{
    for (int row = 0; row < parent->rowCount(); ++row) {
        QStandardItem* item = parent->child(row);
        if (ProjectTreeModel::nodeOf(item) == node)
            return item;
        if (QStandardItem* found = findBelow(item, node))
            return found;
    }
    return nullptr;
}

template <class Visit>
void forEachItem(const QStandardItem* parent, Visit visit)
{
    for (int row = 0; row < parent->rowCount(); ++row) {
        visit(parent->child(row));
        forEachItem(parent->child(row), visit);
    }
}

} // namespace

ProjectTreeModel::ProjectTreeModel(QObject* parent) : QStandardItemModel(parent)
{
    qRegisterMetaType<ProjectNode>();
    for (size_t level = 0; level < icons_.size(); ++level)
        icons_[level] = formkit::icon(iconNames[level]);
    connect(this, &QStandardItemModel::itemChanged, this, &ProjectTreeModel::tellRenamed);
}

ProjectNode ProjectTreeModel::nodeOf(const QStandardItem* item) { return item->data(nodeRole).value<ProjectNode>(); }

QStandardItem* ProjectTreeModel::makeItem(const NamedNode& named) const
{
    auto* item = new QStandardItem(icons_[size_t(named.node.level)], named.name);
    item->setData(QVariant::fromValue(named.node), nodeRole);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
    return item;
}

// A node joins the model with all that stands below it: views and proxies hear
// of one row a project.
void ProjectTreeModel::read(bool withCounts)
{
    const QScopedValueRollback<bool> changing(changing_, true);
    const bool counted = withCounts && hasPositionCounts();
    clear();
    QStringList titles{QStringLiteral("Наименование")};
    if (counted)
        titles << countTitles();
    setColumnCount(titles.size());
    setHorizontalHeaderLabels(titles);
    for (int column = 1; column < titles.size(); ++column)
        horizontalHeaderItem(column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const PositionCounts counts = counted ? readPositionCounts() : PositionCounts{};
    for (const NamedNode& project : readNodes(ProjectLevel, -1)) {
        QStandardItem* item = makeItem(project);
        readBelow(item, ObjectLevel, project.node.id, counts);
        appendRow(item);
    }
    markCurrent();
}

void ProjectTreeModel::readBelow(QStandardItem* parent, int level, int parentId, const PositionCounts& counts) const
{
    for (const NamedNode& named : readNodes(level, parentId)) {
        QList<QStandardItem*> row{makeItem(named)};
        if (level < PositionLevel) {
            readBelow(row.first(), level + 1, named.node.id, counts);
        } else {
            for (const QString& count : counts.value(named.node.id))
                row << countItem(count);
        }
        parent->appendRow(row);
    }
}

QStandardItem* ProjectTreeModel::find(const ProjectNode& node) const { return findBelow(invisibleRootItem(), node); }

QStandardItem* ProjectTreeModel::findPosition(int id) const { return find({id, PositionLevel, 0}); }

QStandardItem* ProjectTreeModel::append(QStandardItem* parent, const NamedNode& node)
{
    const QScopedValueRollback<bool> changing(changing_, true);
    QStandardItem* item = makeItem(node);
    parent->appendRow(item);
    return item;
}

void ProjectTreeModel::swap(QStandardItem* item, QStandardItem* sibling)
{
    const QScopedValueRollback<bool> changing(changing_, true);
    ProjectNode node = nodeOf(item);
    ProjectNode other = nodeOf(sibling);
    std::swap(node.appearence, other.appearence);
    item->setData(QVariant::fromValue(node), nodeRole);
    sibling->setData(QVariant::fromValue(other), nodeRole);

    QStandardItem* parent = item->parent() ? item->parent() : invisibleRootItem();
    const int first = item->row();
    const int second = sibling->row();
    QVector<QList<QStandardItem*>> rows;
    while (parent->rowCount() > 0)
        rows.append(parent->takeRow(0));
    std::swap(rows[first], rows[second]);
    for (const QList<QStandardItem*>& row : qAsConst(rows))
        parent->appendRow(row);
}

void ProjectTreeModel::markCurrent()
{
    const QScopedValueRollback<bool> changing(changing_, true);
    const ProjectSession& now = session();
    const std::array<int, NodeLevelCount> current = {-1, now.currentObjectId, now.currentSubobjectId,
                                                     now.currentPositionId};
    forEachItem(invisibleRootItem(), [&current](QStandardItem* item) {
        const ProjectNode node = nodeOf(item);
        const bool isCurrent = node.id != -1 && node.id == current[size_t(node.level)];
        QFont font = item->font();
        if (isCurrent == font.underline())
            return;
        font.setUnderline(isCurrent);
        item->setFont(font);
    });
}

// Icons, fonts and places change too, but by this class alone.
void ProjectTreeModel::tellRenamed(const QStandardItem* item)
{
    if (!changing_ && item->column() == 0)
        emit renamed(nodeOf(item), item->text());
}

void ProjectTreeProxyFilterModel::setPattern(const QString& pattern)
{
    const QRegularExpression wanted(pattern.isEmpty() ? QStringLiteral(".+") : pattern,
                                    QRegularExpression::CaseInsensitiveOption);
    setFilterRegularExpression(wanted.isValid() ? wanted : QRegularExpression(QStringLiteral("(?!)")));
}

bool ProjectTreeProxyFilterModel::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    if (QSortFilterProxyModel::filterAcceptsRow(row, parent))
        return true;
    const QModelIndex node = sourceModel()->index(row, 0, parent);
    for (int child = 0; child < sourceModel()->rowCount(node); ++child) {
        if (filterAcceptsRow(child, node))
            return true;
    }
    return false;
}
