// The statement that reads the rows of a family below a node of the project.
#pragma once

#include "base/statement.h"
#include "drawing/sync/database_to_drawing.h"
#include "elements/families/families.h"

/// The columns. A family with a depth has it in the place of the block's
/// rotation, and what stands from there on one place further.
namespace SyncColumn {
enum { Id, Type, Name, State, Position, X, Y, Z, Height, BlockRotation, MarkerRotation, Scale, Props };
constexpr int Depth = BlockRotation;
} // namespace SyncColumn

Statement rowStatement(const Family& family, int id, SyncLevel level);
