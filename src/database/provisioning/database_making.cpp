#include "database/provisioning/database_making.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "database/provisioning/server_test.h"
#include "database/sql/connection.h"

#include <QFile>

std::optional<QString> createDatabase(const ConnectionParameters& parameters)
{
    const sql::Connection server(maintenanceConnInfo(parameters));
    if (!server.isOk())
        return sql::decodeServerMessage(server.rawErrorMessage());
    const sql::Result created = server.run(compose("CREATE DATABASE %1 WITH OWNER = %2 ENCODING = 'UTF8';",
                                                   Identifier(parameters.database), Identifier(parameters.user)));
    if (!created.isCommand())
        return sql::decodeServerMessage(created.rawErrorMessage());
    return std::nullopt;
}

std::optional<QString> loadSchema(const ConnectionParameters& parameters, const QString& schemaPath)
{
    QFile file(schemaPath);
    if (!file.open(QIODevice::ReadOnly))
        return fill(QStringLiteral("Не могу открыть файл '%1'"), schemaPath);
    const QByteArray script = file.readAll();
    // The server would see the file cut there, and call what is left of it good.
    if (script.contains('\0'))
        return fill(QStringLiteral("Файл '%1' содержит нулевые байты: это не текст в UTF-8"), schemaPath);
    const sql::Connection database(provisioningConnInfo(parameters));
    if (!database.isOk())
        return sql::decodeServerMessage(database.rawErrorMessage());
    const sql::Result loaded = database.runScriptBytes(script);
    if (!loaded.isCommand() && !loaded.isTuples())
        return sql::decodeServerMessage(database.rawErrorMessage());
    return std::nullopt;
}
