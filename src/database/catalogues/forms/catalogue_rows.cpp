#include "database/catalogues/forms/catalogue_rows.h"

#include "database/catalogues/forms/catalogue_forms.h"
#include "database/catalogues/forms/cycle_form.h"
#include "database/catalogues/forms/state_form.h"

#include <limits>

using namespace formkit;

namespace {

template <class Form>
std::unique_ptr<RecordDialog> make(QWidget* parent)
{
    return std::make_unique<Form>(parent);
}

// A page of the project explorer: a list of lines above three icons.
Catalogue page(const char* listName)
{
    Catalogue catalogue;
    catalogue.listName = QString::fromLatin1(listName);
    catalogue.notConnected = QStringLiteral("\nНе установлено соединение с базой данных\n");
    catalogue.create.icon = QStringLiteral("create");
    catalogue.edit.icon = QStringLiteral("edit");
    catalogue.erase.icon = QStringLiteral("delete");
    return catalogue;
}

Choices cycleStatuses() { return {{"План", 0}, {"Активный", 1}, {"Завершен", 2}}; }

// Elements of these families keep a state from being deleted; those of
// engineering-geological wells have never been counted.
constexpr const char* stateUses =
    "select count(state_id) from (select state_id from  dm_elements where state_id = '%1' union all "
    "select state_id from  rp_elements where state_id = '%1' union all "
    "select state_id from  ggs_elements where state_id = '%1' union all "
    "select state_id from  ts_elements where state_id = '%1' union all "
    "select state_id from  tss_elements where state_id = '%1' union all "
    "select state_id from  tsg_elements where state_id = '%1') as allelements";

} // namespace

// Only the measures of marks and wells are counted, here and in the other
// catalogues.
Catalogue cyclesCatalogue()
{
    Catalogue cycles = page("Cycles");
    cycles.statement = "select cycle_id, number, TO_CHAR(date_start::date, 'dd.mm.yy') as date_start, "
                       "TO_CHAR(date_end::date, 'dd.mm.yy') as date_end, description, date_start as ds from cycles "
                       "order by ds";
    cycles.texts = 4;
    cycles.counts = {"select count(cycle_id) from dm_meas where cycle_id=%1",
                     "select count(cycle_id) from ts_meas where cycle_id=%1"};
    cycles.refusal = "Цикл содержит измерения. Удаление невозможно!";
    cycles.question = "Удалить цикл измерений %1 ?";
    cycles.remove = "delete from cycles where cycle_id=%1";
    cycles.record = make<CycleForm>;
    return cycles;
}

Record cycleRecord()
{
    return {
        "CycleForm",
        "Цикл измерений",
        {
            Field::integer("CycleNumber", "Номер цикла", 0, std::numeric_limits<int>::max()).withoutUnit(),
            Field::date("DateBegin", "Дата начала"),
            Field::date("DateEnd", "Дата окончания"),
            Field::text("Description", "Описание"),
            Field::choice("cycle_status", "Статус", cycleStatuses),
        },
        "select cycle_id, number,date_start,date_end, description from cycles where cycle_id=%1",
        "INSERT INTO cycles (number, date_start, date_end, description) VALUES (%1, '%2', '%3', '%4') returning "
        "cycle_id ",
        "UPDATE cycles SET(number, date_start, date_end, description) = (%1, '%2', '%3', '%4') WHERE cycle_id = %5",
        {1, 2, 3, 4, -1},
    };
}

Catalogue devicesCatalogue()
{
    Catalogue devices = page("Devices");
    devices.statement = "select device_id, name, serial, description from devices order by device_id";
    devices.texts = 3;
    devices.counts = {"select count(device_id) from dm_meas where device_id=%1",
                      "select count(device_id) from ts_meas where device_id=%1"};
    devices.refusal = "Устройстро содержит измерения. Удаление невозможно!"; // users know it spelled so
    devices.question = "Удалить устройство %1 ?";
    devices.remove = "delete from devices where device_id=%1";
    devices.record = make<DeviceForm>;
    return devices;
}

Record deviceRecord()
{
    return {
        "DeviceForm",
        "Устройство",
        {
            Field::text("Name", "Наименование"),
            Field::text("Serial", "Серийный номер"),
            Field::text("Description", "Описание"),
        },
        "select device_id, name, serial, description from devices where device_id=%1",
        "INSERT INTO devices (name, serial, description) VALUES ('%1', '%2', '%3')",
        "UPDATE devices SET(name, serial, description) = ('%1', '%2', '%3') WHERE device_id = %4",
    };
}

Catalogue performersCatalogue()
{
    Catalogue performers = page("Performers");
    performers.statement = "select performer_id,fullname,name,post from performers order by performer_id;";
    performers.texts = 3;
    performers.counts = {"select count(performer_id) from dm_meas where performer_id=%1",
                         "select count(performer_id) from ts_meas where performer_id=%1"};
    performers.refusal = "Исполнителем выполнены измерения. Удаление невозможно!";
    performers.question = "Удалить исполнителя %1 ?";
    performers.remove = "delete from performers where performer_id=%1";
    performers.record = make<PerformerForm>;
    return performers;
}

Record performerRecord()
{
    return {
        "PerformerForm",
        "Исполнитель",
        {
            Field::text("Name", "Имя"),
            Field::text("FullName", "ФИО (Полностью)"),
            Field::text("Post", "Должность"),
        },
        "select performer_id,fullname,name,post from performers where performer_id=%1",
        "INSERT INTO performers (fullname, name, post) VALUES ('%1', '%2', '%3')",
        "UPDATE performers SET(fullname, name, post) = ('%1', '%2', '%3') WHERE performer_id = %4",
        {2, 1, 3},
    };
}

// A table of the page with the placement settings: it has a menu and no buttons.
Catalogue statesCatalogue()
{
    Catalogue states;
    states.listName = "StatesTable";
    states.statement = "SELECT state_id, note , colorindex FROM states";
    states.texts = 2;
    states.titles = {"Состояние", "Цвет "};
    states.counts = {stateUses};
    states.refusal = "В базе данных присутствуют элементы с указанным состоянием.\n Его удалить невозможно.";
    states.remove = "DELETE FROM states WHERE state_id='%1'";
    states.record = make<StateForm>;
    for (ToolButton* entry : {&states.create, &states.edit, &states.erase})
        entry->name.clear();
    return states;
}

Record stateRecord()
{
    return {
        "StateForm",
        "Состояние",
        {
            Field::text("StateID", "ID:").matching("[0-9A-Za-z]+").starts("stateid"),
            Field::text("Note", "Описание:").starts("Описание"),
            Field::colourIndex("ColorIndex", "Цвет:").starts("7"),
        },
        "SELECT state_id, note, colorindex FROM states WHERE state_id='%1'",
        "insert into states (state_id,note,colorindex) values ('%1','%2',%3)",
        "update states set (note,colorindex)=('%2',%3) where state_id='%1' ",
        {0, 1, 2},
        ok(),
        rejects("CancelBtn", " Отмена"), // the blank has always been there
    };
}
