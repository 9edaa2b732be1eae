// Fields, records and catalogues on a real table: devices, as its page shows them.
#include "formkit/catalogue_list.h"
#include "support/pictures.h"
#include "support/position_session.h"

#include <script/modal_driver.h>

#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <gtest/gtest.h>

using namespace formkit;

namespace {

const FieldList everyKind = {
    Field::text("Text", "Текст").required().longest(4),
    Field::password("Password", "Пароль"),
    Field::number("Number", "Число").emptyAs("null").withoutUnit(),
    Field::integer("Integer", "Целое", 0, 9).starts("3").in("шт."),
    Field::decimal("Decimal", "Дробное", -1.0, 1.0, 3).withoutUnit(),
    Field::lines("Lines", "Строки"),
    Field::date("Date", "Дата"),
    Field::check("Check", "Да"),
    Field::choice("Choice", "Выбор",
                  [] {
                      return Choices{{"нет", -1}, {"раз", 1}, {"два", 2}};
                  }),
    Field::path("Path", "Файл", "PathBtn", [](QWidget*, const QString& now) { return now + "!"; }),
    Field::colourHex("Hex", "Цвет").starts("#FFFFFF"),
    Field::colourIndex("Index", "Индекс").starts("1"),
    Field::shown("Shown", "Имя"),
};

TEST(FieldPane, EveryKindShowsARowAndGivesItBack)
{
    FieldPane pane(everyKind);
    const QStringList row = {"а", "п", "-1.5", "7",       "0.250", "раз\nдва", "2021-02-03",
                             "1", "2", "/x/y", "#102030", "5",     "Т-1"};
    pane.showRow(row);
    EXPECT_EQ(pane.row(), row);
    EXPECT_FALSE(pane.isDirty());
    EXPECT_EQ(pane.widget<QLineEdit>("Password")->echoMode(), QLineEdit::Password);
    EXPECT_EQ(pane.widget<QDateEdit>("Date")->text(), QString("03.02.2021"));
    EXPECT_EQ(pane.widget<QPushButton>("Index")->styleSheet(),
              QString("background-color: rgb(0, 0, 255); border: 0px;"));
    EXPECT_EQ(pane.widget<QPushButton>("Hex")->styleSheet(),
              QString("background-color: rgb(16, 32, 48); border: 0px;"));
    pane.resize(320, 480);
    EXPECT_TRUE(takePicture(pane, "formkit-fields"));
}

TEST(FieldPane, ANewRowStartsAsItsFieldsSay)
{
    FieldPane pane(everyKind);
    EXPECT_EQ(pane.row(),
              (QStringList{"", "", "null", "3", "0.000", "", QDate::currentDate().toString("yyyy-MM-dd"), "0", "-1", "",
                           "#FFFFFF", "1", ""}));
    pane.showRow({"а", "", "", "", "", "", "", "t"});
    EXPECT_EQ(pane.text("Check"), QString("1")) << "a boolean of the server";
    EXPECT_EQ(pane.text("Integer"), QString("0")) << "of nothing";
}

TEST(FieldPane, TellsWhatTheUserChanged)
{
    FieldPane pane(everyKind);
    int changes = 0;
    QObject::connect(&pane, &FieldPane::changed, &pane, [&changes] { ++changes; });
    pane.widget<QLineEdit>("Text")->setText("б");
    EXPECT_TRUE(pane.isDirty());
    EXPECT_EQ(changes, 1);
    pane.showRow({"в"});
    EXPECT_FALSE(pane.isDirty());
    pane.findChild<QPushButton*>("PathBtn")->click();
    EXPECT_EQ(pane.text("Path"), QString("!"));
    EXPECT_TRUE(pane.isDirty());
    pane.setClean();
    pane.widget<QComboBox>("Choice")->setCurrentIndex(2);
    EXPECT_TRUE(pane.isDirty());
}

TEST(FieldPane, RulesAreKept)
{
    FieldPane pane(everyKind);
    EXPECT_EQ(pane.fault(), QString("Поле 'Текст' обязательно для заполнения"));
    pane.setText("Text", "  ");
    EXPECT_FALSE(pane.fault().isEmpty()) << "blanks are nothing";
    pane.setText("Text", "абвгд");
    EXPECT_EQ(pane.text("Text"), QString("абвг"));
    EXPECT_EQ(pane.fault(), QString());
    FieldPane named({Field::text("Id", "ID:").required("Пусто").matching("[0-9A-Za-z]+")});
    EXPECT_EQ(named.fault(), QString("Пусто"));
    QString typed = "я";
    int place = 0;
    EXPECT_EQ(named.widget<QLineEdit>("Id")->validator()->validate(typed, place), QValidator::Invalid);
}

TEST(FieldPane, AFieldIsHiddenWithItsCaption)
{
    FieldPane pane({Field::text("A", "а"), Field::text("B", "б")});
    pane.setFieldVisible("A", false);
    pane.show();
    for (const QLabel* caption : pane.findChildren<QLabel*>())
        EXPECT_EQ(caption->isVisible(), caption->text() == "б");
    EXPECT_FALSE(pane.widget<QLineEdit>("A")->isVisible());
}

const Record device = {
    "DeviceForm",
    "Прибор",
    {
        Field::text("Name", "Наименование").required(),
        Field::text("Serial", "Серийный номер"),
        Field::text("Description", "Описание"),
    },
    "select device_id, name, serial, description from devices where device_id=%1",
    "INSERT INTO devices (name, serial, description) VALUES ('%1', '%2', '%3') returning device_id",
    "UPDATE devices SET(name, serial, description) = ('%1', '%2', '%3') WHERE device_id = %4",
};

Catalogue devices(const std::vector<QString>& titles = {})
{
    Catalogue catalogue;
    catalogue.listName = "Devices";
    catalogue.statement = "select device_id, name, serial, description from devices order by device_id";
    catalogue.texts = 3;
    catalogue.titles = titles;
    catalogue.counts = {"select count(device_id) from dm_meas where device_id=%1",
                        "select count(device_id) from ts_meas where device_id=%1"};
    catalogue.refusal = "Устройстро содержит измерения. Удаление невозможно!";
    catalogue.question = "Удалить устройство %1 ?";
    catalogue.remove = "delete from devices where device_id=%1";
    catalogue.record = [](QWidget* parent) { return std::make_unique<RecordDialog>(device, parent); };
    catalogue.filterName = "filter";
    return catalogue;
}

class Records : public ::testing::Test {
protected:
    void SetUp() override
    {
        database_->exec("insert into devices (device_id, name, serial, description) overriding system value "
                        "values (1, 'коса', 'SN-1', 'новая'), (2, 'нивелир', 'SN-20', null);"
                        "alter table devices alter column device_id restart with 100");
    }
    void TearDown() override { EXPECT_TRUE(driver_.done()) << driver_.report(); }

