#include "elements/passports/forms/measure_actions.h"

#include "base/placeholders.h"
#include "elements/measures/forms/measure_edit_dialog.h"
#include "formkit/boxes.h"
#include "hostkit/console.h"

#include <QMenu>

MeasureActions::MeasureActions(PassportRecord& record, QWidget* parent)
    : QObject(parent), record_(record), parent_(parent)
{ }

void MeasureActions::edit(int measureId)
{
    MeasureEditDialog dialog(record_.family().family, parent_->window());
    if (!dialog.open(measureId) || dialog.exec() != QDialog::Accepted)
        return;
    say(fill("\nИзмерение с  id=%1 обновлено", measureId));
    readAgain();
}

void MeasureActions::erase(int measureId)
{
    if (formkit::confirm(parent_, "Измерение будет удалено") && record_.deleteMeasure(measureId))
        readAgain();
}

void MeasureActions::addTo(QMenu& menu, int measureId)
{
    menu.addAction(QStringLiteral("Редактировать данные"), this, [this, measureId] { edit(measureId); });
    menu.addAction(QStringLiteral("Удалить измерение"), this, [this, measureId] { erase(measureId); });
}

void MeasureActions::readAgain()
{
    record_.readMeasures();
    emit changed();
}
