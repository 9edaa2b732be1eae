#include "elements/passports/igs_geology.h"

#include "base/dates.h"
#include "base/statement.h"
#include "session/project_session.h"

namespace {

Statement textOrEmpty(const QString& text) { return compose("'%1'", text); }

Statement dateOrNull(const QDate& date, const QString& format)
{
    return date.isValid() ? compose("'%1'", dateText(date, format)) : Statement("null");
}

Statement numberOrNull(const QString& number)
{
    return number.isEmpty() ? Statement("null") : compose("%1", Numeral(number));
}

} // namespace

QString drillingDateFormat() { return QStringLiteral("dd.MM.yyyy"); }

bool readDrillingDate(const QString& text, QDate& date)
{
    date = dateFrom(text.trimmed(), drillingDateFormat());
    return date.isValid() || text.trimmed().isEmpty();
}

IgsGeology IgsGeologyRow::read(int elementId)
{
    enum Column { Id, Description, Drilled, WaterLevel };
    const sql::Result row =
        session().run(compose("select geology_id, description, drilling_date, ground_water_level from "
                              "igs_geology_elements where element_id=%1 order by geology_id",
                              elementId));
    id_ = row.hasRow() ? row.toInt(0, Id) : -1;
    return {row.getvalue(0, Description), dateFrom(row.getvalue(0, Drilled), QStringLiteral("yyyy-MM-dd")),
            row.getvalue(0, WaterLevel)};
}

bool IgsGeologyRow::write(int elementId, const IgsGeology& geology, Writer writer)
{
    // Each of the two has always written dates in its own way; the server reads both.
    const QString format = writer == Writer::Passport ? QStringLiteral("dd-MM-yyyy") : QStringLiteral("yyyy-MM-dd");
    const Statement description = textOrEmpty(geology.description), drilled = dateOrNull(geology.drilled, format),
                    level = numberOrNull(geology.waterLevel);
    if (id_ != -1)
        return session()
            .run(compose("update igs_geology_elements set (element_id,description, drilling_date, ground_water_level) "
                         "= (%1,%2,%3,%4) where geology_id=%5;",
                         elementId, description, drilled, level, id_))
            .isCommand();
    const sql::Result added =
        session().run(compose("insert into igs_geology_elements (element_id,description, drilling_date, "
                              "ground_water_level) values (%1,%2,%3,%4) returning geology_id",
                              elementId, description, drilled, level));
    if (added.hasRow())
        id_ = added.toInt(0, 0);
    return added.hasRow();
}
