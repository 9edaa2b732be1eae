#pragma once
// Where a project's database is, and who asks.

#include <QString>

struct ConnectionParameters {
    QString host; ///< a numeric address
    QString port;
    QString database;
    QString user;
    QString password;
};

/// The main connection string. Nothing is quoted: a blank in a password breaks
/// it. It ends with a blank.
QString mainConnInfo(const ConnectionParameters& parameters);

/// The database that a connection string names, without the quotes that no
/// string of ours has; user and password say who asks, not which it is.
QString databaseIn(const QString& conninfo);
/// Whether two connection strings name one database of one server.
bool isSameDatabase(const QString& conninfo, const QString& other);
