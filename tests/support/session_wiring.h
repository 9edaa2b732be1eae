#pragma once
// The module's session on a database of the test server, and away from it. The one
// place that knows which of its fields tell where it works.

#include "session/project_session.h"
#include "support/test_database.h"

/// Points a session at a database of the test server; nothing is opened.
inline void pointAt(ProjectSession& session, const QString& database)
{
    session.sqlHost = TestServer::host();
    session.sqlPort = TestServer::port();
    session.sqlDatabase = database;
    session.sqlUser = TestServer::user();
    session.sqlPass = TestServer::password();
}

/// The module's session works on the database.
inline void connectSession(const TestDatabase& database)
{
    pointAt(session(), database.name());
    session().connection.open(session().buildConnInfo());
}

/// The session has no connection and nowhere to get a new one.
inline void disconnectSession()
{
    ProjectSession& s = session();
    s.connection.finish();
    s.sqlHost = s.sqlDatabase = s.sqlUser = s.sqlPass = QString();
    s.sqlPort = QStringLiteral("1");
}
