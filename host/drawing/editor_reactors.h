// Events told to the reactors that modules registered.
#pragma once

#include <QString>

void notifyCommand(const QString& name, bool starts);
void notifyPickfirst();
