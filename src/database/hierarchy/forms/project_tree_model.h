#pragma once
// The project tree as items: a name with its icon, and on request how much each
// position holds.

#include "database/hierarchy/project_nodes.h"

#include <QIcon>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>

class ProjectTreeModel : public QStandardItemModel {
    Q_OBJECT

public:
    explicit ProjectTreeModel(QObject* parent = nullptr);

    /// Reads the tree anew; one statement an object and a subobject, and with
    /// counts one a position.
    void read(bool withCounts);

    static ProjectNode nodeOf(const QStandardItem* item);
    QStandardItem* find(const ProjectNode& node) const;
    /// By level and id, from the invisible root.
    QStandardItem* findPosition(int id) const;

    /// Puts the new node behind the children of the item.
    QStandardItem* append(QStandardItem* parent, const NamedNode& node);
    /// Two siblings change places and the numbers by which the database sorts
    /// them. The view's open nodes close.
    void swap(QStandardItem* item, QStandardItem* sibling);

    /// Underlines the current position, its subobject and its object.
    void markCurrent();

signals:
    /// The user has given the node another name.
    void renamed(const ProjectNode& node, const QString& name);

private:
    QStandardItem* makeItem(const NamedNode& named) const;
    void readBelow(QStandardItem* parent, int level, int parentId, const PositionCounts& counts) const;
    void tellRenamed(const QStandardItem* item);

    std::array<QIcon, NodeLevelCount> icons_;
    bool changing_ = false; ///< by this class, not by the user
};

/// Lets a row pass that matches, and with it all that stand above.
class ProjectTreeProxyFilterModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    /// A regular expression, or everything without one; one that is no
    /// expression lets nothing pass.
    void setPattern(const QString& pattern);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
};
