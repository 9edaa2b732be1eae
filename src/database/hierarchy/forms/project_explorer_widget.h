#pragma once
// The project tree: the first page of the project explorer.

#include "database/hierarchy/forms/project_tree_model.h"

#include <QWidget>

class QCheckBox;
class QLineEdit;
class QToolButton;
class QTreeView;

class ProjectExplorerWidget : public QWidget {
    Q_OBJECT

public:
    /// Empty until refreshTree().
    explicit ProjectExplorerWidget(QWidget* parent = nullptr);
    ~ProjectExplorerWidget() override;

    /// Rebuilds the tree from the database; the chosen node stays chosen.
    void refreshTree();
    void refresh() { refreshTree(); } ///< as a page of a palette set
    QStandardItem* findPositionItem(int id) const { return model_->findPosition(id); }

private:
    struct MenuEntry;
    static const std::vector<MenuEntry>& menuEntries();

    QLayout* buttons();
    QToolButton* toolFor(const char* name, const char* caption, const char* icon, const char* tip,
                         void (ProjectExplorerWidget::*slot)());
    void showColumns();
    void applyFilter();
    void collapse();
    void enableButtons();
    void showMenu(const QPoint& place);

    QStandardItem* currentItem() const; ///< null when nothing is chosen
    QModelIndex indexOf(const QStandardItem* item) const;
    void choose(const QStandardItem* item);
    void noteCurrentPosition();
    QVector<QStandardItem*> openItems(const QStandardItem* parent) const;

    void createChild();
    void deleteCurrent();
    bool deletePosition(const ProjectNode& node);
    void renameCurrent();
    void moveToParent();
    void moveUp();
    void moveDown();
    void swapWith(const QModelIndex& neighbour);
    void makeCurrent();
    void showDrawing();
    void drawElements();
    void drawLines();

    ProjectTreeModel* model_;
    ProjectTreeProxyFilterModel* proxy_;
    QToolButton* create_ = nullptr;
    QToolButton* delete_ = nullptr;
    QLineEdit* filter_ = nullptr;
    QCheckBox* counts_ = nullptr;
    QTreeView* tree_ = nullptr;
};
