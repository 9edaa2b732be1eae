#include "elements/measures/forms/measure_edit_dialog.h"

#include "elements/measures/measured_elements.h"
#include "support/pictures.h"

#include <script/modal_driver.h>

#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

namespace {

// What a family's dialog shows.
struct DialogCase {
    FamilyValues values;
    const char* name;
    const char* title;
    const char* taken;
    QStringList fields; // of the values: name and caption
};

const DialogCase dialogCases[] = {
    {familyValues[0],
     "DMMeasureEditDialog",
     "Измерение деформационной марки",
     "Выбранный цикл уже содержит измерения для этой деформационной марки",
     {"meas", "Абсолютная отметка, м"}},
    {familyValues[1],
     "TSMeasureEditDialog",
     "Измерение термоскважины",
     "Выбранный цикл уже содержит измерения для этой термосважины",
     {"t_vozd", "Температура воздуха, °C"}},
    {familyValues[2],
     "RPMeasureEditDialog",
     "Измерение вертикальный перемещений репера",
     "Выбранный цикл уже содержит измерения для этого репера",
     {"meas", "Абсолютная отметка, м", "precis", "Точность"}},
    {familyValues[3],
     "TSSMeasureEditDialog",
     "Измерение точки снегомерной съемки",
     "Выбранный цикл уже содержит измерения для этой точки снегомерной съемки",
     {"meas_density", "Плотность снега", "meas_heigth", "Высота снега"}},
    {familyValues[4],
     "GGSMeasureEditDialog",
     "Измерение гидрогеологической скважины",
     "Выбранный цикл уже содержит измерения для этой деформационной марки",
     {"meas", "Уровень грунтовых вод, м"}},
    {familyValues[5],
     "TSGMeasureEditDialog",
     "Измерение температуры СОУ",
     "Выбранный цикл уже содержит измерения для этой точки снегомерной съемки",
     {"env_temp", "Температура воздуха, °C", "exchanger_temp", "Температура теплообменника, °C"}},
};

void PrintTo(const DialogCase& c, std::ostream* out) { *out << c.name; }

class EditDialog : public MeasuredElements, public ::testing::WithParamInterface<DialogCase> {
protected:
    EditDialog() : dialog((fillFamily(GetParam().values), GetParam().values.family)) { }

    void set(const char* combo, const char* text) { dialog.findChild<QComboBox*>(combo)->setCurrentText(text); }
    QString text(const char* name) const { return dialog.fields().text(name); }
    void save() { dialog.findChild<QPushButton*>("ApplyBTN")->click(); }
    QStringList captions() const
    {
        const auto* form = static_cast<QFormLayout*>(dialog.fields().layout());
        QStringList met;
        for (int row = 0; row < form->rowCount(); ++row)
            met << form->itemAt(row, QFormLayout::FieldRole)->widget()->objectName()
                << static_cast<QLabel*>(form->itemAt(row, QFormLayout::LabelRole)->widget())->text();
        return met;
    }

    MeasureEditDialog dialog;
    ModalDriver driver;
};

} // namespace

TEST_P(EditDialog, ShowsTheStoredMeasure)
{
    ASSERT_TRUE(dialog.open(3));
    EXPECT_EQ(dialog.objectName(), GetParam().name);
    EXPECT_EQ(dialog.windowTitle(), GetParam().title);
    EXPECT_EQ(captions(),
              (QStringList{"MeasID", "ID измерения", "ElementName", "Имя элемента", "dateTimeEdit", "Дата",
                           "CycleCombo", "Цикл измерений", "ToolCombo", "Прибор", "PerformerCombo", "Исполнитель"}
               + GetParam().fields));
    EXPECT_EQ(dialog.findChild<QPushButton*>("ApplyBTN")->text(), "Сохранить");
    EXPECT_EQ(dialog.findChild<QPushButton*>("CancelBTN")->text(), "Отмена");
    EXPECT_EQ(text("MeasID"), "3");
    EXPECT_EQ(text("ElementName"), "Т-2");
    EXPECT_EQ(dialog.findChild<QDateEdit*>("dateTimeEdit")->text(), "07.02.2021");
    EXPECT_EQ(dialog.findChild<QComboBox*>("CycleCombo")->currentText(), "2 - 01.02.21 - 28.02.21 - ");
    EXPECT_EQ(dialog.findChild<QComboBox*>("ToolCombo")->currentText(), "SN-1 - новая");
    EXPECT_EQ(dialog.findChild<QComboBox*>("PerformerCombo")->currentText(), "Петров Пётр - Петров");
    EXPECT_EQ(dialog.findChild<QLabel*>("StatusLabel")->text(), "OK");
    const QStringList stored = QString(GetParam().values.second).split(',');
    for (int i = 0; i < GetParam().fields.size() / 2; ++i)
        EXPECT_EQ(dialog.findChild<QDoubleSpinBox*>(GetParam().fields[2 * i])->value(), stored[i].toDouble());
    EXPECT_TRUE(takePicture(dialog, QString("measure-edit-%1").arg(GetParam().values.prefix)));
}

TEST_P(EditDialog, SavesDateCycleDeviceAndPerformerAndLeavesTheNumbers)
{
    const auto before = stored(GetParam().values);
    ASSERT_TRUE(dialog.open(3));
    dialog.findChild<QDateEdit*>("dateTimeEdit")->setDate(QDate(2021, 3, 9));
    set("CycleCombo", "3 - 01.03.21 - 31.03.21 - весна");
    set("ToolCombo", "SN-2 - ");
    set("PerformerCombo", "Иванов Иван - Иванов");
    save();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    auto expected = before;
    expected[2] = QStringList{"2", "3", "2", "2021-03-09"} + before[2].mid(4, before[2].size() - 5) + QStringList{"1"};
    EXPECT_EQ(stored(GetParam().values), expected);
}

