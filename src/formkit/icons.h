#pragma once
// The module's icons: one set of drawings in the folder "icons" beside it.

#include <QIcon>

namespace formkit {

/// The icon of that name; null when it is not delivered.
QIcon icon(const QString& name);

} // namespace formkit
