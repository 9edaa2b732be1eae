#include "support/database_reset.h"

#include "base/placeholders.h"
#include "base/statement.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

QStringList column(const sql::Connection& connection, const char* statement)
{
    QStringList cells;
    const sql::Result result = connection.run(statement);
    if (!result.isTuples())
        ADD_FAILURE() << result.errorMessage().toStdString();
    for (int row = 0; row < result.ntuples(); ++row)
        cells << result.getvalue(row, 0);
    return cells;
}

// Everything a test may change that is not a row. What extensions brought is left out.
QString shapeOf(const sql::Connection& connection)
{
    return column(connection, R"(
        with ours as (
            select c.oid, c.relname, c.relkind, c.relacl, c.relowner from pg_class c
             where c.relnamespace = 'public'::regnamespace
               and not exists (select 1 from pg_depend d where d.objid = c.oid and d.deptype = 'e'))
        select md5(string_agg(line, chr(10) order by line)) from (
            select concat('relation ', relname, relkind, relowner, relacl) from ours
            union all
            select concat('column ', ours.relname, '.', attname, atttypid, atttypmod, attnotnull, attidentity,
                          pg_get_expr(adbin, adrelid), col_description(ours.oid, attnum))
              from ours join pg_attribute on attrelid = ours.oid
              left join pg_attrdef on adrelid = attrelid and adnum = attnum
             where attnum > 0 and not attisdropped and relkind in ('r', 'v')
            union all
            select concat('rule ', conname, pg_get_constraintdef(pg_constraint.oid)) from pg_constraint
              join ours on ours.oid = conrelid
            union all
            select concat('trigger ', tgname, tgenabled, ours.relname) from pg_trigger join ours on ours.oid = tgrelid
             where not tgisinternal
            union all
            select concat('function ', proname, md5(prosrc), proacl) from pg_proc
             where pronamespace = 'public'::regnamespace
               and not exists (select 1 from pg_depend d where d.objid = pg_proc.oid and d.deptype = 'e')
            union all
            select concat('schema ', nspname, nspacl) from pg_namespace where nspname !~ '^pg_(temp|toast)'
            union all
            select concat('extension ', extname) from pg_extension
            union all
            select concat('event ', evtname, evtenabled) from pg_event_trigger
            union all
            select concat('database ', datdba, datacl, datconnlimit) from pg_database
             where datname = current_database()
            union all
            select concat('setting ', setconfig) from pg_db_role_setting
              join pg_database on pg_database.oid = setdatabase where datname = current_database()
            union all
            select concat('default ', defaclacl) from pg_default_acl
        ) as shape(line))")
        .value(0);
}

QStringList tablesOf(const sql::Connection& connection)
{
    return column(connection,
                  "select quote_ident(relname) from pg_class where relnamespace = 'public'::regnamespace"
                  " and relkind = 'r' and not exists"
                  " (select 1 from pg_depend where objid = pg_class.oid and deptype = 'e') order by 1");
}

// What the extension brings is too much to be put back.
QString systemsOf(const sql::Connection& connection)
{
    return column(connection,
                  "select md5(string_agg(srid || proj4text, ',' order by srid)) from spatial_ref_sys where "
                  "auth_name in ('EPSG', 'ESRI')")
        .value(0);
}

QStringList sequenceStarts(const sql::Connection& connection)
{
    return column(connection,
                  "select format('select setval(%L, %s, %L)', quote_ident(sequencename), coalesce(last_value, "
                  "start_value), last_value is not null) from pg_sequences where schemaname = 'public'");
}

} // namespace

