#pragma once

#include "database/sql/result.h"

#include <QStringList>

/// Who is connected, a line a connection: the columns hold user and address.
QStringList connectedUsers(const sql::Result& connections, int userColumn, int addressColumn);
