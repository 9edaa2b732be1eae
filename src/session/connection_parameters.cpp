#include "session/connection_parameters.h"

QString mainConnInfo(const ConnectionParameters& parameters)
{
    return QStringLiteral("hostaddr=") + parameters.host + QStringLiteral(" ") + QStringLiteral("port=")
        + parameters.port + QStringLiteral(" ") + QStringLiteral("dbname=") + parameters.database + QStringLiteral(" ")
        + QStringLiteral("user=") + parameters.user + QStringLiteral(" ") + QStringLiteral("password=")
        + parameters.password + QStringLiteral(" ");
}
