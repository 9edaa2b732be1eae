// Bringing rows of the database into the drawing.
#pragma once

/// A node of the project that rows belong to; the numbers are the tree's.
enum class SyncLevel { Project = 0, Object = 1, Subobject = 2, Position = 3 };

constexpr unsigned allFamiliesMask = 4095;

/// Writes the rows below the node, of the families whose bit the mask holds,
/// into the active drawing. A missing block is inserted, one of the wrong kind
/// is replaced, one that is found is overwritten: the database wins on all
/// counts. Differences of kind and name are told and marked. Nothing is deleted.
///
/// Costs one statement a family; blocks are found through the drawing's index,
/// so a run takes time in proportion to the rows.
void syncDatabaseToDrawing(int id, SyncLevel level, unsigned mask);

/// The command behind its guards: all families of the current position, on a
/// clean error layer.
void syncPositionToDrawing();

/// A node of the project tree into whatever drawing is open: the same as
/// syncDatabaseToDrawing(), but opens a new drawing from "Default.dwt"
/// when none is open. Markers add up: only the commands clear them.
void syncNodeToDrawing(int id, SyncLevel level, unsigned mask);
