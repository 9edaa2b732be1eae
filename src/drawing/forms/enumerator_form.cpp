#include "drawing/forms/enumerator_form.h"

#include "drawing/next_name.h"

using namespace formkit;

namespace {

const FieldList numbering = {
    Field::text("Prefix", "Префикс"),
    Field::text("Counter", "Счетчик"),
    Field::integer("Trailing", "Число знаков", 0, 999).withoutUnit(),
    Field::shown("TextLabel", "Следующее имя"),
};

} // namespace

EnumeratorForm::EnumeratorForm(Enumerator& enumerator, QWidget* parent)
    : FieldsDialog("EnumeratorForm", "Настройка нумерации", numbering, {ok(), cancel()}, parent),
      enumerator_(enumerator)
{
    fields().showRow({enumerator.prefix, QString::number(enumerator.counter), QString::number(enumerator.trailing)});
    setMinimumWidth(320);
    connect(&fields(), &FieldPane::changed, this, &EnumeratorForm::showPreview);
    showPreview();
}

bool EnumeratorForm::store()
{
    enumerator_ = entered();
    return true;
}

Enumerator EnumeratorForm::entered() const
{
    // A counter that is no number counts as 0.
    return {fields().text("Prefix"), fields().text("Counter").toInt(), fields().text("Trailing").toInt()};
}

void EnumeratorForm::showPreview() { fields().setText("TextLabel", nextName(entered())); }
