#include "database/hierarchy/forms/project_explorer_widget.h"

#include "formkit/layout.h"
#include "formkit/widgets.h"
#include "session/project_session.h"

#include <QHeaderView>
#include <QMenu>
#include <QTreeView>

using namespace formkit;

namespace {

constexpr int kNameWidth = 240;  // pixels
constexpr int kCountWidth = 46;  // pixels
constexpr int kLeastWidth = 250; // pixels: the buttons in one row

constexpr unsigned kProject = 1u << ProjectLevel;
constexpr unsigned kPosition = 1u << PositionLevel;
constexpr unsigned kAll = 0xF;

QTreeView* makeTree(QAbstractItemModel* model)
{
    auto* tree = named<QTreeView>("ProjectTreeView");
    tree->setModel(model);
    tree->setContextMenuPolicy(Qt::CustomContextMenu);
    tree->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    tree->setUniformRowHeights(true);
    return tree;
}

} // namespace

// An entry of the nodes' menu: what it does, and the levels that have it.
struct ProjectExplorerWidget::MenuEntry {
    const char* caption;
    void (ProjectExplorerWidget::*slot)();
    unsigned levels;
};

const std::vector<ProjectExplorerWidget::MenuEntry>& ProjectExplorerWidget::menuEntries()
{
    using Self = ProjectExplorerWidget;
    static const std::vector<MenuEntry> entries = {
        {"Установить текущей", &Self::makeCurrent, kPosition},
        {"Показать чертеж", &Self::showDrawing, kPosition},
        {"Вывести элементы ГМН", &Self::drawElements, kAll},
        {"Вывести геометрию", &Self::drawLines, kAll},
        {"Переименовать", &Self::renameCurrent, kAll},
        {"Переместить вверх", &Self::moveUp, kAll & ~kProject},
        {"Переместить вниз", &Self::moveDown, kAll & ~kProject},
        {"Переместить в раздел", &Self::moveToParent, kAll & ~kProject},
        {"Удалить", &Self::deleteCurrent, kAll & ~kProject},
    };
    return entries;
}

ProjectExplorerWidget::ProjectExplorerWidget(QWidget* parent)
    : QWidget(parent), model_(new ProjectTreeModel(this)), proxy_(new ProjectTreeProxyFilterModel(this))
{
    nameForm(this, "ProjectExplorerWidget", QString());
    proxy_->setSourceModel(model_);
    layOut(this).column({
        buttons(),
        filter_ = tipped(edit("filter"), "Фильтр"),
        growing(tree_ = makeTree(proxy_)),
        counts_ = check("ShowStatCB", "Показывать количество"),
    });
    layout()->setContentsMargins(0, 0, 0, 0);
    setMinimumWidth(kLeastWidth);
    filter_->setPlaceholderText("Фильтр");
    filter_->setClearButtonEnabled(true);

    connect(filter_, &QLineEdit::textChanged, this, &ProjectExplorerWidget::applyFilter);
    connect(counts_, &QCheckBox::toggled, this, &ProjectExplorerWidget::refreshTree);
    connect(tree_, &QWidget::customContextMenuRequested, this, &ProjectExplorerWidget::showMenu);
    connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this, &ProjectExplorerWidget::enableButtons);
    connect(model_, &ProjectTreeModel::renamed, this, &renameNode);
    showColumns();
}

// The session does not own the item and must not keep it.
ProjectExplorerWidget::~ProjectExplorerWidget()
{
    const QStandardItem* current = session().currentPositionItem;
    if (current && current->model() == model_)
        session().currentPositionItem = nullptr;
}

QToolButton* ProjectExplorerWidget::toolFor(const char* name, const char* caption, const char* icon, const char* tip,
                                            void (ProjectExplorerWidget::*slot)())
{
    QToolButton* made = toolButton(name, caption, icon, tip);
    connect(made, &QToolButton::clicked, this, slot);
    return made;
}

