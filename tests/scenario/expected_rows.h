#pragma once
// What a database must hold.

#include "database/sql/connection.h"

#include <QString>
#include <QStringList>
#include <functional>

/// The rows of a query as lines, cells parted by " | ", absent values as NULL;
/// or the server's message as the only line.
QStringList rowsOf(const sql::Connection& connection, const QString& query);

/// Tells where the rows differ from the expected ones; empty when they do not.
QString differenceOfRows(const sql::Connection& connection, const QString& query, const QStringList& expected);

/// Compares what a rows.txt expects. `connectionTo` gives a connection string
/// for a database by its name. The differences, empty for none.
QString differenceFromFile(const QString& text, const QString& database,
                           const std::function<QString(const QString&)>& connectionTo);
