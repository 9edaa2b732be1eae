#include "hostkit/console.h"

#include <nrx/editor.h>

void say(const QString& text) { ncutPrintf(L"%ls", text.toStdWString().c_str()); }
