// What a host with a title bar, a status bar and menus of its own may ask the
// module. A host that does not ask loses nothing.
#pragma once

#include <QString>
#include <functional>

using DeskTeller = std::function<void(const QString& key, const QString& value)>;

// Tells what the user works on: "project", "projectFile", "position" (with its
// object), "database", "connection" ("да", "нет" or "потеряна"), "baseCycle" and
// "currentCycle"; then, under "refused:COMMAND", why a command would do nothing
// just now. Asks no server.
void tellDesk(const DeskTeller& tell);

// Whether the file is a position's working copy that was saved and not stored.
bool isDrawingNotStored(const QString& path);

// Opens the project of that file as TERVA_LOADPROJECT does with a chosen one.
void openProjectOfDesk(const QString& path);
