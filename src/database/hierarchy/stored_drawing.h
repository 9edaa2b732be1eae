#pragma once
// Looking at the drawing that the database keeps for a position; the current
// position stays as it is.

/// Whether the database keeps one.
bool hasStoredDrawing(int positionId);

/// Writes it under the position's name into the temporary folder and opens it
/// there. A copy that is still open is closed first; a file that cannot be made
/// is told.
void showStoredDrawing(int positionId);
