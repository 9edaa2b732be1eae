// What the loaded module tells of the user's work: for the title, the status bar
// and the menus.
#pragma once

#include <QHash>
#include <QString>

struct DeskState {
    QString project, projectFile, position, database, connection, baseCycle, currentCycle;
    QHash<QString, QString> refusals; // why a command would do nothing, by its name
    bool known = false;               // a module tells

    bool hasProject() const { return !projectFile.isEmpty(); }
};

// Empty without a module that tells.
DeskState readDeskState();
// Whether it is a position's working copy that was saved and not stored in the database.
bool isDrawingNotStored(const QString& path);
// False when no module opens projects.
bool openProjectFile(const QString& path);
// OPENPROJECT path, PROPERTIES, PRINT, STARTPAGE, MANUAL: for the window and for scripts.
void registerDeskCommands();
