// Names of new elements.
#pragma once

#include "session/enumerator.h"

/// Prefix and padded counter; looking does not use the number up.
QString nextName(const Enumerator& enumerator);

/// The same, and the counter goes on by one.
QString takeName(Enumerator& enumerator);
