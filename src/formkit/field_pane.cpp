#include "formkit/field_pane.h"

#include <QFormLayout>
#include <QLabel>
#include <QScopedValueRollback>

namespace formkit {

FieldPane::FieldPane(const FieldList& fields, QWidget* parent)
    : QWidget(parent), fields_(fields), layout_(new QFormLayout(this))
{
    layout_->setContentsMargins(0, 0, 0, 0);
    for (const Field& field : fields_) {
        editors_.push_back(makeEditor(field, [this] { noteChange(); }));
        const FieldEditor& made = editors_.back();
        layout_->addRow(field.kind == FieldKind::Check ? QString() : field.caption, made.place);
        if (auto* caption = qobject_cast<QLabel*>(layout_->labelForField(made.place)))
            caption->setBuddy(made.widget); // which may stand in its place with a button
    }
    showStart();
}

void FieldPane::noteChange()
{
    if (!showing_)
        dirty_ = true;
    emit changed();
}

void FieldPane::showRow(const QStringList& values)
{
    const QScopedValueRollback<bool> showing(showing_, true);
    for (int i = 0; i < int(editors_.size()); ++i)
        editors_[size_t(i)].show(values.value(i));
    dirty_ = false;
}

void FieldPane::showRow(const sql::Result& rows, int row, int firstColumn)
{
    QStringList values;
    for (int i = 0; i < int(fields_.size()); ++i)
        values.append(rows.getvalue(row, firstColumn + i));
    showRow(values);
}

void FieldPane::showStart()
{
    QStringList values;
    for (const Field& field : fields_)
        values.append(field.start);
    showRow(values);
}

QStringList FieldPane::row() const
{
    QStringList values;
    for (size_t i = 0; i < editors_.size(); ++i) {
        const QString value = editors_[i].text();
        values.append(value.isEmpty() ? fields_[i].empty : value);
    }
    return values;
}

int FieldPane::indexOf(const QString& name) const
{
    for (int i = 0; i < int(fields_.size()); ++i) {
        if (fields_[size_t(i)].name == name)
            return i;
    }
    return -1;
}

QString FieldPane::text(const QString& name) const
{
    const int index = indexOf(name);
    return index < 0 ? QString() : editors_[size_t(index)].text();
}

void FieldPane::setText(const QString& name, const QString& value)
{
    const int index = indexOf(name);
    if (index >= 0)
        editors_[size_t(index)].show(value);
}

void FieldPane::reloadChoices()
{
    for (const FieldEditor& editor : editors_) {
        if (editor.reload)
            editor.reload();
    }
}

void FieldPane::setFieldVisible(const QString& name, bool visible)
{
    const int index = indexOf(name);
    if (index < 0)
        return;
    QWidget* place = editors_[size_t(index)].place;
    place->setVisible(visible);
    if (QWidget* caption = layout_->labelForField(place))
        caption->setVisible(visible);
}

QString FieldPane::fault() const
{
    for (size_t i = 0; i < editors_.size(); ++i) {
        QString fault = faultOf(fields_[i], editors_[i].text());
        if (!fault.isEmpty())
            return fault;
    }
    return {};
}

} // namespace formkit