TEST_P(EditDialog, ANumberThatWasChangedIsStored)
{
    ASSERT_TRUE(dialog.open(3));
    const QString column = GetParam().fields[0];
    dialog.findChild<QDoubleSpinBox*>(column)->setValue(7.25);
    save();
    EXPECT_EQ(database->value(fill("select %1 from %2_meas where element_id = 2 and cycle_id = 2", column,
                                   GetParam().values.prefix)),
              "7.25");
}

TEST_P(EditDialog, ACycleThatHoldsAMeasureIsRefusedAndTheDialogStays)
{
    const auto before = stored(GetParam().values);
    ASSERT_TRUE(dialog.open(3));
    dialog.show();
    set("CycleCombo", "1 - 01.01.21 - 31.01.21 - зима");
    driver.expect("Внимание").text(GetParam().taken).press("OK");
    save();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(stored(GetParam().values), before);
    EXPECT_EQ(dialog.findChild<QComboBox*>("CycleCombo")->currentData().toInt(), 1) << "what was chosen stays";
    set("CycleCombo", "2 - 01.02.21 - 28.02.21 - ");
    save();
    EXPECT_EQ(dialog.result(), QDialog::Accepted) << "its own cycle is no conflict";
}

TEST_P(EditDialog, WithoutADeviceNothingIsStoredAndTheStatusTellsIt)
{
    const auto before = stored(GetParam().values);
    ASSERT_TRUE(dialog.open(3));
    dialog.show();
    set("ToolCombo", "Не установлено");
    EXPECT_EQ(dialog.findChild<QLabel*>("StatusLabel")->text(), "Устройство SN SN-1 не найдено.");
    driver.expect("Внимание").text("Устройство SN SN-1 не найдено.").press("OK");
    save();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(stored(GetParam().values), before);
}

TEST_P(EditDialog, WithoutAServerWhatWasTypedStays)
{
    ASSERT_TRUE(dialog.open(3));
    dialog.show();
    dialog.findChild<QDoubleSpinBox*>(GetParam().fields[0])->setValue(7.25);
    database.disconnect();
    save();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(console.text().contains("\nНе установлено соединение с базой данных\n"));
    EXPECT_EQ(dialog.findChild<QDoubleSpinBox*>(GetParam().fields[0])->value(), 7.25);
    database.connect();
    save();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(database->value(fill("select %1 from %2_meas where element_id = 2 and cycle_id = 2", GetParam().fields[0],
                                   GetParam().values.prefix)),
              "7.25");
}

TEST_P(EditDialog, AMeasureThatIsGoneDoesNotOpen)
{
    EXPECT_FALSE(dialog.open(99));
    EXPECT_FALSE(dialog.open(-1));
}

INSTANTIATE_TEST_SUITE_P(Families, EditDialog, ::testing::ValuesIn(dialogCases));

TEST_F(MeasuredElements, AMarkBeyondTheFieldIsShownCutAndStoredWhole)
{
    fillFamily(familyValues[0]);
    database->exec("update dm_meas set meas = 100.1234 where meas_dm_id = 1; "
                   "update dm_meas set meas = -3.5 where meas_dm_id = 2");
    for (const auto& [id, shown, kept] : {std::tuple{1, 99.99, "100.1234"}, std::tuple{2, 0.0, "-3.5"}}) {
        DMMeasureEditDialog dialog;
        ASSERT_TRUE(dialog.open(id));
        EXPECT_EQ(dialog.findChild<QDoubleSpinBox*>("meas")->value(), shown);
        EXPECT_EQ(
            dialog.findChild<QLabel*>("StatusLabel")->text(),
            QString("OK\nВ базе %1: поле показывает от 0 до 99.99 и, пока не изменено, ничего не меняет.").arg(kept));
        dialog.accept();
        EXPECT_EQ(database->value(fill("select meas from dm_meas where meas_dm_id = %1", id)), kept);
    }
}

TEST_F(MeasuredElements, TheProfileIsShownAndStaysAsItIsStored)
{
    fillFamily(familyValues[1]);
    database->exec("update ts_meas set meas = '0.50:-1.26|1.00:inf|1.55:2.00', t_vozd = null where meas_ts_id = 1");
    TSMeasureEditDialog dialog;
    ASSERT_TRUE(dialog.open(1));
    const auto* view = dialog.findChild<QTableWidget*>("DataView");
    ASSERT_TRUE(view);
    QStringList shown = {view->horizontalHeaderItem(0)->text(), view->horizontalHeaderItem(1)->text()};
    for (int row = 0; row < view->rowCount(); ++row)
        shown << view->item(row, 0)->text() << view->item(row, 1)->text();
    EXPECT_EQ(shown, (QStringList{"Глубина, м", "Температура, °C ", "0.5", "-1.3", "1.0", "--", "1.6", "2.0"}));
    EXPECT_EQ(view->editTriggers(), QAbstractItemView::NoEditTriggers);
    const auto* air = dialog.findChild<QDoubleSpinBox*>("t_vozd");
    EXPECT_EQ(air->minimum(), -100.0);
    EXPECT_EQ(air->maximum(), 100.0);
    EXPECT_EQ(air->singleStep(), 0.1);
    dialog.findChild<QDoubleSpinBox*>("t_vozd")->setValue(-7.5);
    dialog.accept();
    EXPECT_EQ(database->rows("select t_vozd, meas from ts_meas where meas_ts_id = 1").value(0),
              (QStringList{"-7.5", "0.50:-1.26|1.00:inf|1.55:2.00"}));
}
