#include "elements/passports/passport_lists.h"

#include "base/placeholders.h"
#include "base/statement.h"

namespace {

QVector<ComboEntry> entriesOf(const sql::Result& rows)
{
    QVector<ComboEntry> entries;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        entries.append({rows.getvalue(row, 1), rows.getvalue(row, 0)});
    return entries;
}

// "second (third)" by the key that stands first.
QMap<int, QString> namesOf(const sql::Result& rows)
{
    QMap<int, QString> names;
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        names.insert(rows.toInt(row, 0), fill("%1 (%2)", rows.getvalue(row, 1), rows.getvalue(row, 2)));
    return names;
}

} // namespace

void PassportLists::read(const PassportFamily& family)
{
    types = entriesOf(session().run(compose("select type_id,name from %1", Identifier(family.tables().types))));
    positions = entriesOf(session().run("select position_id, position from positions order by position_id"));
    const sql::Result cycles = session().run(
        "select cycle_id, number, TO_CHAR(date_start::date, 'dd.mm.yy') as date_start, TO_CHAR(date_end::date, "
        "'dd.mm.yy') as date_end, description, date_start as ds from cycles order by ds");
    cycleOrder.clear();
    cycleNumbers.clear();
    for (int row = 0; cycles.isTuples() && row < cycles.ntuples(); ++row) {
        cycleOrder.append(cycles.toInt(row, 0));
        cycleNumbers.insert(cycles.toInt(row, 0), cycles.getvalue(row, 1));
    }
    devices = namesOf(session().run("select device_id, name,serial,description from devices"));
    performers = namesOf(session().run("select performer_id, fullname,name,post from performers"));
}

QString PassportLists::cycleText(int cycleId) const
{
    return cycleNumbers.contains(cycleId) ? fill("Цикл %1", cycleNumbers.value(cycleId)) : QString();
}
