#include "exchange/geology/geology_import.h"

#include "base/dates.h"
#include "base/placeholders.h"
#include "hostkit/console.h"
#include "session/project_session.h"

namespace {

constexpr int decimals = 3; // of marks and depths

bool isDone(const sql::Result& result) { return result.isCommand() || result.isTuples(); }

// The server takes one statement at a time: a transaction makes them one.
sql::Result runAsOne(const QVector<Statement>& statements)
{
    sql::Result result = session().run("BEGIN");
    for (int i = 0; isDone(result) && i < statements.size(); ++i)
        result = session().run(statements[i]);
    if (isDone(result))
        return session().run("COMMIT");
    session().run("ROLLBACK");
    return result;
}

} // namespace

QVector<Statement> geologyStatements(const WellGeology& well)
{
    QVector<Statement> statements;
    const int id = well.elementId;
    if (id == -1)
        return statements;
    const Statement drilled = well.drilled.isValid()
        ? compose("'%1'", dateText(well.drilled, QStringLiteral("yyyy-MM-dd")))
        : Statement("NULL");
    statements << compose("DELETE FROM igs_geology_elements WHERE element_id = %1;\n", id)
               << compose("INSERT INTO igs_geology_elements (element_id, drilling_date) VALUES (%1, %2);\n", id,
                          drilled)
               << compose("DELETE FROM igs_geology_layers WHERE element_id = %1;\n", id);
    if (well.z)
        statements << compose("UPDATE igs_elements SET z = %1 WHERE element_id = %2;\n", Numeral(*well.z, decimals),
                              id);
    for (const WellLayer& layer : well.layers) {
        statements << compose("INSERT INTO igs_geology_layers (element_id, ege_id, depth_from, depth_to) VALUES (%1, "
                              "%2, %3, %4);\n",
                              id, layer.egeId, Numeral(layer.from, decimals), Numeral(layer.to, decimals));
    }
    return statements;
}

int importGeology(const QVector<WellGeology>& wells, const GeologyProgress& progress)
{
    int written = 0;
    for (int i = 0; i < wells.size(); ++i) {
        if (progress && !progress(i, wells.size())) {
            say("\n Импорт геологии прерван");
            break;
        }
        const QVector<Statement> statements = geologyStatements(wells[i]);
        if (statements.isEmpty())
            continue;
        const sql::Result result = runAsOne(statements);
        if (isDone(result)) {
            ++written;
            continue;
        }
        say(fill("\n [Ошибка SQL] %1", result.errorMessage()));
        say(fill("\n [Запрос] %1", joined(statements, "").text()));
    }
    say(fill("\n Импортировано скважин: %1", written));
    return written;
}
