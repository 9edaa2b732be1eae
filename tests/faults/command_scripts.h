#pragma once
// Commands as scripts that only act: what they are expected to say is found by
// an undisturbed run.

#include <QString>
#include <QStringList>
#include <vector>

struct CommandScript {
    const char* name;
    const char* scenario; ///< whose database and files it works on
    const char* script;   ///< behind the loading of the project
    /// Left undone without a word, as it has always been: the database says what
    /// became of it when it is looked at next.
    bool mayBeSilent = false;
    /// Rows that a run leaves which was cut short between two that belong together.
    QStringList alsoLeft = {};
};

/// One of each family of commands.
const std::vector<CommandScript>& commandScripts();
