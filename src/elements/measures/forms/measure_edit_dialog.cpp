#include "elements/measures/forms/measure_edit_dialog.h"

#include "base/dates.h"
#include "base/placeholders.h"
#include "base/statement.h"
#include "base/text.h"
#include "base/written_date.h"
#include "formkit/boxes.h"
#include "formkit/layout.h"
#include "formkit/tab_order.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <cmath>

using namespace formkit;

namespace {

const QString dayFormat = QStringLiteral("yyyy-MM-dd");

// The range of a number that says none: fields are bound to it. An accuracy and a density are kept in
// the unit that the survey uses.
Field plainNumber(const char* name, const char* caption) { return Field::decimal(name, caption, 0.0, 99.99, 4); }

const MeasureEditor& editorOf(FamilyKey family)
{
    static const FamilyTable<MeasureEditor, measuredFamilyCount> rows = {
        {FamilyKey::Dm, "DMMeasureEditDialog", {plainNumber("meas", "Абсолютная отметка, м")}},
        {FamilyKey::Ts,
         "TSMeasureEditDialog",
         {Field::decimal("t_vozd", "Температура воздуха, °C", -100.0, 100.0).step(0.1)}},
        {FamilyKey::Rp,
         "RPMeasureEditDialog",
         {plainNumber("meas", "Абсолютная отметка, м"), plainNumber("precis", "Точность").withoutUnit()}},
        {FamilyKey::Tss,
         "TSSMeasureEditDialog",
         {plainNumber("meas_density", "Плотность снега").withoutUnit(),
          plainNumber("meas_heigth", "Высота снега").in("мм")}},
        {FamilyKey::Ggs, "GGSMeasureEditDialog", {plainNumber("meas", "Уровень грунтовых вод, м")}},
        {FamilyKey::Tsg,
         "TSGMeasureEditDialog",
         {plainNumber("env_temp", "Температура воздуха, °C"),
          plainNumber("exchanger_temp", "Температура теплообменника, °C")}},
    };
    return *rows.find(family);
}

Choices choicesFor(const EntryList& entries)
{
    Choices choices = {{QStringLiteral("Не установлено"), -1}};
    for (const ListEntry& entry : entries)
        choices.append({QString(entry.text).replace(QLatin1String(" | "), QLatin1String(" - ")), entry.id});
    return choices;
}

std::unique_ptr<BaseMeasure> measureWithLists(FamilyKey family)
{
    std::unique_ptr<BaseMeasure> measure = makeMeasure(family);
    measure->loadElements(true);
    measure->loadCycles();
    measure->loadDevices();
    measure->loadPerformers();
    return measure;
}

FieldList fieldsOf(const MeasureEditor& editor, const MeasureLists& lists)
{
    FieldList fields = {
        Field::shown("MeasID", "ID измерения"),
        Field::shown("ElementName", "Имя элемента"),
        Field::date("dateTimeEdit", "Дата"),
        Field::choice("CycleCombo", "Цикл измерений", [cycles = lists.cycles] { return choicesFor(cycles); }),
        Field::choice("ToolCombo", "Прибор", [devices = lists.devices] { return choicesFor(devices); }),
        Field::choice("PerformerCombo", "Исполнитель", [people = lists.performers] { return choicesFor(people); }),
    };
    fields.insert(fields.end(), editor.values.begin(), editor.values.end());
    return fields;
}

int idIn(const FieldPane& pane, const char* name) { return pane.text(QString::fromLatin1(name)).toInt(); }

} // namespace

MeasureEditDialog::MeasureEditDialog(FamilyKey family, QWidget* parent)
    : MeasureEditDialog(editorOf(family), measureWithLists(family), parent)
{ }

MeasureEditDialog::MeasureEditDialog(const MeasureEditor& editor, std::unique_ptr<BaseMeasure> measure, QWidget* parent)
    : FieldsDialog(editor.dialogName, measure->family().editTitle, fieldsOf(editor, measure->lists),
                   {accepts("ApplyBTN", "Сохранить"), rejects("CancelBTN", "Отмена")}, parent),
      editor_(editor),
      measure_(std::move(measure)),
      status_(note("StatusLabel"))
{
    auto* below = static_cast<QBoxLayout*>(layout());
    if (family(editor_.family).hasProfile) {
        profile_ = table("DataView", {"Глубина, м", "Температура, °C "});
        below->insertWidget(1, profile_, 1);
        orderTabs(*this);
    }
    below->insertWidget(below->count() - 1, status_);
    for (const char* name : {"CycleCombo", "ToolCombo", "PerformerCombo"})
        connect(fields().widget<QComboBox>(name), qOverload<int>(&QComboBox::currentIndexChanged), this,
                &MeasureEditDialog::showStatus);
}

