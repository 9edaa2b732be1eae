#pragma once
// Texts of geology go into statements whole: their apostrophes are doubled.

#include "base/statement.h"

/// The text between quotes, "''" for an empty one.
Statement quotedText(const QString& text);

/// The text as it stands between the quotes of a template.
QString doubled(const QString& text);
