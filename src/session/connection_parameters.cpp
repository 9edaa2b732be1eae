#include "session/connection_parameters.h"

#include <QStringList>

namespace {

// The value of a key; a server is named by its address or by its name.
QString valueIn(const QString& conninfo, const QString& key)
{
    for (const QString& word : conninfo.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (word.startsWith(key + QLatin1Char('=')))
            return word.mid(key.size() + 1);
    }
    return {};
}

QString serverIn(const QString& conninfo)
{
    const QString address = valueIn(conninfo, QStringLiteral("hostaddr"));
    return address.isEmpty() ? valueIn(conninfo, QStringLiteral("host")) : address;
}

} // namespace

QString mainConnInfo(const ConnectionParameters& parameters)
{
    return QStringLiteral("hostaddr=") + parameters.host + QStringLiteral(" ") + QStringLiteral("port=")
        + parameters.port + QStringLiteral(" ") + QStringLiteral("dbname=") + parameters.database + QStringLiteral(" ")
        + QStringLiteral("user=") + parameters.user + QStringLiteral(" ") + QStringLiteral("password=")
        + parameters.password + QStringLiteral(" ");
}

QString databaseIn(const QString& conninfo) { return valueIn(conninfo, QStringLiteral("dbname")); }

bool isSameDatabase(const QString& conninfo, const QString& other)
{
    const QString port = QStringLiteral("port");
    return databaseIn(conninfo) == databaseIn(other) && serverIn(conninfo) == serverIn(other)
        && valueIn(conninfo, port) == valueIn(other, port);
}
