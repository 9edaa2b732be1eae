// What a word that was begun may become.
#pragma once

#include <QStringList>

// Names that fit, best first: those that begin so, the shortest before the
// others, then those that hold it; of equals in the order of the alphabet. Case
// makes no difference. Nothing for nothing typed.
QStringList completions(const QString& begun, const QStringList& names);
