// Names of elements as field crews write them: in Latin or Cyrillic letters,
// with whatever separator is at hand.
#pragma once

#include <QString>

/// Whether the names are equal, or equal letter by letter through the table of
/// look-alikes. The longer name is the pattern, at equal length `b`: the table
/// is not symmetric (a Latin "X" in the pattern takes a Cyrillic "Х", which
/// itself belongs to "H"), so callers who want every match ask both ways.
/// A letter of the pattern that the table does not know stands for any letter.
/// Names of different length never match.
bool namesMatch(const QString& a, const QString& b);
