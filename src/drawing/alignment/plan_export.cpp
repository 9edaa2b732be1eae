#include "drawing/alignment/plan_export.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "base/text.h"
#include "hostkit/console.h"
#include "hostkit/model_space.h"
#include "session/project_session.h"

namespace {

// Also of a server that is gone and gives no result.
QString serverMessage(const sql::Result& result)
{
    const QString message = result.errorMessage();
    return message.isEmpty() ? session().connection.errorMessage() : message;
}

// False, with the message, when the server refused.
bool runOrSay(const Statement& statement, const QString& message)
{
    const sql::Result result = session().run(statement);
    if (result.isCommand())
        return true;
    say(fill(message, serverMessage(result)));
    return false;
}

const QString insertFailed = QStringLiteral("\nОшибка при вставке данных: %1");

// A table that could not be cleared is not filled once more.
bool prepareTable(const std::function<bool()>& askToClear)
{
    if (!runOrSay("CREATE TABLE IF NOT EXISTS geometries (id SERIAL PRIMARY KEY, name VARCHAR(255), geom GEOMETRY)",
                  QStringLiteral("\nОшибка при создании таблицы: %1")))
        return false;
    return !askToClear() || runOrSay("TRUNCATE TABLE geometries;", insertFailed);
}

} // namespace

Statement lineStatement(const geometry::PointList& points)
{
    QStringList texts;
    for (const geometry::Point3& p : points)
        texts.append(fixed(p.x, 6) + QLatin1Char(' ') + fixed(p.y, 6));
    return compose("INSERT INTO geometries (geom) VALUES (ST_GeomFromText('LINESTRING(%1)', 9999));",
                   texts.join(QStringLiteral(", ")));
}

void exportPlan(const std::optional<QString>& layer, const std::function<bool()>& askToClear)
{
    if (!prepareTable(askToClear))
        return;
    const std::optional<PlanLines> plan = collectPlanLines(layer);
    if (!plan)
        return say(modelSpaceError());
    say(fill("\nЭлементов чертежа обработано: %1", plan->entities));
    say(fill("\nРазмер geomFromDwg: %1\n", plan->lines.size()));
    for (const geometry::PointList& points : plan->lines) {
        if (points.size() >= 2)
            runOrSay(lineStatement(points), insertFailed);
    }
}
