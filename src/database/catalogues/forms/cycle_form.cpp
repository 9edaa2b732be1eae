#include "database/catalogues/forms/cycle_form.h"

#include "base/dates.h"
#include "base/statement.h"
#include "database/catalogues/forms/catalogue_rows.h"

namespace {

const QString status = QStringLiteral("cycle_status");

} // namespace

CycleForm::CycleForm(QWidget* parent) : RecordDialog(cycleRecord(), parent) { }

// The status is a field of its own statements: a new cycle takes the database's
// default, one without a status shows the first and is saved with it.
void CycleForm::shown()
{
    hasStatus_ = false;
    if (isNew()) {
        startNew();
    } else {
        const sql::Result row =
            session().run(compose("select cycle_status from cycles where cycle_id=%1", Entered(key())));
        hasStatus_ = row.hasRow();
        fields().setText(status, QString::number(row.toInt(0, 0)));
    }
    fields().setFieldVisible(status, hasStatus_);
}

void CycleForm::startNew()
{
    int last = 0;
    for (const QStringList& cycle : qAsConst(session().cycles))
        last = qMax(last, cycle.value(0).toInt());
    fields().setText("CycleNumber", QString::number(last + 1));
    fields().setText("DateEnd", dateText(QDate::currentDate().addMonths(1), "yyyy-MM-dd"));
}

bool CycleForm::store()
{
    RecordDialog::store();
    const QString chosen = fields().text(status);
    if (hasStatus_ && !chosen.isEmpty())
        session().run(
            compose("UPDATE cycles SET cycle_status = %1 WHERE cycle_id = %2", Entered(chosen), Entered(key())));
    return true;
}
