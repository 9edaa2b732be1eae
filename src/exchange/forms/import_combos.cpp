#include "exchange/forms/import_combos.h"

#include "session/project_session.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace {

// Adds an entry a row: the columns behind the key joined by " - ".
void addRows(QComboBox* combo, const QString& statement, int texts)
{
    const sql::Result rows = session().run(statement);
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        QStringList parts;
        for (int column = 1; column <= texts; ++column)
            parts.append(rows.getvalue(row, column));
        combo->addItem(parts.join(QStringLiteral(" - ")), rows.toInt(row, 0));
    }
}

void refill(QComboBox* combo, const QString& first, const QString& statement, int texts)
{
    const QSignalBlocker quiet(combo);
    const QVariant chosen = combo->currentData();
    combo->clear();
    if (!first.isNull())
        combo->addItem(first, -1);
    addRows(combo, statement, texts);
    const int before = chosen.isValid() ? combo->findData(chosen) : -1;
    combo->setCurrentIndex(first.isNull() ? before : qMax(0, before));
}

} // namespace

void fillCycles(QComboBox* combo)
{
    refill(combo, QStringLiteral("Не выбран цикл"),
           "select cycle_id, number, TO_CHAR(date_start::date, 'dd.mm.yy') as date_start, TO_CHAR(date_end::date, "
           "'dd.mm.yy') as date_end,description,date_start as ds  from cycles order by ds",
           4);
}

void fillDevices(QComboBox* combo)
{
    refill(combo, QStringLiteral("Не выбрано устройство"),
           "select device_id, serial, description from devices order by device_id", 2);
}

void fillPerformers(QComboBox* combo)
{
    refill(combo, QStringLiteral("Не выбран исполнитель"),
           "select performer_id, fullname,name from performers order by performer_id", 2);
}

void fillPositions(QComboBox* combo)
{
    refill(combo, QString(), "select position_id, position from positions   order by subobject_id,appearence", 1);
}

QString positionLabel(int positionId)
{
    const sql::Result row = session().run("SELECT name,object,subobject,position FROM projects "
                                          "LEFT JOIN objects USING (project_id) "
                                          "LEFT JOIN subobjects USING (object_id) "
                                          "LEFT JOIN positions USING (subobject_id) WHERE position_id="
                                          + QString::number(positionId));
    if (!row.isTuples() || row.ntuples() == 0)
        return QStringLiteral("Не выбрана позиция проекта");
    return QStringList{row.getvalue(0, 0), row.getvalue(0, 1), row.getvalue(0, 2), row.getvalue(0, 3)}.join(
        QLatin1Char('/'));
}
