// Commands whose area is not built yet. The list only shrinks.
#pragma once

#include <vector>

const std::vector<const char*>& commandsNotAvailable();

// Tells the user so, in one plain line.
void sayNotAvailable(const char* command);
