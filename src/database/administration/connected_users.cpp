#include "database/administration/connected_users.h"

#include "base/placeholders.h"

QStringList connectedUsers(const sql::Result& connections, int userColumn, int addressColumn)
{
    QStringList lines;
    for (int row = 0; row < connections.ntuples(); ++row) {
        lines << fill(QStringLiteral("Пользователь %1  Адрес %2"), connections.getvalue(row, userColumn),
                      connections.getvalue(row, addressColumn));
    }
    return lines;
}
