#include "formkit/record_dialog.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "formkit/boxes.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <map>

namespace formkit {

namespace {

constexpr int kLeastWidth = 52; // characters: a name and its caption in one line

} // namespace

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
        return warn(this, wrong, faultTitle());
    if (store())
        QDialog::accept();
}

RecordDialog::RecordDialog(const Record& record, QWidget* parent)
    : FieldsDialog(record.name, record.title, record.fields, {record.save, record.leave}, parent), record_(record)
{
    setMinimumWidth(fontMetrics().averageCharWidth() * kLeastWidth);
}

void RecordDialog::showNew()
{
    key_.clear();
    fields().showStart();
    shown();
    fields().setClean();
}

std::optional<QStringList> RecordDialog::load(const QString& key)
{
    const sql::Result row = session().run(compose(record_.load, Entered(key)));
    if (!row.hasRow())
        return {};
    QStringList values;
    for (int field = 0; field < int(record_.fields.size()); ++field)
        values << (columnOf(field) < 0 ? QString() : row.getvalue(0, columnOf(field)));
    return values;
}

bool RecordDialog::showStored(const QString& key)
{
    const std::optional<QStringList> values = load(key);
    if (!values)
        return false;
    key_ = key;
    fields().showRow(*values);
    shown();
    fields().setClean();
    return true;
}

int RecordDialog::columnOf(int field) const
{
    return record_.columns.empty() ? field + 1 : record_.columns[size_t(field)];
}

QStringList RecordDialog::values() const
{
    const QStringList shown = fields().row();
    std::map<int, QString> byColumn;
    for (int field = 0; field < shown.size(); ++field) {
        if (columnOf(field) >= 0)
            byColumn[columnOf(field)] = shown[field];
    }
    QStringList ordered;
    for (const auto& [column, value] : byColumn)
        ordered << value;
    return ordered;
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
