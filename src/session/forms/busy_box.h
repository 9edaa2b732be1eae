#pragma once
// The box that stands while the server takes its time.

/// From now on a statement of more than a second shows a box over the host's
/// window, with a button that gives the statement up. Does nothing in a program
/// without windows.
void installBusyBox();

void removeBusyBox();
