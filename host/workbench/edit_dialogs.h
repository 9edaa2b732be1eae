// What a double click on something drawn opens.
#pragma once

#include <nrx/tables.h>

class QWidget;

// Attributes of a block, or the contents of a text; false when there is nothing
// to edit. One step of undo.
bool editEntity(NcDbObjectId entity, QWidget* parent);
