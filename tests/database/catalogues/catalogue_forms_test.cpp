// The lists of cycles, devices and performers, and the dialogs of their entries,
// found by object names on a real database.
#include "database/catalogues/forms/catalogue_box.h"
#include "database/catalogues/forms/catalogue_forms.h"
#include "database/catalogues/forms/cycle_form.h"
#include "database/catalogues/forms/cycles_list_form.h"
#include "database/catalogues/forms/device_selector_widget.h"
#include "session/forms/palette_refresh.h"
#include "support/console_capture.h"
#include "support/pictures.h"
#include "support/position_session.h"

#include <script/modal_driver.h>

#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace formkit;

namespace {

class Catalogues : public ::testing::Test {
protected:
    void SetUp() override
    {
        database_->exec("insert into cycles (cycle_id, number, date_start, date_end, description, cycle_status) "
                        "overriding system value values (1, 1, '2021-05-01', '2021-05-31', 'Весна', 2), "
                        "(2, 2, '2021-09-01', null, 'Осень', 1), (3, 3, '2021-01-01', '2021-01-31', null, null);"
                        "insert into devices (device_id, name, serial, description) overriding system value "
                        "values (1, 'Нивелир', 'SN-1', 'Цифровой'), (2, 'Термокоса', 'SN-2', null);"
                        "insert into performers (performer_id, fullname, name, post) overriding system value "
                        "values (1, 'Иванов Иван Иванович', 'Иванов И.И.', 'Инженер');"
                        "alter table cycles alter cycle_id restart with 10;"
                        "alter table devices alter device_id restart with 10;"
                        "alter table performers alter performer_id restart with 10");
        session().baseCycleId = session().currentCycleId = -1;
        session().reloadCycles();
    }
    void TearDown() override
    {
        EXPECT_TRUE(driver_.done()) << driver_.report();
        setPaletteRefresh({});
        session().baseCycleId = session().currentCycleId = -1;
    }
    void addMeasure(const QString& table, const QString& columns, const QString& values)
    {
        const QString family = table.left(table.indexOf('_'));
        database_->exec("insert into " + family
                        + "_elements (element_id, element_name, state_id, position_id) overriding system value "
                          "values (1, 'Э', 'exist', 7); insert into "
                        + table + " (element_id, " + columns + ") values (1, " + values + ")");
    }

    PositionSession database_;
    ConsoleCapture console_;
    ModalDriver driver_;
};

QStringList textsOf(const QWidget& form)
{
    QStringList texts;
    const auto* list = form.findChild<QListWidget*>();
    for (int row = 0; row < list->count(); ++row)
        texts << list->item(row)->text();
    return texts;
}

QString captions(const QWidget& dialog)
{
    QStringList shown{dialog.windowTitle()};
    const auto* form = dialog.findChild<QFormLayout*>();
    for (int row = 0; row < form->rowCount(); ++row) {
        const QWidget* field = form->itemAt(row, QFormLayout::FieldRole)->widget();
        const auto* caption = qobject_cast<QLabel*>(form->itemAt(row, QFormLayout::LabelRole)->widget());
        shown << field->objectName() + "=" + caption->text();
    }
    for (const QPushButton* button : dialog.findChildren<QPushButton*>()) {
        if (!button->objectName().startsWith("ColorIndex"))
            shown << button->objectName() + "=" + button->text();
    }
    return shown.join("; ");
}

void pressTool(QWidget& form, const char* name)
{
    auto* button = form.findChild<QToolButton*>(name);
    ASSERT_NE(button, nullptr) << name;
    EXPECT_FALSE(button->icon().isNull()) << name;
    button->click();
}

} // namespace

TEST_F(Catalogues, TheDialogsSayWhatTheyAlwaysSaid)
{
    EXPECT_EQ(captions(CycleForm()),
              QString("Цикл измерений; CycleNumber=Номер цикла; DateBegin=Дата начала; DateEnd=Дата окончания; "
                      "Description=Описание; cycle_status=Статус; SaveBtn=Сохранить; CancelBtn=Отмена"));
    EXPECT_EQ(captions(DeviceForm()),
              QString("Устройство; Name=Наименование; Serial=Серийный номер; "
                      "Description=Описание; SaveBtn=Сохранить; CancelBtn=Отмена"));
    EXPECT_EQ(captions(PerformerForm()),
              QString("Исполнитель; Name=Имя; FullName=ФИО (Полностью); Post=Должность; "
                      "SaveBtn=Сохранить; CancelBtn=Отмена"));
}

