#include "exchange/forms/import_combos.h"

#include "formkit/choices.h"
#include "session/project_session.h"

using namespace formkit;

namespace {

// The rows of the statement behind an entry that stands for none.
void offer(QComboBox* combo, const QString& none, const Statement& statement, int texts)
{
    setChoices(combo, Choices{{none, -1}} + choicesOf(session().run(statement), texts));
}

} // namespace

void fillCycles(QComboBox* combo)
{
    offer(combo, QStringLiteral("Не выбран цикл"),
          "select cycle_id, number, TO_CHAR(date_start::date, 'dd.mm.yy') as date_start, TO_CHAR(date_end::date, "
          "'dd.mm.yy') as date_end,description,date_start as ds  from cycles order by ds",
          4);
}

void fillDevices(QComboBox* combo)
{
    offer(combo, QStringLiteral("Не выбрано устройство"),
          "select device_id, serial, description from devices order by device_id", 2);
}

void fillPerformers(QComboBox* combo)
{
    offer(combo, QStringLiteral("Не выбран исполнитель"),
          "select performer_id, fullname,name from performers order by performer_id", 2);
}

void fillPositions(QComboBox* combo)
{
    setChoices(combo,
               choicesOf(session().run("select position_id, position from positions   order by "
                                       "subobject_id,appearence")),
               Otherwise::None);
}

QString positionLabel(int positionId)
{
    const sql::Result row = session().run(compose("SELECT name,object,subobject,position FROM projects "
                                                  "LEFT JOIN objects USING (project_id) "
                                                  "LEFT JOIN subobjects USING (object_id) "
                                                  "LEFT JOIN positions USING (subobject_id) WHERE position_id=%1",
                                                  positionId));
    if (!row.isTuples() || row.ntuples() == 0)
        return QStringLiteral("Не выбрана позиция проекта");
    return QStringList{row.getvalue(0, 0), row.getvalue(0, 1), row.getvalue(0, 2), row.getvalue(0, 3)}.join(
        QLatin1Char('/'));
}
