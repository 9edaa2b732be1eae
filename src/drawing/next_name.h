// Names of new elements.
#pragma once

#include "session/enumerator.h"

/// Prefix and padded counter; looking does not use the number up.
QString nextName(const Enumerator& enumerator);

/// Whether the counter stands at its last number.
bool isExhausted(const Enumerator& enumerator);

/// The same as nextName(), and the counter goes on by one; at its last number it stays.
QString takeName(Enumerator& enumerator);
