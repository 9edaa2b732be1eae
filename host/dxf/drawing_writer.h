// A drawing as the text of a file.
#pragma once

#include <nrx/database.h>

QByteArray drawingText(const NcDbDatabase& database);