MeasureEditDialog::~MeasureEditDialog() = default;

bool MeasureEditDialog::open(int measureId)
{
    if (measure_->load(measureId) != measureOk)
        return false;
    cycleBefore_ = measure_->cycleId;
    stored_ = measure_->values;
    const QDateTime day = measure_->date.isNull() ? measure_->cycleMiddle() : measure_->date;
    QStringList row = {QString::number(measureId),          measure_->elementName,
                       dateText(day.date(), dayFormat),     QString::number(measure_->cycleId),
                       QString::number(measure_->deviceId), QString::number(measure_->performerId)};
    for (size_t i = 0; i < editor_.values.size(); ++i)
        row.append(std::isfinite(measure_->values[i]) ? general(measure_->values[i], 17) : QString());
    fields().showRow(row);
    shown_.clear();
    for (const Field& value : editor_.values)
        shown_.append(fields().text(value.name));
    showProfile();
    showStatus();
    return true;
}

void MeasureEditDialog::showProfile()
{
    if (!profile_)
        return;
    const TemperatureProfile& profile = static_cast<const TSMeasure&>(*measure_).profile;
    profile_->setRowCount(profile.size());
    for (int row = 0; row < profile.size(); ++row) {
        profile_->setItem(row, 0, numberItem(profile[row].first, 1));
        profile_->setItem(row, 1, numberItem(profile[row].second, 1, QStringLiteral("--")));
    }
    fitColumns(profile_);
}

void MeasureEditDialog::showStatus()
{
    if (measure_->measureId == -1)
        return;
    take();
    QStringList lines = {measure_->problemText(QStringLiteral("\n"))};
    for (size_t i = 0; i < editor_.values.size(); ++i) {
        const double stored = stored_[i];
        const auto* field = fields().widget<QDoubleSpinBox>(editor_.values[i].name);
        if (std::isfinite(stored) && (stored < field->minimum() || stored > field->maximum()))
            lines.append(fill("В базе %1: поле показывает от %2 до %3 и, пока не изменено, ничего не меняет.",
                              general(stored, 10), general(field->minimum()), general(field->maximum())));
    }
    status_->setText(lines.join(QLatin1Char('\n')));
}

// The record as the widgets say. A number that the user left alone stays as it
// is stored: the field may show less of it than there is.
void MeasureEditDialog::take()
{
    const QDate day = dateFrom(fields().text(QStringLiteral("dateTimeEdit")), dayFormat);
    if (day != measure_->date.date())
        measure_->date = writtenMoment(day);
    measure_->setCycleId(idIn(fields(), "CycleCombo"));
    measure_->setDeviceId(idIn(fields(), "ToolCombo"));
    measure_->setPerformerId(idIn(fields(), "PerformerCombo"));
    for (size_t i = 0; i < editor_.values.size(); ++i) {
        const QString text = fields().text(editor_.values[i].name);
        measure_->values[i] = text == shown_.value(int(i)) ? stored_[i] : text.toDouble();
    }
}

bool MeasureEditDialog::cycleIsTaken() const
{
    return measure_->cycleId != cycleBefore_
        && session()
               .run(compose("select cycle_id from %3 where cycle_id=%1 and element_id=%2", measure_->cycleId,
                            measure_->elementId, Identifier(measure_->family().measureTable)))
               .hasRow();
}

void MeasureEditDialog::accept()
{
    if (!session().checkConnection())
        return say("\nНе установлено соединение с базой данных\n");
    take();
    if (cycleIsTaken())
        return warn(this, measure_->family().cycleTaken);
    if (!measure_->isComplete())
        return warn(this, measure_->problemText(QStringLiteral("\n")));
    FieldsDialog::accept();
}

bool MeasureEditDialog::store()
{
    session().run(measure_->updateSql(measure_->measureId));
    return true;
}
