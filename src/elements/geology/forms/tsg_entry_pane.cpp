#include "elements/geology/forms/tsg_entry_pane.h"

#include "base/placeholders.h"
#include "elements/geology/forms/heat_exchange_table.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

namespace {

constexpr int leastNumberWidth = 76;

Field number(const char* name, const char* caption) { return Field::number(name, caption).emptyAs("null"); }

FieldList naming() { return {Field::text("name", "Наименование").required(), Field::text("note", "Примечание")}; }

// The third column's spelling is the table's own.
FieldList condenser()
{
    return {number("condensator_area", "Площадь, м²"), number("condensator_radius", "Радиус, м"),
            number("condensatot_eff", "Эффективность").withoutUnit()};
}

FieldList evaporator()
{
    return {number("vaporizer_area", "Площадь, м²"), number("vaporizer_length", "Длина, м"),
            number("vaporizer_radius", "Радиус, м"), number("vaporizer_eff", "Эффективность").withoutUnit()};
}

FieldList exchanger()
{
    return {number("exchanger_area", "Площадь, м²"), number("exchanger_length", "Длина, м"),
            number("exchanger_radius", "Радиус, м"), Field::check("exchanger_switch", "Включён")};
}

} // namespace

TSGEntryPane::TSGEntryPane(QWidget* parent) : QWidget(parent)
{
    for (const FieldList& fields : {naming(), condenser(), evaporator(), exchanger()}) {
        parts_.push_back(new FieldPane(fields));
        for (QLineEdit* line : parts_.back()->findChildren<QLineEdit*>())
            line->setMinimumWidth(leastNumberWidth);
    }
    layOut(this).column({
        title_ = readOut("TitleLabel"),
        parts_[0],
        row({
            group("Конденсатор").column({parts_[1], stretch()}),
            group("Испаритель").column({parts_[2], stretch()}),
            group("Теплообменник").column({parts_[3], stretch()}),
        }),
        group("Скорость").column({exchange_ = named<HeatExchangeTable>("HeatExchange")}),
        stretch(),
    });
    layout()->setContentsMargins(0, 0, 0, 0);
    connect(exchange_, &HeatExchangeTable::edited, this, [this] { exchangeDirty_ = true; });
    connect(parts_[0], &FieldPane::changed, this, [this] { exchange_->setEntryName(name()); });
}

void TSGEntryPane::showRow(const QStringList& shown)
{
    int at = 0;
    for (FieldPane* part : parts_) {
        const int count = part->row().size();
        part->showRow(shown.mid(at, count));
        at += count;
    }
    exchange_->showPairs(parseHeatExchange(shown.value(at)));
    exchange_->setEntryName(name());
    exchangeDirty_ = false;
    title_->setText(shown.isEmpty() ? QString() : fill("СОУ: %1", name()));
}

QStringList TSGEntryPane::values() const
{
    QStringList values;
    for (const FieldPane* part : parts_)
        values << part->row();
    return values << heatExchangeText(exchange_->pairs());
}

QString TSGEntryPane::name() const { return parts_[0]->text("name"); }

QString TSGEntryPane::fault() const
{
    for (const FieldPane* part : parts_) {
        QString fault = part->fault();
        if (!fault.isEmpty())
            return fault;
    }
    return heatExchangeFault(exchange_->pairs());
}

bool TSGEntryPane::isDirty() const
{
    for (const FieldPane* part : parts_) {
        if (part->isDirty())
            return true;
    }
    return exchangeDirty_;
}
