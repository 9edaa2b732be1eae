#pragma once
// Reading and changing the project tree in the database. A failed statement on
// reading gives nothing and is not told.

#include "database/hierarchy/node_levels.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

struct NamedNode {
    ProjectNode node;
    QString name;
};

/// The nodes of the level below the parent; all projects on the first level.
std::vector<NamedNode> readNodes(int level, int parentId);

/// A new node below the parent, behind its siblings; nothing when the server
/// refuses.
std::optional<NamedNode> createNode(int level, int parentId);
/// The name goes into the statement as it stands: one with an apostrophe fails.
void renameNode(const ProjectNode& node, const QString& name);
/// False when the server refuses: objects and subobjects go without children only.
bool deleteNode(const ProjectNode& node);
/// Below another parent, where it keeps its place.
void moveNode(const ProjectNode& node, int parentId);
/// Stores the node's place among its siblings.
bool storePlace(const ProjectNode& node);

/// By the id of a position: how many elements, profiles and contours it has, in the order of countTitles().
using PositionCounts = QHash<int, QStringList>;
/// Of all positions by one statement; empty when the view does not answer.
PositionCounts readPositionCounts();
bool hasPositionCounts();
QStringList countTitles();

/// Whether elements belong to the position, those of engineering-geological
/// wells not counted.
bool positionHasElements(int positionId);
