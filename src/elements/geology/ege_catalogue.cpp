#include "elements/geology/ege_catalogue.h"

#include "elements/geology/quoted_text.h"
#include "session/project_session.h"

namespace {

enum Column { Name, Type, Comment, IsRequired };

const char* const dialogColumns =
    "SELECT     a.attname AS column_name,     pg_catalog.format_type(a.atttypid, a.atttypmod) AS data_type,     "
    "pg_catalog.col_description(a.attrelid, a.attnum) AS comment,     a.attnotnull AS is_not_null FROM "
    "pg_catalog.pg_attribute a WHERE a.attrelid = 'geology_ege_catalog'::regclass   AND a.attnum > 0   AND NOT "
    "a.attisdropped   AND pg_catalog.col_description(a.attrelid, a.attnum) IS NOT NULL ORDER BY a.attnum";

const char* const fileColumns =
    "SELECT a.attname, pg_catalog.format_type(a.atttypid, a.atttypmod), pg_catalog.col_description(a.attrelid, "
    "a.attnum), a.attnotnull FROM pg_catalog.pg_attribute a WHERE a.attrelid = 'geology_ege_catalog'::regclass AND "
    "a.attnum > 0 AND NOT a.attisdropped AND pg_catalog.col_description(a.attrelid, a.attnum) IS NOT NULL ORDER BY "
    "a.attnum";

bool isKey(const QString& name) { return name == QLatin1String("ege_id") || name == QLatin1String("project_id"); }

std::optional<EgeColumns> loadColumns(const char* statement)
{
    const sql::Result rows = session().run(statement);
    if (!rows.isTuples())
        return {};
    EgeColumns columns;
    for (int row = 0; row < rows.ntuples(); ++row) {
        const QString name = rows.getvalue(row, Name);
        if (!isKey(name))
            columns.append({name, rows.getvalue(row, Type), rows.getvalue(row, Comment),
                            rows.getvalue(row, IsRequired) == QLatin1String("t")});
    }
    return columns;
}

// "code,name,..." of the columns that there are values for.
QVector<Statement> namesOf(const EgeColumns& columns, const EgeValues& values)
{
    QVector<Statement> names;
    for (const EgeColumn& column : columns) {
        if (values.contains(column.name))
            names.append(compose("%1", Identifier(column.name)));
    }
    return names;
}

} // namespace

bool EgeColumn::isText() const
{
    return type == QLatin1String("text") || type.startsWith(QLatin1String("character varying"));
}

bool EgeColumn::isNumber() const
{
    return type == QLatin1String("double precision") || type.startsWith(QLatin1String("numeric"));
}

QString EgeColumn::caption() const { return isRequired ? QStringLiteral("* ") + comment : comment; }

std::optional<EgeColumns> loadEgeColumns() { return loadColumns(dialogColumns); }

std::optional<EgeColumns> loadEgeFileColumns() { return loadColumns(fileColumns); }

QString startOfEgeColumn(const QString& name)
{
    static const EgeValues starts = {
        {"hatch_scale", "1.0"}, {"color_hex", "#FFFFFF"}, {"d_sal", "0.0"}, {"salinization_type", "NON_SALINE"}};
    return starts.value(name);
}

QVector<int> loadEgeIds()
{
    const sql::Result rows = session().run("SELECT ege_id FROM geology_ege_catalog ORDER BY COALESCE(code, '')");
    QVector<int> ids;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        ids.append(rows.toInt(row, 0));
    return ids;
}

std::optional<EgeValues> loadEge(const EgeColumns& columns, int id)
{
    QVector<Statement> names;
    for (const EgeColumn& column : columns)
        names.append(compose("%1", Identifier(column.name)));
    if (names.isEmpty())
        return {};
    const sql::Result row =
        session().run(compose("SELECT %1 FROM geology_ege_catalog WHERE ege_id = %2", joined(names, ", "), id));
    if (!row.hasRow())
        return {};
    EgeValues values;
    for (int column = 0; column < columns.size(); ++column)
        values.insert(columns[column].name, row.getvalue(0, column));
    return values;
}

bool isEgeCodeTaken(const QString& code, int id)
{
    const sql::Result count = session().run(
        compose("SELECT COUNT(*) FROM geology_ege_catalog WHERE project_id = %1 AND code = '%2' AND ege_id != %3",
                session().projectId, doubled(code), id));
    return count.toInt(0, 0) > 0;
}

std::optional<int> countEgeUses(int id)
{
    const sql::Result count = session().run(compose("SELECT COUNT(*) FROM geology_layers WHERE ege_id = %1", id));
    return count.hasRow() ? std::optional<int>(count.toInt(0, 0)) : std::nullopt;
}

Statement egeValue(const EgeColumn& column, const QString& value)
{
    if (column.isText())
        return quotedText(value);
    const QString number = value.trimmed();
    if (number.isEmpty())
        return column.type == QLatin1String("double precision") ? "0" : "NULL";
    return compose("%1", Numeral(number));
}

Statement egeUpdate(const EgeColumns& columns, const EgeValues& values, int id)
{
    QVector<Statement> pairs;
    for (const EgeColumn& column : columns) {
        if (values.contains(column.name))
            pairs.append(compose("%1 = %2", Identifier(column.name), egeValue(column, values[column.name])));
    }
    return compose("UPDATE geology_ege_catalog SET %1 WHERE ege_id = %2", joined(pairs, ", "), id);
}

Statement egeInsert(const EgeColumns& columns, const EgeValues& values, Returning returning)
{
    QVector<Statement> names = namesOf(columns, values), written;
    for (const EgeColumn& column : columns) {
        if (values.contains(column.name))
            written.append(egeValue(column, values[column.name]));
    }
    names.append("project_id");
    written.append(compose("%1", session().projectId));
    return compose(returning == Returning::Key ? "INSERT INTO geology_ege_catalog (%1) VALUES (%2) RETURNING ege_id"
                                               : "INSERT INTO geology_ege_catalog (%1) VALUES (%2)",
                   joined(names, ", "), joined(written, ", "));
}
