#pragma once
// The four levels of the project tree as data: a project, its objects, their
// subobjects, their positions.

#include <QMetaType>
#include <array>

/// What a node of the tree stands for.
struct ProjectNode {
    qint32 id = -1;
    qint32 level = 0;      ///< an index of nodeLevels()
    qint32 appearence = 0; ///< its place among its siblings
};
Q_DECLARE_METATYPE(ProjectNode)

inline bool operator==(const ProjectNode& a, const ProjectNode& b) { return a.id == b.id && a.level == b.level; }

enum NodeLevels { ProjectLevel, ObjectLevel, SubobjectLevel, PositionLevel, NodeLevelCount };

/// The statements of a level; one that it does not have is null.
struct NodeLevel {
    const char* list;   ///< the nodes below %1, in their order
    int nameColumn;     ///< of `list`; the id is the first
    int orderColumn;    ///< of `list`; -1: the level has no order
    const char* create; ///< below %1; gives id and place
    const char* newName;
    const char* rename;  ///< %1 the name, %2 the id
    const char* remove;  ///< of the id %1
    const char* place;   ///< %1 the place, %2 the id
    const char* parents; ///< whom a node may be moved to: id and name
    const char* move;    ///< %1 the new parent, %2 the id
};

const std::array<NodeLevel, NodeLevelCount>& nodeLevels();
