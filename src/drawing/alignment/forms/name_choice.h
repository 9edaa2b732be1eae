// Boxes that ask for one of several names.
#pragma once

#include "drawing/alignment/ucs_commands.h"

/// One of the names as it stands; nothing when the box was closed.
std::optional<QString> chooseName(const QString& title, const QString& label, const QStringList& names);

/// One of the names, which may be edited. The answer tells which one it was made
/// of: the one that it equals (of several alike the one chosen), or the one
/// chosen last. Nothing when the box was
/// closed or nothing is left of the name.
std::optional<UcsChoice> chooseAndEditName(const QString& title, const QString& label, const QStringList& names);
