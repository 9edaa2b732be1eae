// The statement that reads the rows of a family below a node of the project.
#pragma once

#include "drawing/sync/database_to_drawing.h"
#include "elements/families/families.h"

/// Columns: element_id, type_id, element_name, state_id, position_id, x, y, z,
/// h, (thermostabilisers: e,) block_rotation, marker_rotation, scale, props.
QString rowStatement(const Family& family, int id, SyncLevel level);
