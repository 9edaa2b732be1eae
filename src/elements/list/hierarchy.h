#pragma once
// Where in the project a list of elements looks: everywhere, or below one node
// of the tree of project, objects, subobjects and positions.

#include "base/statement.h"

#include <QString>
#include <QVector>

struct HierarchyPlace {
    int level = -1; ///< 0 project, 1 object, 2 subobject, 3 position; -1 everywhere
    int id = -1;
};

/// The place as one text, e.g. "3:17", and back; an unreadable text is everywhere.
QString placeText(const HierarchyPlace& place);
HierarchyPlace placeOf(const QString& text);

/// What a statement on elements joined with their hierarchy asks; empty for everywhere.
Statement scopeClause(const HierarchyPlace& place);

struct HierarchyNode {
    HierarchyPlace place;
    QString name;
};

/// All nodes, each before what lies in it. A level that cannot be read is empty.
QVector<HierarchyNode> readHierarchy();
