// The commands of the module, in the order in which they are registered.
#pragma once

#include "entry/guards.h"

#include <nrx/application.h>

#include <array>

struct Command {
    const char* name; // local name; the global one has a leading underscore
    Guard connection; // checked first
    Guard position;
    int flags;               // the host's command flags
    NcCommandHandler action; // null while the command's area is not built
};

constexpr size_t kCommandCount = 79;
const std::array<Command, kCommandCount>& commandTable();

// Checks the guards and runs the action, or says that there is none yet.
void runCommand(const Command& command);

// Registers all commands under the group "TERVA", in the table's order.
void registerCommands();
void removeCommands();
