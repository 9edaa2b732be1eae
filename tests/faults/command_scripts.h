#pragma once
// Commands as scripts that only act: what they are expected to say is found by
// an undisturbed run.

#include <QString>
#include <QStringList>
#include <ostream>
#include <vector>

struct CommandScript {
    const char* name;
    const char* scenario; ///< whose database and files it works on
    const char* script;   ///< behind the loading of the project
    /// Beginnings of statements that are left undone without a word, as they have always been: the
    /// database says what became of them when it is looked at next.
    QStringList silent = {};
    /// Rows that a run leaves which was cut short between two that belong together.
    QStringList alsoLeft = {};
};

void PrintTo(const CommandScript& command, std::ostream* stream);

/// One of each family of commands.
const std::vector<CommandScript>& commandScripts();

/// Commands that ask the server nothing.
const std::vector<CommandScript>& quietScripts();

/// A command that differs from one with a script by a row of a table alone.
struct SameCommand {
    const char* name;
    const char* like;
};
const std::vector<SameCommand>& sameCommands();

/// A command whose statements are refused, or cut, by tests of its own area.
struct HeldElsewhere {
    const char* name;
    QStringList tests;
};
const std::vector<HeldElsewhere>& commandsHeldElsewhere();
