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
            union all
            select concat('systems ', count(*)) from spatial_ref_sys where auth_name in ('EPSG', 'ESRI')
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

QStringList sequenceStarts(const sql::Connection& connection)
{
    return column(connection,
                  "select format('select setval(%L, %s, %L)', quote_ident(sequencename), coalesce(last_value, "
                  "start_value), last_value is not null) from pg_sequences where schemaname = 'public'");
}

} // namespace

// Foreign keys and audit triggers rest meanwhile, so that the order of the tables
// does not matter and the log stays empty.
DatabaseReset::DatabaseReset(const sql::Connection& fresh) : shape_(shapeOf(fresh))
{
    constexpr qint64 grown = 16 * 1024 * 1024;
    most_ = column(fresh, "select pg_database_size(current_database())").value(0).toLongLong() + grown;
    QStringList emptied{"delete from spatial_ref_sys where auth_name not in ('EPSG', 'ESRI')"}, filled;
    for (const QString& table : tablesOf(fresh)) {
        emptied << "delete from " + table;
        const QString rows = fresh.runScript("select jsonb_agg(to_jsonb(t)) from " + table + " t").getvalue(0, 0);
        if (!rows.isEmpty())
            filled << "insert into " + table + " overriding system value select * from jsonb_populate_recordset(null::"
                    + table + ", '" + QString(rows).replace('\'', "''") + "')";
    }
    script_ = (QStringList{"set session_replication_role = replica"} + emptied + filled + sequenceStarts(fresh)
               + QStringList{"set session_replication_role = origin"})
                  .join(";\n");
}

bool DatabaseReset::operator()(const sql::Connection& used) const
{
    // Whoever still holds a lock would be waited for.
    used.run("select pg_terminate_backend(pid, 1000) from pg_stat_activity where datname = current_database()"
             " and pid <> pg_backend_pid() and backend_type = 'client backend'");
    // What was large once stays so, dead rows and all.
    const sql::Result small =
        used.run(compose("select pg_database_size(current_database()) < %1", Numeral(double(most_), 0)));
    if (small.getvalue(0, 0) != QLatin1String("t") || shape_.isEmpty() || shapeOf(used) != shape_)
        return false;
    const sql::Result done = used.runScript(script_);
    if (done.isTuples() || done.isCommand())
        return true;
    ADD_FAILURE() << done.errorMessage().toStdString();
    return false;
}
