#pragma once
// The query of the element list.

#include "elements/list/hierarchy.h"
#include "elements/list/list_family.h"

/// The columns of the answer. Those of files are there for families that have them.
enum class ListColumn { Id, Name, TypeId, StateId, PositionId, X, Y, Z, H, Cycles, Photos, Sketches, Geology };

/// Elements at the place; of their measures those of the cycle, of all cycles for -1.
Statement listStatement(const ListFamily& family, const HierarchyPlace& place, int cycleId);
