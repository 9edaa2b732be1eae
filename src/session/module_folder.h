#pragma once
// Where the module lies.

#include <QString>

/// The folder of a module's file, with the system's separator at its end; of a
/// bare file name the separator alone.
QString folderOfModule(const QString& modulePath);
