// Events told to the reactors that modules registered.
#pragma once

#include <nrx/double_click.h>

#include <QString>

void notifyCommand(const QString& name, bool starts);
void notifyPickfirst();
// Whether a module has shown something of its own.
NRX_API bool notifyDoubleClick(NcDbObjectId entity);
