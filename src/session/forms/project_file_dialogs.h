#pragma once
// The boxes that opening and saving a project shows.

/// From now on the session asks through these boxes. Called once at start.
void installProjectDialogs();
