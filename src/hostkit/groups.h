// Named groups of the working drawing.
#pragma once

#include <nrx/object.h>

#include <QStringList>

/// Puts the entities into a new group named `prefix` and the present time in
/// base 36; within one second the names go on by one, so that no group takes
/// another's place. The null id for no entities.
NcDbObjectId groupEntities(const QString& prefix, const NcDbObjectIdArray& ids, const QString& description = {});

/// The names that begin with the prefix, in the order of their making.
QStringList groupNames(const QString& prefix);

/// What is left of the group in the drawing.
NcDbObjectIdArray membersOfGroup(const QString& name);
