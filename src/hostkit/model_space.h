// Model space of the working drawing: putting entities in and finding blocks.
#pragma once

#include "hostkit/opened.h"

#include <memory>
#include <optional>

/// The drawing that is active; never null in a command.
NcDbDatabase* workingDatabase();

/// Model space of the working drawing; empty when it is held elsewhere.
Opened<NcDbBlockTableRecord> openModelSpace(NcOpenMode mode);

/// What stands in model space, in the order of creation; nothing when it is
/// held elsewhere. Model space is closed again, so that it can be added to
/// while the list is gone through.
std::optional<NcDbObjectIdArray> entitiesOfModelSpace();

/// What a command says when model space is held elsewhere.
QString modelSpaceError();

/// Entities of a block that were not erased, in the order of their creation.
NcDbObjectIdArray entityIds(const NcDbBlockTableRecord& block);

/// Hands the entity over to model space and closes it; a locked layer is
/// unlocked for it. The null id when the drawing did not take it; the entity is
/// then gone.
NcDbObjectId appendToModelSpace(std::unique_ptr<NcDbEntity> entity);

/// The same into the space that is shown: model space or a sheet.
NcDbObjectId appendToCurrentSpace(std::unique_ptr<NcDbEntity> entity);

/// The first reference of model space, in the order of creation, to a
/// definition of exactly this name with an attribute whose tag and text are
/// exactly these; the null id when there is none. A dynamic block goes by its
/// definition's name, a plain one of the right name is found too. The host
/// answers from an index: the cost does not grow with the drawing.
NcDbObjectId findBlockReference(const QString& blockName, const QString& tag, const QString& value);
