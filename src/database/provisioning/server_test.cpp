#include "database/provisioning/server_test.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "database/sql/connection.h"

const char* const databaseNamePattern = "^[a-z_][a-z0-9_]{0,62}$";

QString maintenanceConnInfo(const ConnectionParameters& parameters)
{
    return fill(QStringLiteral("hostaddr=%1 port=%2 dbname=postgres user=%3 password=%4 connect_timeout=3"),
                parameters.host, parameters.port, parameters.user, parameters.password);
}

QString provisioningConnInfo(const ConnectionParameters& parameters)
{
    return fill(QStringLiteral("hostaddr=%1 port=%2 dbname=%5 user=%3 password=%4 connect_timeout=3"), parameters.host,
                parameters.port, parameters.user, parameters.password, parameters.database);
}

namespace {

bool isSuperuser(const sql::Connection& server)
{
    return server.run("SELECT usesuper FROM pg_user WHERE usename = current_user;").getvalue(0, 0)
        == QLatin1String("t");
}

bool hasRows(const sql::Connection& server, const Statement& query) { return server.run(query).ntuples() > 0; }

} // namespace

bool testServer(const ConnectionParameters& parameters, const Log& log)
{
    const QString conninfo = maintenanceConnInfo(parameters);
    log(conninfo);
    const sql::Connection server(conninfo);
    if (!server.isOk()) {
        log(QStringLiteral("\n"));
        log(QStringLiteral("Ошибка подключения: \n") + sql::decodeServerMessage(server.rawErrorMessage()));
        return false;
    }
    log(QStringLiteral("Подключение успешно. \n"));
    if (!isSuperuser(server)) {
        log(QStringLiteral("Пользователь не является суперпользователем.\n"
                           "Для создания базы данных необходимы права суперпользователя.\n"));
        return false;
    }
    if (!hasRows(server, "SELECT 1 FROM pg_available_extensions WHERE name = 'postgis';")) {
        log(QStringLiteral("Расширение PostGIS не установлено на сервере.\n"
                           "Установите PostGIS перед созданием проекта.\n"));
        return false;
    }
    if (hasRows(server, compose("select datname from pg_database where datname='%1'", parameters.database))) {
        log(QStringLiteral("База данных уже существует. \n"));
        return false;
    }
    log(QStringLiteral("База данных свободна. \n"));
    log(QStringLiteral("Всё хорошо, можно создавать базу данных. \n"));
    return true;
}
