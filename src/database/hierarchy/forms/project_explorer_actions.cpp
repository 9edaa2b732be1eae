// What the buttons and the menu of the project tree do.
#include "database/hierarchy/forms/project_explorer_widget.h"

#include "base/placeholders.h"
#include "database/hierarchy/forms/hierarchy_commands.h"
#include "database/hierarchy/forms/node_dialogs.h"
#include "database/hierarchy/stored_drawing.h"
#include "drawing/forms/sync_commands.h"
#include "formkit/boxes.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <QTreeView>

using namespace formkit;

void ProjectExplorerWidget::createChild()
{
    QStandardItem* parent = currentItem();
    if (!parent)
        return;
    const ProjectNode above = ProjectTreeModel::nodeOf(parent);
    if (above.level == PositionLevel)
        return;
    const std::optional<NamedNode> made = createNode(above.level + 1, above.id);
    if (!made)
        return;
    const QStandardItem* item = model_->append(parent, *made);
    tree_->expand(indexOf(parent));
    tree_->scrollTo(indexOf(item));
}

void ProjectExplorerWidget::deleteCurrent()
{
    QStandardItem* item = currentItem();
    if (!item)
        return;
    const ProjectNode node = ProjectTreeModel::nodeOf(item);
    if (node.level == ProjectLevel
        || !confirm(this, {fill("Удалить %1?", item->text()), QStringLiteral("Удаление объектов")}))
        return;
    if (node.level == PositionLevel) {
        if (!deletePosition(node))
            return;
    } else if (!deleteNode(node)) {
        return inform(this, fill("Удаление невозможно \n \"%1\" содержит вложенные объекты", item->text()),
                      QStringLiteral("Ошибка"));
    }
    if (session().currentPositionItem == item)
        session().currentPositionItem = nullptr;
    item->parent()->removeRow(item->row());
}

// A position takes its elements with it.
bool ProjectExplorerWidget::deletePosition(const ProjectNode& node)
{
    if (positionHasElements(node.id) && !confirm(this, "Позиция содержит элементы ГМН \n Удалить их?"))
        return false;
    return deleteNode(node);
}

// The item tells the database.
void ProjectExplorerWidget::renameCurrent()
{
    QStandardItem* item = currentItem();
    if (!item)
        return;
    if (const std::optional<QString> name = askNodeName(this, item->text()))
        item->setText(*name);
}

void ProjectExplorerWidget::moveToParent()
{
    const QStandardItem* item = currentItem();
    if (!item || !item->parent())
        return;
    const ProjectNode node = ProjectTreeModel::nodeOf(item);
    const int now = ProjectTreeModel::nodeOf(item->parent()).id;
    if (const std::optional<int> parent = askParent(this, node.level, now)) {
        moveNode(node, *parent);
        refreshTree();
    }
}

void ProjectExplorerWidget::moveUp() { swapWith(tree_->indexAbove(tree_->currentIndex())); }

void ProjectExplorerWidget::moveDown() { swapWith(tree_->indexBelow(tree_->currentIndex())); }

// The neighbour is the one in view: an open node has its own children below it,
// and then nothing moves.
void ProjectExplorerWidget::swapWith(const QModelIndex& neighbour)
{
    QStandardItem* item = currentItem();
    if (!item || !neighbour.isValid())
        return;
    QStandardItem* sibling = model_->itemFromIndex(proxy_->mapToSource(neighbour.sibling(neighbour.row(), 0)));
    if (ProjectTreeModel::nodeOf(item).level != ProjectTreeModel::nodeOf(sibling).level
        || item->parent() != sibling->parent() || !item->parent())
        return;
    const QVector<QStandardItem*> open = openItems(item->parent());
    const ProjectNode before = ProjectTreeModel::nodeOf(item);
    model_->swap(item, sibling);
    if (!storePlace(ProjectTreeModel::nodeOf(item)) || !storePlace(ProjectTreeModel::nodeOf(sibling))) {
        // One alone would leave two nodes at one place.
        const QString problem = session().connection.errorMessage();
        storePlace(before);
        say(fill("\nПорядок не изменён: %1\n", problem));
        return refreshTree();
    }
    for (const QStandardItem* node : open)
        tree_->expand(indexOf(node));
    choose(item);
}

// Those below the item that the user sees open.
QVector<QStandardItem*> ProjectExplorerWidget::openItems(const QStandardItem* parent) const
{
    QVector<QStandardItem*> open;
    for (int row = 0; row < parent->rowCount(); ++row) {
        QStandardItem* item = parent->child(row);
        if (tree_->isExpanded(indexOf(item)))
            open << item;
        open << openItems(item);
    }
    return open;
}

void ProjectExplorerWidget::makeCurrent()
{
    const QStandardItem* item = currentItem();
    if (!item)
        return;
    const int id = ProjectTreeModel::nodeOf(item).id;
    session().setCurrentPosition(id);
    model_->markCurrent();
    noteCurrentPosition();
    say(fill("Установлена текущая позиция ID=%1", id));
}

void ProjectExplorerWidget::showDrawing()
{
    const QStandardItem* item = currentItem();
    if (!item)
        return;
    const int id = ProjectTreeModel::nodeOf(item).id;
    if (!hasStoredDrawing(id))
        return warn(this, "Для данной позиции еще не загружены файлы");
    showStoredDrawing(id);
}

void ProjectExplorerWidget::drawElements()
{
    const QStandardItem* item = currentItem();
    if (!item)
        return;
    const ProjectNode node = ProjectTreeModel::nodeOf(item);
    syncNode(node.id, SyncLevel(node.level));
}

void ProjectExplorerWidget::drawLines()
{
    const QStandardItem* item = currentItem();
    if (item)
        drawNodeLines(ProjectTreeModel::nodeOf(item));
}
