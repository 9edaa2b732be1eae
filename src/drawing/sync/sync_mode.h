// What the synchronisation of a drawing is asked to do.
#pragma once

enum class SyncMode {
    Drawing,  ///< writes any row of the project that a block names
    Position, ///< writes rows of the current position only, and asks about rows without a block
    File,     ///< writes no row; stores the drawing itself
};
