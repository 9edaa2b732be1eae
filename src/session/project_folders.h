#pragma once
// The check of a project's three folders when it is opened.

#include <QString>

struct ProjectFolders {
    QString work;
    QString temporary;
    QString templates;
};

/// Checks the folders one by one and reports on the command line. A missing
/// working or template folder is asked for and replaced by the answer; a
/// missing temporary folder is made. True when all three can be written to.
bool checkProjectFolders(ProjectFolders& folders);
