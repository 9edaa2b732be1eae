// A drawing as the text of a file; empty when the work was stopped.
#pragma once

#include <nrx/database.h>

QByteArray drawingText(const NcDbDatabase& database);
