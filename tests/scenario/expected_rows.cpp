#include "expected_rows.h"

namespace {

QString joined(const QStringList& rows)
{
    return rows.isEmpty() ? QStringLiteral("    (no row)\n")
                          : QStringLiteral("    ") + rows.join(QStringLiteral("\n    ")) + QLatin1Char('\n');
}

} // namespace

QStringList rowsOf(const sql::Connection& connection, const QString& query)
{
    const sql::Result result = connection.runScript(query);
    if (!result.isTuples() && !result.isCommand())
        return {result.errorMessage().isEmpty() ? connection.errorMessage() : result.errorMessage()};
    QStringList rows;
    for (int row = 0; row < result.ntuples(); ++row) {
        QStringList cells;
        for (int column = 0; column < result.nfields(); ++column)
            cells.append(result.isNull(row, column) ? QStringLiteral("NULL") : result.getvalue(row, column));
        rows.append(cells.join(QStringLiteral(" | ")).trimmed());
    }
    return rows;
}

QString differenceOfRows(const sql::Connection& connection, const QString& query, const QStringList& expected)
{
    const QStringList met = rowsOf(connection, query);
    if (met == expected)
        return {};
    return query + QStringLiteral("\n  expected:\n") + joined(expected) + QStringLiteral("  met:\n") + joined(met);
}

QString differenceFromFile(const QString& text, const QString& database,
                           const std::function<QString(const QString&)>& connectionTo)
{
    sql::Connection connection(connectionTo(database));
    QString difference, query;
    QStringList expected;
    const auto compare = [&] {
        if (!query.isEmpty())
            difference += differenceOfRows(connection, query, expected);
        query.clear();
        expected.clear();
    };
    for (const QString& raw : text.split(QLatin1Char('\n'))) {
        const QString line = raw.trimmed();
        const bool isQuery = line.startsWith(QLatin1String("> "));
        const bool isDatabase = line.startsWith(QLatin1String("@ "));
        if (isQuery || isDatabase)
            compare();
        if (isQuery)
            query = line.mid(2);
        else if (isDatabase)
            connection.open(connectionTo(line.mid(2)));
        else if (!line.isEmpty())
            expected.append(line);
    }
    compare();
    return difference;
}
