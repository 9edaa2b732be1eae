#include "elements/measures/measure_lists.h"

#include "base/dates.h"
#include "base/statement.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <algorithm>

namespace {

const QString separator = QStringLiteral(" | ");

// Runs the query of a list; false when there is nothing to read.
bool query(const Statement& statement, sql::Result& rows)
{
    if (!session().checkConnection()) {
        say("\nНе установлено соединение с базой данных\n");
        return false;
    }
    rows = session().run(statement);
    return rows.isTuples();
}

// Entries of (id, text, text, ...): the texts joined up to the last column asked for.
EntryList entriesOf(const sql::Result& rows, int lastText)
{
    EntryList entries;
    entries.reserve(rows.ntuples());
    for (int row = 0; row < rows.ntuples(); ++row) {
        QStringList parts;
        for (int column = 1; column <= lastText; ++column)
            parts.append(rows.getvalue(row, column));
        entries.append({parts.join(separator), rows.toInt(row, 0)});
    }
    return entries;
}

int loadEntries(const Statement& statement, int lastText, EntryList& entries)
{
    sql::Result rows;
    if (!query(statement, rows))
        return measureNoConnection;
    entries = entriesOf(rows, lastText);
    return measureOk;
}

// The server prints years with two digits, which are read as 19yy.
QDate cycleDate(const QString& text) { return dateFrom(text, QStringLiteral("dd.MM.yy")).addYears(100); }

} // namespace

bool CycleRecord::holds(const QDate& date) const
{
    return first.isValid() && last.isValid() && first <= date && date <= last;
}

int loadElements(MeasureLists& lists, const QString& elementTable, int positionId, bool allBase)
{
    const Identifier table(elementTable);
    const Statement statement = allBase
        ? compose("select element_id, element_name from %1 order by element_name", table)
        : compose("select element_id, element_name from %1 where position_id = %2 ", table, positionId);
    return loadEntries(statement, 1, lists.elements);
}

int loadCycles(MeasureLists& lists)
{
    enum Column { Id, Number, First, Last, Description, FirstDate };
    sql::Result rows;
    if (!query("select cycle_id, number, TO_CHAR(date_start::date, 'dd.mm.yy') as date_start, "
               "TO_CHAR(date_end::date, 'dd.mm.yy') as date_end,description,date_start as ds from cycles "
               "order by ds",
               rows))
        return measureNoConnection;
    lists.cycles = entriesOf(rows, Description);
    lists.cycleRecords.clear();
    for (int row = 0; row < rows.ntuples(); ++row)
        lists.cycleRecords.append({rows.toInt(row, Id), rows.getvalue(row, Number),
                                   cycleDate(rows.getvalue(row, First)), cycleDate(rows.getvalue(row, Last)),
                                   rows.getvalue(row, Description)});
    return measureOk;
}

int loadDevices(MeasureLists& lists)
{
    return loadEntries("select device_id, serial, description from devices order by device_id", 2, lists.devices);
}

int loadPerformers(MeasureLists& lists)
{
    return loadEntries("select performer_id, fullname,name from performers order by performer_id", 2, lists.performers);
}

int indexOfId(const EntryList& list, int id)
{
    const auto found = std::find_if(list.begin(), list.end(), [id](const ListEntry& entry) { return entry.id == id; });
    return found == list.end() ? -1 : int(found - list.begin());
}

QString serialOf(const ListEntry& device) { return device.text.split(separator).first(); }
