#include "kept_tables.h"

#include "base/placeholders.h"

#include <QRegularExpression>
#include <algorithm>
#include <iterator>

namespace {

constexpr int firstKey = 700000; // that the server gives in a run
// The log tells of the runs; drawings hold the moment of their saving.
const QStringList unseen = {"audit_log", "positions_files"};

} // namespace

QString withoutKeys(QString text)
{
    static const QRegularExpression keys("\\b70\\d{4}\\b");
    static const QRegularExpression groups("TERVA_(HATCH|VALS)_\\w+");
    static const QRegularExpression moments("20\\d\\d-\\d\\d-\\d\\d[ T]\\d\\d:\\d\\d:\\d\\d[.\\d]*([+-]\\d\\d)?");
    // The moments first: the fraction of a second may look like a key.
    return text.replace(moments, "<now>").replace(keys, "#").replace(groups, "TERVA_\\1");
}

KeptTables::KeptTables(TestDatabase& database) : database_(database)
{
    QString keep = "create schema kept;";
    for (const QStringList& table : database_.rows("select tablename from pg_tables where schemaname = 'public' and "
                                                   "tablename <> 'spatial_ref_sys' order by 1")) {
        keep += fill("create table kept.%1 as table public.%1;", table[0]);
        const QString columns = database_.value(
            fill("select string_agg(quote_ident(attname), ',' order by attnum) from pg_attribute where attrelid = "
                 "'public.%1'::regclass and attnum > 0 and not attisdropped and attgenerated = ''",
                 table[0]));
        scripts_[table[0]] = fill("delete from public.%1; insert into public.%1 (%2) overriding system value select %2 "
                                  "from kept.%1;",
                                  table[0], columns);
        if (!unseen.contains(table[0]))
            look_ += fill("%1 select '%2 ' || t::text from public.%2 t", look_.isEmpty() ? "" : " union all", table[0]);
    }
    for (const QStringList& sequence : database_.rows("select sequencename from pg_sequences where schemaname = "
                                                      "'public'"))
        keep += fill("select setval('public.%1', %2);", sequence[0], firstKey);
    database_.exec(keep);
    beginning_ = rows();
}

QStringList KeptTables::rows() const
{
    QStringList lines;
    for (const QStringList& row : database_.rows(look_))
        lines << withoutKeys(row[0]);
    lines.sort();
    return lines;
}

void KeptTables::layBack(const QStringList& found) const
{
    QString script = "set session_replication_role = replica;";
    QSet<QString> changed(unseen.begin(), unseen.end());
    QStringList differing;
    std::set_symmetric_difference(found.begin(), found.end(), beginning_.begin(), beginning_.end(),
                                  std::back_inserter(differing));
    for (const QString& line : differing)
        changed << line.section(' ', 0, 0);
    for (const QString& table : changed)
        script += scripts_.value(table);
    database_.exec(script + "set session_replication_role = origin;");
}
