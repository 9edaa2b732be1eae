#include "elements/passports/forms/igs_geology_fields.h"

#include "base/dates.h"

using namespace formkit;

namespace {

const QString drilled = QStringLiteral("DrillingDate");
const QString waterLevel = QStringLiteral("GroundWaterLevel");
const QString description = QStringLiteral("Description");

} // namespace

IgsGeologyFields::IgsGeologyFields()
    : pane_(new FieldPane({
        Field::text("DrillingDate", "Дата бурения:").matching("[0-9.]{0,10}").tip("ДД.ММ.ГГГГ; пусто, если неизвестна"),
        Field::number("GroundWaterLevel", "Уровень грунтовых вод (м):"),
        Field::lines("Description", "Описание:"),
    }))
{ }

void IgsGeologyFields::show(const IgsGeology& geology)
{
    const QString date = geology.drilled.isValid() ? dateText(geology.drilled, drillingDateFormat()) : QString();
    pane_->showRow({date, geology.waterLevel, geology.description});
}

QString IgsGeologyFields::fault() const
{
    QDate date;
    return readDrillingDate(pane_->text(drilled), date)
        ? QString()
        : QStringLiteral("Дата бурения указана неверно, нужно ДД.ММ.ГГГГ");
}

IgsGeology IgsGeologyFields::geology() const
{
    IgsGeology told;
    readDrillingDate(pane_->text(drilled), told.drilled);
    told.waterLevel = pane_->text(waterLevel);
    told.description = pane_->text(description);
    return told;
}
