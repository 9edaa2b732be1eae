// The program's icons: one set of drawings in the folder "icons" beside it.
#pragma once

#include <QIcon>

// Sharp at any size and scale; on a dark window its dark lines are light. Null
// when there is no drawing of that name.
QIcon deskIcon(const QString& name);
