#include "elements/passports/forms/general_page.h"

#include "elements/passports/forms/inspection_view.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

GeneralPage::GeneralPage(PassportRecord& record, QWidget* parent)
    : PassportPage(record, parent), fields_(record), inspections_(named<InspectionView>("InspectionsView", record))
{
    QWidget* plain = within(340,
                            pane(column({
                                fields_.pane(PassportGroup::Plain),
                                group("Координаты").column({fields_.pane(PassportGroup::Place)}),
                                stretch(),
                            })));
    layOut(this).row({
        plain,
        growing(group("Обследование").column({fields_.pane(PassportGroup::Survey), growing(inspections_)})),
    });
    connect(inspections_, &InspectionView::changed, this, &GeneralPage::showAfterInspection);
}

void GeneralPage::showRecord()
{
    fields_.showRow();
    inspections_->showInspections();
}

QString GeneralPage::fault() const { return record().row.passportFault(fields_.values()); }

bool GeneralPage::store() { return record().row.update(fields_.values()); }

// What the user typed elsewhere stays.
void GeneralPage::showAfterInspection()
{
    fields_.setValue(StateId, record().row.value(StateId));
    const InspectionFamily* inspected = inspectionFamily(record().family().family);
    if (!inspected || !inspected->afterOne)
        return;
    fields_.setValue(Height, record().row.value(Height));
    fields_.setValue(FirstExtra + 1, record().row.value(FirstExtra + 1)); // the depth as it was inspected
}
