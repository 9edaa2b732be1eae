#include "elements/list/forms/cycle_question.h"

#include "formkit/record_dialog.h"

using namespace formkit;

std::optional<int> askCycle(QWidget* parent, const QString& title, int preset)
{
    const FieldList fields = {Field::choice("CycleCombo", "Цикл", [] { return session().cycleEntries(" - "); })
                                  .starts(QString::number(preset))
                                  .required("Не выбран цикл")};
    FieldsDialog form(QStringLiteral("CycleQuestion"), title, fields,
                      {accepts(QStringLiteral("OkBtn"), QStringLiteral("ОК")), cancel()}, parent);
    if (form.exec() != QDialog::Accepted)
        return {};
    return form.fields().text(QStringLiteral("CycleCombo")).toInt();
}
