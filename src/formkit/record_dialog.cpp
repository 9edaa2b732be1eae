#include "formkit/record_dialog.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "formkit/boxes.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

namespace formkit {

FieldsDialog::FieldsDialog(const QString& name, const QString& title, const FieldList& fields,
                           std::initializer_list<EndButton> ends, QWidget* parent)
    : QDialog(parent), fields_(new FieldPane(fields))
{
    nameForm(this, name, title);
    layOut(this).column({fields_, endButtons(this, ends)});
}

void FieldsDialog::accept()
{
    const QString wrong = fault();
    if (!wrong.isEmpty())
        return warn(this, wrong);
    if (store())
        QDialog::accept();
}

RecordDialog::RecordDialog(const Record& record, QWidget* parent)
    : FieldsDialog(record.name, record.title, record.fields, {record.save, record.leave}, parent), record_(record)
{ }

void RecordDialog::showNew()
{
    key_.clear();
    fields().showStart();
    shown();
    fields().setClean();
}

bool RecordDialog::showStored(const QString& key)
{
    const sql::Result row = session().run(compose(record_.load, Entered(key)));
    if (!row.isTuples() || row.ntuples() == 0)
        return false;
    key_ = key;
    fields().showRow(row, 0, 1);
    shown();
    fields().setClean();
    return true;
}

bool RecordDialog::store()
{
    if (!isNew()) {
        session().run(compose(record_.update, entered(values() << key_)));
        return true;
    }
    const sql::Result added = session().run(compose(record_.insert, entered(values())));
    if (added.isTuples() && added.ntuples() == 1)
        key_ = added.getvalue(0, 0);
    return true;
}

} // namespace formkit
