// Files before R13 have no subclasses; their records get them, so that all that
// follows knows one form only.
#pragma once

#include "document.h"

void upgradeDocument(DxfDocument& document);