TEST_F(Catalogues, CyclesAreListedByTheirStart)
{
    CyclesListForm form;
    form.refresh();
    EXPECT_EQ(
        textsOf(form),
        (QStringList{"3 - 01.01.21 - 31.01.21 - ", "1 - 01.05.21 - 31.05.21 - Весна", "2 - 01.09.21 -  - Осень"}));
    EXPECT_EQ(form.findChild<QListWidget*>("Cycles")->item(0)->data(Qt::UserRole), QVariant(3));
    EXPECT_EQ(console_.take(), QString());
}

TEST_F(Catalogues, TheComparedCyclesAreShown)
{
    session().baseCycleId = 1;
    CyclesListForm form;
    form.refresh();
    auto* list = form.findChild<QListWidget*>("Cycles");
    EXPECT_EQ(form.findChild<QLabel*>("SourceCycle")->text(), QString("1 - 01.05.21 - 31.05.21 - Весна"));
    EXPECT_EQ(form.findChild<QLabel*>("CurrentCycle")->text(), QString());
    EXPECT_EQ(list->item(1)->font().weight(), 75);
    EXPECT_TRUE(list->item(1)->font().underline());
    EXPECT_FALSE(list->item(0)->font().underline());
    form.resize(260, 320);
    session().currentCycleId = 2;
    form.refresh();
    EXPECT_TRUE(takePicture(form, "CyclesListForm"));
}

TEST_F(Catalogues, AMenuChoosesTheComparedCycles)
{
    CyclesListForm form;
    form.refresh();
    form.setObjectName("page");
    form.show();
    for (const char* wanted : {"Установить исходным", "Установить текущим"}) {
        driver_.window("page").step("menu", {"Cycles", "1", "0"}).step("choose", {wanted});
        driver_.play();
    }
    EXPECT_EQ(session().baseCycleId, 1);
    EXPECT_EQ(session().currentCycleId, 1);
    int marked = 0;
    const auto* list = form.findChild<QListWidget*>("Cycles");
    for (int row = 0; row < list->count(); ++row)
        marked += list->item(row)->font().underline();
    EXPECT_EQ(marked, 1) << "one cycle may be both";
    EXPECT_EQ(form.findChild<QLabel*>("CurrentCycle")->text(), QString("1 - 01.05.21 - 31.05.21 - Весна"));
}

TEST_F(Catalogues, ADeletedBaseCycleStaysInTheSessionAndIsNotMarked)
{
    session().baseCycleId = 3;
    CyclesListForm form;
    form.refresh();
    form.setCurrentKey("3");
    driver_.expect("Внимание").text("Удалить цикл измерений 3 - 01.01.21 - 31.01.21 -  ?").press("Yes");
    pressTool(form, "DeleteBTN");
    EXPECT_EQ(session().baseCycleId, 3);
    EXPECT_EQ(textsOf(form).size(), 2);
    const auto* list = form.findChild<QListWidget*>("Cycles");
    EXPECT_FALSE(list->item(0)->font().underline() || list->item(1)->font().underline());
    EXPECT_EQ(form.findChild<QLabel*>("SourceCycle")->text(), QString());
}

TEST_F(Catalogues, ANewCycleLastsAMonthAndHasNoStatus)
{
    const QDate today = QDate::currentDate();
    CycleForm form;
    form.showNew();
    form.show();
    EXPECT_EQ(form.findChild<QSpinBox*>("CycleNumber")->value(), 4) << "behind the last one";
    EXPECT_EQ(form.findChild<QDateEdit*>("DateBegin")->date(), today);
    EXPECT_EQ(form.findChild<QDateEdit*>("DateEnd")->date(), today.addMonths(1));
    EXPECT_FALSE(form.findChild<QComboBox*>("cycle_status")->isVisible());
    form.fields().setText("Description", "Новый");
    form.fields().setText("DateBegin", "2022-02-01");
    form.fields().setText("DateEnd", "2022-01-01"); // nobody checks that it ends after it starts
    form.accept();
    EXPECT_EQ(database_->rows("select number, date_start, date_end, description, cycle_status from cycles "
                              "where cycle_id = "
                              + form.key()),
              (QVector<QStringList>{{"4", "2022-02-01", "2022-01-01", "Новый", "0"}}));
}