    PositionSession database_;
    ModalDriver driver_;
};

TEST_F(Records, AStoredOneIsShownAndWrittenBack)
{
    RecordDialog dialog(device);
    EXPECT_EQ(dialog.windowTitle(), QString("Прибор"));
    EXPECT_FALSE(dialog.showStored("77"));
    ASSERT_TRUE(dialog.showStored("2"));
    EXPECT_EQ(dialog.fields().row(), (QStringList{"нивелир", "SN-20", ""}));
    dialog.fields().setText("Serial", "100%1");
    dialog.accept();
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(database_->rows("select name, serial, description from devices where device_id = 2"),
              (QVector<QStringList>{{"нивелир", "100%1", ""}}));
}

TEST_F(Records, ANewOneLearnsItsKey)
{
    RecordDialog dialog(device);
    dialog.showNew();
    EXPECT_TRUE(dialog.isNew());
    dialog.fields().showRow({"рейка", "", "3 м"});
    dialog.accept();
    EXPECT_FALSE(dialog.isNew());
    EXPECT_EQ(database_->value("select name from devices where device_id = " + dialog.key()), QString("рейка"));
}

TEST_F(Records, ABrokenRuleKeepsTheDialogOpen)
{
    driver_.expect("Прибор").set("Serial", "SN").press("Сохранить");
    driver_.expect("Внимание").text("Поле 'Наименование' обязательно для заполнения").press("OK");
    driver_.expect("Прибор").check("Serial", "SN").press("Отмена");
    RecordDialog dialog(device);
    dialog.showNew();
    EXPECT_EQ(dialog.exec(), int(QDialog::Rejected));
    EXPECT_EQ(database_->value("select count(*) from devices"), QString("2"));
}

TEST_F(Records, ACatalogueListsItsRows)
{
    CatalogueList list(devices());
    EXPECT_EQ(list.count(), 0);
    list.refresh();
    auto* shown = list.findChild<QListWidget*>("Devices");
    ASSERT_EQ(shown->count(), 2);
    EXPECT_EQ(shown->item(0)->text(), QString("коса - SN-1 - новая"));
    EXPECT_EQ(shown->item(1)->text(), QString("нивелир - SN-20 - "));
    EXPECT_EQ(shown->item(1)->data(Qt::UserRole), QVariant(2));
    list.setCurrentKey("2");
    database_->exec("delete from devices where device_id = 1");
    list.refresh();
    EXPECT_EQ(list.currentKey(), QString("2")) << "the choice outlives a refresh";
}

TEST_F(Records, ACatalogueIsEditedThroughItsRecord)
{
    CatalogueList list(devices());
    int changes = 0;
    QObject::connect(&list, &CatalogueList::changed, &list, [&changes] { ++changes; });
    list.refresh();
    driver_.expect("Прибор").set("Name", "рейка").press("Сохранить");
    list.findChild<QPushButton*>("CreateBTN")->click();
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(list.currentText(), QString("рейка -  - "));
    EXPECT_EQ(changes, 1);

    list.setCurrentKey("1");
    driver_.expect("Прибор").check("Name", "коса").set("Serial", "SN-9").press("Сохранить");
    list.findChild<QPushButton*>("EditBTN")->click();
    EXPECT_EQ(list.currentText(), QString("коса - SN-9 - новая"));
    driver_.expect("Прибор").press("Отмена");
    list.editCurrent();
    EXPECT_EQ(changes, 2);
}

TEST_F(Records, WhatIsUsedIsNotDeleted)
{
    database_->exec("insert into ts_elements (element_id, element_name, state_id, position_id) overriding system value "
                    "values (1, 'Т-1', 'exist', 7);"
                    "insert into cycles (cycle_id, number, date_start, date_end) overriding system value "
                    "values (1, 1, '2021-01-01', '2021-01-31');"
                    "insert into ts_meas (element_id, cycle_id, device_id) values (1, 1, 1)");
    CatalogueList list(devices());
    list.refresh();
    list.deleteCurrent();
    list.setCurrentKey("1");
    driver_.expect("Внимание").text("Устройстро содержит измерения. Удаление невозможно!").press("OK");
    list.findChild<QPushButton*>("DeleteBTN")->click();
    list.setCurrentKey("2");
    driver_.expect("Внимание").text("Удалить устройство нивелир - SN-20 -  ?").press("No");
    list.deleteCurrent();
    EXPECT_EQ(list.count(), 2);
    driver_.expect("Внимание").press("Yes");
    list.deleteCurrent();
    EXPECT_EQ(list.count(), 1);
    EXPECT_EQ(database_->value("select device_id from devices"), QString("1"));
}

TEST_F(Records, ATableSortsAndFilters)
{
    CatalogueList list(devices({"Имя", "Номер", "Описание"}));
    list.refresh();
    auto* shown = list.findChild<QTableWidget*>("Devices");
    ASSERT_EQ(shown->rowCount(), 2);
    EXPECT_EQ(shown->item(0, 0)->text(), QString("коса")) << "the statement's order";
    shown->sortByColumn(1, Qt::DescendingOrder);
    EXPECT_EQ(shown->item(0, 1)->text(), QString("SN-20"));
    list.setCurrentKey("1");
    EXPECT_EQ(list.currentText(), QString("коса - SN-1 - новая"));
    list.findChild<QLineEdit*>("filter")->setText("НИВ");
    EXPECT_FALSE(shown->isRowHidden(0));
    EXPECT_TRUE(shown->isRowHidden(1));
    list.resize(420, 260);
    EXPECT_TRUE(takePicture(list, "formkit-catalogue"));
}

TEST_F(Records, ALostServerLeavesTheListEmpty)
{
    CatalogueList list(devices());
    list.refresh();
    database_.disconnect();
    list.refresh();
    EXPECT_EQ(list.count(), 0);
}

} // namespace