QLayout* ProjectExplorerWidget::buttons()
{
    using Self = ProjectExplorerWidget;
    return row({
        create_ = toolFor("create_btn", "+", "create", "Создать", &Self::createChild),
        delete_ = toolFor("delete_btn", "X", "delete", "Удалить", &Self::deleteCurrent),
        toolFor("move_btn", "M", "move", "Переместить в раздел", &Self::moveToParent),
        toolFor("moveUp_btn", "UP", "up", "Сдвинуть вверх", &Self::moveUp),
        toolFor("moveDown_btn", "DN", "down", "Сдвинуть вниз", &Self::moveDown),
        stretch(),
        toolFor("collapseAll_btn", "C", "collapse", "Свернуть до подобъектов", &Self::collapse),
        toolFor("refresh_btn", "R", "refresh", "Обновить", &Self::refreshTree),
    });
}

// --- what is shown ------------------------------------------------------------------

void ProjectExplorerWidget::refreshTree()
{
    session().checkConnection();
    const QStandardItem* before = currentItem();
    const ProjectNode chosen = before ? ProjectTreeModel::nodeOf(before) : ProjectNode();
    session().currentPositionItem = nullptr; // it goes with the old tree
    model_->read(counts_->isChecked());
    noteCurrentPosition();
    showColumns();
    tree_->expandAll();
    if (before)
        choose(model_->find(chosen));
    enableButtons();
}

void ProjectExplorerWidget::showColumns()
{
    const int columns = model_->columnCount();
    tree_->setHeaderHidden(columns <= 1);
    tree_->header()->setStretchLastSection(columns <= 1);
    tree_->header()->setMinimumSectionSize(kCountWidth / 2);
    for (int column = 1; column < columns; ++column)
        tree_->setColumnWidth(column, kCountWidth);
    if (columns > 1)
        tree_->setColumnWidth(0, kNameWidth);
}

void ProjectExplorerWidget::applyFilter()
{
    proxy_->setPattern(filter_->text());
    if (!filter_->text().isEmpty())
        tree_->expandAll();
}

// Two levels open: the subobjects are in view.
void ProjectExplorerWidget::collapse()
{
    tree_->collapseAll();
    tree_->expandToDepth(ObjectLevel);
}

void ProjectExplorerWidget::enableButtons()
{
    const QStandardItem* item = currentItem();
    const int level = item ? ProjectTreeModel::nodeOf(item).level : ObjectLevel;
    create_->setEnabled(level != PositionLevel);
    delete_->setEnabled(level != ProjectLevel);
}

void ProjectExplorerWidget::showMenu(const QPoint& place)
{
    const QModelIndex index = tree_->indexAt(place);
    if (!index.isValid())
        return;
    tree_->setCurrentIndex(index);
    const unsigned level = 1u << ProjectTreeModel::nodeOf(currentItem()).level;
    QMenu menu(this);
    for (const MenuEntry& entry : menuEntries()) {
        if (entry.levels & level)
            connect(menu.addAction(QString::fromUtf8(entry.caption)), &QAction::triggered, this, entry.slot);
    }
    menu.exec(tree_->viewport()->mapToGlobal(place));
}

// --- which node ------------------------------------------------------------------------

QStandardItem* ProjectExplorerWidget::currentItem() const
{
    const QModelIndex current = proxy_->mapToSource(tree_->currentIndex());
    return current.isValid() ? model_->itemFromIndex(current.sibling(current.row(), 0)) : nullptr;
}

QModelIndex ProjectExplorerWidget::indexOf(const QStandardItem* item) const
{
    return proxy_->mapFromSource(model_->indexFromItem(item));
}

void ProjectExplorerWidget::choose(const QStandardItem* item)
{
    if (item)
        tree_->setCurrentIndex(indexOf(item));
}

void ProjectExplorerWidget::noteCurrentPosition()
{
    session().currentPositionItem = model_->findPosition(session().currentPositionId);
}
