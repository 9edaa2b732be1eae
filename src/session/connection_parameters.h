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
