#pragma once
// Continuing the numbering of a position's elements.

#include <QStringList>

class ProjectSession;

/// The number after the greatest one among the names; a name's number is its
/// first run of digits, and one beyond 32 bits reads as 0. Without any number
/// the answer is 100.
int nextNumber(const QStringList& names);

/// Sets the numbering of six families by the elements that the position has;
/// wells of engineering geology keep theirs. A family whose elements cannot be
/// read keeps its numbering too.
void renumberFamilies(ProjectSession& session, int positionId);