DatabaseReset::DatabaseReset(const sql::Connection& fresh) : shape_(shapeOf(fresh)), systems_(systemsOf(fresh))
{
    constexpr qint64 grown = 16 * 1024 * 1024;
    most_ = column(fresh, "select pg_database_size(current_database())").value(0).toLongLong() + grown;
    tables_.append(Table{"spatial_ref_sys", "delete from spatial_ref_sys where auth_name not in ('EPSG', 'ESRI')"});
    for (const QString& table : tablesOf(fresh)) {
        QString script = "delete from " + table;
        const QString rows = fresh.runScript("select jsonb_agg(to_jsonb(t)) from " + table + " t").getvalue(0, 0);
        if (!rows.isEmpty())
            script += ";\ninsert into " + table
                + " overriding system value select * from jsonb_populate_recordset(null::" + table + ", '"
                + QString(rows).replace('\'', "''") + "')";
        tables_.append(Table{table, script});
    }
    numbers_ = sequenceStarts(fresh).join(";\n");
}

// Rows of the catalogue change with every table, column, rule or right; a truncated table is another row there.
DatabaseReset::Counts DatabaseReset::countsOf(const sql::Connection& used)
{
    Counts counts;
    const sql::Result rows = used.run(
        "select quote_ident(relname), schemaname = 'public', n_tup_ins + n_tup_upd + n_tup_del "
        "from pg_stat_all_tables where schemaname = 'public' or (schemaname = 'pg_catalog' and relname in "
        "('pg_class', 'pg_attribute', 'pg_attrdef', 'pg_constraint', 'pg_trigger', 'pg_proc', 'pg_type', "
        "'pg_namespace', 'pg_extension', 'pg_event_trigger', 'pg_default_acl', 'pg_description', 'pg_depend'))");
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        const qint64 changes = rows.getvalue(row, 2).toLongLong();
        if (rows.getvalue(row, 1) == QLatin1String("t"))
            counts.tables.insert(rows.getvalue(row, 0), changes);
        else
            counts.catalogue += changes;
    }
    counts.settings = column(used,
                             "select concat(datdba, datacl, datconnlimit, (select array_agg(setconfig) from "
                             "pg_db_role_setting where setdatabase = pg_database.oid)) from pg_database where "
                             "datname = current_database()")
                          .value(0);
    return counts;
}

// Foreign keys and audit triggers rest meanwhile, so that the order of the tables
// does not matter and the log stays empty.
QString DatabaseReset::scriptFor(const Counts& now, const Counts* before) const
{
    QStringList script{"set session_replication_role = replica"};
    for (const Table& table : tables_) {
        if (!before || now.tables.value(table.name) != before->tables.value(table.name))
            script << table.script;
    }
    return (script << numbers_ << "set session_replication_role = origin").join(";\n");
}

bool DatabaseReset::operator()(const sql::Connection& used, const QString& database)
{
    // Whoever still holds a lock would be waited for; who goes tells his counts.
    used.run("select pg_terminate_backend(pid, 1000) from pg_stat_activity where datname = current_database()"
             " and pid <> pg_backend_pid() and backend_type = 'client backend'");
    const Counts now = countsOf(used);
    const auto left = left_.constFind(database);
    const Counts* before = left == left_.constEnd() ? nullptr : &*left;
    if (before && (before->catalogue != now.catalogue || before->settings != now.settings))
        before = nullptr;
    if (!before && (shape_.isEmpty() || shapeOf(used) != shape_))
        return false;
    const auto isTouched = [&](const QString& table) {
        return !before || before->tables.value(table) != now.tables.value(table);
    };
    if (isTouched("spatial_ref_sys") && systemsOf(used) != systems_)
        return false;
    // What was large once stays so, dead rows and all.
    const sql::Result small =
        used.run(compose("select pg_database_size(current_database()) < %1", Numeral(double(most_), 0)));
    if (small.getvalue(0, 0) != QLatin1String("t"))
        return false;
    const sql::Result done = used.runScript(scriptFor(now, before));
    if (!done.isTuples() && !done.isCommand()) {
        ADD_FAILURE() << done.errorMessage().toStdString();
        return false;
    }
    used.run("select pg_stat_force_next_flush()");
    left_.insert(database, countsOf(used));
    return true;
}
