#pragma once
// Whether a server can take a new project.

#include "session/connection_parameters.h"

#include <functional>

/// Takes texts of a log, line breaks included.
using Log = std::function<void(const QString&)>;

/// What a database of a project may be called.
extern const char* const databaseNamePattern;

/// Connects to the maintenance database and asks for what a new project needs:
/// superuser rights, PostGIS, a free database name. Every finding goes to the
/// log, the connection string first, with its password. True when a project
/// can be created.
bool testServer(const ConnectionParameters& parameters, const Log& log);

/// The connection string of the maintenance database, with a time-out.
QString maintenanceConnInfo(const ConnectionParameters& parameters);
/// That of the named database.
QString provisioningConnInfo(const ConnectionParameters& parameters);