TEST_F(Catalogues, AStoredCycleShowsItsStatus)
{
    CycleForm form;
    ASSERT_TRUE(form.showStored("2"));
    form.show();
    auto* status = form.findChild<QComboBox*>("cycle_status");
    EXPECT_TRUE(status->isVisible());
    EXPECT_EQ(status->currentText(), QString("Активный"));
    QStringList statuses;
    for (int i = 0; i < status->count(); ++i)
        statuses << status->itemText(i);
    EXPECT_EQ(statuses, (QStringList{"План", "Активный", "Завершен"}));
    EXPECT_TRUE(takePicture(form, "CycleForm"));
    status->setCurrentIndex(2);
    form.accept();
    EXPECT_EQ(database_->value("select cycle_status from cycles where cycle_id = 2"), QString("2"));
}

TEST_F(Catalogues, ACycleWithoutStatusIsSavedWithTheFirst)
{
    CycleForm form;
    ASSERT_TRUE(form.showStored("3"));
    form.show();
    EXPECT_TRUE(form.findChild<QComboBox*>("cycle_status")->isVisible());
    EXPECT_EQ(form.findChild<QComboBox*>("cycle_status")->currentIndex(), 0);
    form.accept();
    EXPECT_EQ(database_->value("select cycle_status from cycles where cycle_id = 3"), QString("0"));
}

TEST_F(Catalogues, ASavedCycleRefreshesTheExplorerAndTheSession)
{
    int refreshed = 0;
    setPaletteRefresh({{}, [&refreshed] { ++refreshed; }});
    CyclesListForm form;
    form.refresh();
    driver_.expect("Цикл измерений").set("CycleNumber", "8").set("Description", "Лето").press("Сохранить");
    pressTool(form, "CreateBTN");
    EXPECT_EQ(refreshed, 1);
    EXPECT_EQ(session().cycles.size(), 4);
    EXPECT_EQ(form.count(), 4);
    EXPECT_TRUE(form.currentText().startsWith("8 - "));
    driver_.expect("Цикл измерений").press("Отмена");
    pressTool(form, "EditBTN");
    EXPECT_EQ(refreshed, 1);
}

TEST_F(Catalogues, ACycleWithMeasuresIsNotDeletedNorAskedAbout)
{
    addMeasure("dm_meas", "cycle_id", "1");
    CyclesListForm form;
    form.refresh();
    form.setCurrentKey("1");
    driver_.expect("Внимание").text("Цикл содержит измерения. Удаление невозможно!").press("OK");
    pressTool(form, "DeleteBTN");
    EXPECT_EQ(form.count(), 3);
}

TEST_F(Catalogues, MeasuresOfOtherFamiliesAreNotCounted)
{
    addMeasure("rp_meas", "cycle_id", "1");
    CyclesListForm form;
    form.refresh();
    form.setCurrentKey("1");
    driver_.expect("Внимание").press("Yes");
    pressTool(form, "DeleteBTN");
    EXPECT_EQ(form.count(), 3) << "the database refuses by itself, and nothing is told";
}

TEST_F(Catalogues, DevicesAreKept)
{
    DevicesListForm form;
    form.refresh();
    EXPECT_EQ(textsOf(form), (QStringList{"Нивелир - SN-1 - Цифровой", "Термокоса - SN-2 - "}));
    driver_.expect("Устройство").set("Name", "Рейка").set("Serial", "7").set("Description", "3 м").press("SaveBtn");
    pressTool(form, "CreateBTN");
    EXPECT_EQ(textsOf(form).last(), QString("Рейка - 7 - 3 м"));
    form.setCurrentKey("2");
    driver_.expect("Устройство").check("Serial", "SN-2").set("Description", "Новая").press("SaveBtn");
    pressTool(form, "EditBTN");
    EXPECT_EQ(form.currentText(), QString("Термокоса - SN-2 - Новая"));
    driver_.expect("Внимание").text("Удалить устройство Термокоса - SN-2 - Новая ?").press("Yes");
    pressTool(form, "DeleteBTN");
    EXPECT_EQ(database_->value("select count(*) from devices"), QString("2"));
    addMeasure("ts_meas", "device_id", "1");
    form.setCurrentKey("1");
    driver_.expect("Внимание").text("Устройстро содержит измерения. Удаление невозможно!").press("OK");
    pressTool(form, "DeleteBTN");
    form.resize(260, 320);
    EXPECT_TRUE(takePicture(form, "DevicesListForm"));
    DeviceForm dialog;
    ASSERT_TRUE(dialog.showStored("1"));
    EXPECT_TRUE(takePicture(dialog, "DeviceForm"));
}

