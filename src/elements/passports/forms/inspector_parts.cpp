#include "elements/passports/forms/inspector_parts.h"

#include "base/dates.h"
#include "elements/passports/forms/measure_actions.h"
#include "elements/passports/forms/measure_view.h"
#include "formkit/layout.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"

#include <QMenu>

using namespace formkit;

namespace {

constexpr int kLeastTable = 160; // pixels

template <class Part>
InspectorPart* make(PassportRecord& record)
{
    return new Part(record);
}

struct FamilyPart {
    FamilyKey family;
    InspectorPart* (*make)(PassportRecord& record);
};

} // namespace

InspectorPart* makeInspectorPart(PassportRecord& record)
{
    static const FamilyTable<FamilyPart> rows = {
        {FamilyKey::Dm, make<MeasuresPart>},  {FamilyKey::Ts, make<ProfilesPart>},
        {FamilyKey::Rp, make<MeasuresPart>},  {FamilyKey::Ggs, make<MeasuresPart>},
        {FamilyKey::Igs, make<DrillingPart>}, {FamilyKey::Tss, make<MeasuresPart>},
        {FamilyKey::Tsg, make<MeasuresPart>},
    };
    return rows[record.family().family].make(record);
}

// --- measures ---------------------------------------------------------------------------

MeasuresPart::MeasuresPart(PassportRecord& record) : view_(named<MeasureView>("MeasView", record))
{
    view_->setMinimumHeight(kLeastTable);
    layOut(this).column({group("Измерения").column({growing(view_)})});
    layout()->setContentsMargins(0, 0, 0, 0);
}

void MeasuresPart::showRecord() { view_->showMeasures(); }

// --- profiles ---------------------------------------------------------------------------

ProfilesPart::ProfilesPart(PassportRecord& record)
    : record_(record),
      actions_(new MeasureActions(record, this)),
      cycles_(narrowCombo("CycleCombo", 8)),
      date_(readOut("MeasureDate")),
      profile_(table("MeasView", {"Глубина, м", "Температура, °C"}))
{
    profile_->setMinimumHeight(kLeastTable);
    profile_->setContextMenuPolicy(Qt::CustomContextMenu);
    layOut(this).column({group("Измерения")
                             .column({
                                 lines({{"Цикл измерений", cycles_}, {"Дата измерений", date_}}),
                                 growing(profile_),
                             })});
    layout()->setContentsMargins(0, 0, 0, 0);
    connect(cycles_, qOverload<int>(&QComboBox::currentIndexChanged), this, &ProfilesPart::showProfile);
    connect(profile_, &QWidget::customContextMenuRequested, this, &ProfilesPart::showMenu);
    connect(actions_, &MeasureActions::changed, this, &ProfilesPart::fillCycles);
}

void ProfilesPart::showRecord()
{
    fillCycles();
    // The latest measure is the one that is looked for.
    cycles_->setCurrentIndex(cycles_->count() - 1);
}

void ProfilesPart::fillCycles()
{
    Choices choices;
    for (const std::unique_ptr<BaseMeasure>& measure : record_.measures)
        choices.append({record_.lists.cycleText(measure->cycleId), measure->measureId});
    setChoices(cycles_, choices);
    showProfile();
}

const BaseMeasure* ProfilesPart::chosen() const
{
    for (const std::unique_ptr<BaseMeasure>& measure : record_.measures) {
        if (measure->measureId == chosenId(cycles_))
            return measure.get();
    }
    return nullptr;
}

void ProfilesPart::showProfile()
{
    const auto* measure = static_cast<const TSMeasure*>(chosen());
    date_->setText(measure ? dateText(measure->date.date(), QStringLiteral("dd.MM.yyyy")) : QString());
    const TemperatureLog log = measure ? logOf(measure->profile) : TemperatureLog();
    profile_->setRowCount(int(log.size()));
    int row = 0;
    for (const auto& [depth, temperature] : log) {
        profile_->setItem(row, 0, numberItem(depth, 2));
        profile_->setItem(row++, 1, numberItem(temperature, 2, QStringLiteral("--")));
    }
    fitColumns(profile_);
}

void ProfilesPart::showMenu(const QPoint& place)
{
    const BaseMeasure* measure = chosen();
    if (!measure)
        return;
    QMenu menu(this);
    actions_->addTo(menu, measure->measureId);
    menu.exec(profile_->viewport()->mapToGlobal(place));
}

// --- drilling ---------------------------------------------------------------------------

DrillingPart::DrillingPart(PassportRecord& record) : record_(record)
{
    layOut(this).column({fields_.pane(), stretch()});
    layout()->setContentsMargins(0, 0, 0, 0);
}

void DrillingPart::showRecord() { fields_.show(record_.row.isRead() ? row_.read(record_.id()) : IgsGeology()); }

void DrillingPart::store() { row_.write(record_.id(), fields_.geology(), IgsGeologyRow::Writer::Inspector); }
