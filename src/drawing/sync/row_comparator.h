// What becomes of one row in the drawing.
#pragma once

#include "drawing/sync/row_texts.h"
#include "elements/element_block.h"
#include "session/project_session.h"

/// Goes through the rows of one family's statement.
void bringRows(const Family& family, const sql::Result& rows, const StateColors& colors);