TEST_F(Catalogues, AnApostropheIsRefusedByTheServerAndNotTold)
{
    DevicesListForm form;
    form.refresh();
    driver_.expect("Устройство").set("Name", "д'Арсонваль").press("SaveBtn");
    pressTool(form, "CreateBTN");
    EXPECT_EQ(form.count(), 2);
    EXPECT_EQ(console_.take(), QString());
}

TEST_F(Catalogues, PerformersAreKept)
{
    PerformersListForm form;
    form.refresh();
    EXPECT_EQ(textsOf(form), QStringList("Иванов Иван Иванович - Иванов И.И. - Инженер"));
    driver_.expect("Исполнитель")
        .set("Name", "Пётр")
        .set("FullName", "Пётр Ильич")
        .set("Post", "Геодезист")
        .press("SaveBtn");
    pressTool(form, "CreateBTN");
    EXPECT_EQ(textsOf(form).last(), QString("Пётр Ильич - Пётр - Геодезист"));
    form.setCurrentKey("1");
    driver_.expect("Исполнитель").check("Name", "Иванов И.И.").set("Post", "Техник").press("SaveBtn");
    pressTool(form, "EditBTN");
    EXPECT_EQ(form.currentText(), QString("Иванов Иван Иванович - Иванов И.И. - Техник"));
    PerformerForm dialog;
    ASSERT_TRUE(dialog.showStored("1"));
    EXPECT_TRUE(takePicture(dialog, "PerformerForm"));
    driver_.expect("Внимание").text("Удалить исполнителя " + form.currentText() + " ?").press("No");
    pressTool(form, "DeleteBTN");
    addMeasure("dm_meas", "performer_id", "1");
    driver_.expect("Внимание").text("Исполнителем выполнены измерения. Удаление невозможно!").press("OK");
    pressTool(form, "DeleteBTN");
    EXPECT_EQ(form.count(), 2);
}

TEST_F(Catalogues, ALostServerIsToldAndComesBack)
{
    CyclesListForm form;
    form.refresh();
    database_.disconnect();
    form.refresh();
    EXPECT_EQ(console_.take(), QString("\nНе установлено соединение с базой данных\n"));
    EXPECT_EQ(form.count(), 0);
    database_.connect();
    form.refresh();
    EXPECT_EQ(console_.take(), QString());
    EXPECT_EQ(form.count(), 3);
}

TEST_F(Catalogues, ADeviceIsSelected)
{
    DeviceSelectorWidget form;
    auto* list = form.findChild<QComboBox*>("DeviceList");
    EXPECT_EQ(form.findChild<QLabel*>()->text(), QString("Выбор устройства"));
    EXPECT_EQ(form.findChild<QPushButton*>("DeviceFormBTN")->text(), QString("..."));
    EXPECT_EQ(list->itemText(0), QString("Нивелир SN-1 Цифровой"));
    form.setDeviceId(2);
    EXPECT_EQ(form.deviceId(), 2);
    EXPECT_EQ(form.device(), (QStringList{"Термокоса", "SN-2", ""}));
    form.setDeviceId(77);
    EXPECT_EQ(form.deviceId(), 2);
    driver_.expect("Оборудование").press("CreateBTN");
    driver_.expect("Устройство").set("Name", "Рейка").press("SaveBtn");
    driver_.expect("Оборудование").press("OK");
    form.findChild<QPushButton*>("DeviceFormBTN")->click();
    EXPECT_EQ(list->count(), 3);
    EXPECT_EQ(form.deviceId(), 2) << "the choice stays";
    form.resize(360, form.sizeHint().height());
    EXPECT_TRUE(takePicture(form, "DeviceSelectorWidget"));
}

TEST_F(Catalogues, NoDeviceIsNoChoice)
{
    database_->exec("delete from devices");
    EXPECT_EQ(DeviceSelectorWidget().deviceId(), -1);
}

TEST_F(Catalogues, EveryCatalogueOpensInABox)
{
    driver_.expect("Циклы измерений").step("rows", {"Cycles", "3"}).press("OK");
    driver_.expect("Оборудование").step("rows", {"Devices", "2"}).press("OK");
    driver_.expect("Исполнители").step("rows", {"Performers", "1"}).press("OK");
    for (CatalogueKind kind : {CatalogueKind::Cycles, CatalogueKind::Devices, CatalogueKind::Performers})
        openCatalogue(kind, nullptr);
}
