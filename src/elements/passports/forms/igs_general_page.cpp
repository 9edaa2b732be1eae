#include "elements/passports/forms/igs_general_page.h"

#include "elements/geology/well_name.h"
#include "formkit/boxes.h"
#include "formkit/layout.h"

using namespace formkit;

IgsGeneralPage::IgsGeneralPage(PassportRecord& record, QWidget* parent) : PassportPage(record, parent), fields_(record)
{
    layOut(this).row({
        growing(pane(column({fields_.pane(PassportGroup::Plain), stretch()}))),
        growing(pane(column({geology_.pane(), stretch()}))),
    });
}

void IgsGeneralPage::showRecord()
{
    fields_.showRow();
    geology_.show(record().row.isRead() ? geologyRow_.read(record().id()) : IgsGeology());
}

QString IgsGeneralPage::fault() const
{
    const QStringList values = fields_.values();
    bool isPosition = false;
    const int position = values.value(PositionId).toInt(&isPosition);
    const QString wrong = geologicalWellNameFault(record().id(), isPosition ? position : -1, values.value(ElementName));
    return wrong.isEmpty() ? geology_.fault() : wrong;
}

bool IgsGeneralPage::store()
{
    return record().row.update(fields_.values())
        && geologyRow_.write(record().id(), geology_.geology(), IgsGeologyRow::Writer::Passport);
}

void IgsGeneralPage::tellStored() { inform(this, "Данные сохранены", "Успех"); }
