// The card of a position: its norms in words and in the database, its tables.
#include "analysis/grading/attribute_texts.h"
#include "analysis/grading/forms/grading_commands.h"
#include "analysis/grading/forms/position_passport.h"
#include "analysis/grading/grading_fixture.h"
#include "analysis/grading/position_history.h"
#include "support/pictures.h"

#include <QComboBox>
#include <QGroupBox>
#include <QTabWidget>

namespace {

class Passport : public GradingFixture {
protected:
    static QTableWidget& shown(const QWidget& form, const char* name) { return *child<QTableWidget>(form, name); }
    static QString text(const QWidget& form, const char* name) { return child<QLabel>(form, name)->text(); }
    static QString number(const QWidget& form, const char* name) { return child<QLineEdit>(form, name)->text(); }
};

PositionAttributes someAttributes()
{
    PositionAttributes given;
    given.exist = true;
    given.id = 7;
    given.deepMin = 1.0;
    given.deepMax = 3.25;
    given.temperatureH = -1.0;
    given.temperatureBf = -0.5;
    given.averageDiff = 10.0;
    given.relativeDiff = 0.004;
    return given;
}

PositionAttributes emptyAttributes()
{
    PositionAttributes given;
    given.deepMin = given.temperatureH = given.temperatureBf = given.baseDepth = PositionAttributes::none;
    return given;
}

} // namespace

TEST(AttributeTexts, DepthsLimitsAndTheId)
{
    PositionAttributes given = someAttributes();
    EXPECT_EQ(depthText(given), "Интервал от 1.0м. до 3.3м.");
    given.deepMax = given.deepMin;
    EXPECT_EQ(depthText(given), "Глубина 1.0 м.");
    EXPECT_EQ(depthText(emptyAttributes()), "Интервал от  -- м. до  -- м.");
    EXPECT_EQ(settlementText(given), "10.00 см");
    EXPECT_EQ(settlementText(emptyAttributes()), "-- см");
    EXPECT_EQ(attributeIdText(given), "ID: 7");
    EXPECT_EQ(attributeIdText(emptyAttributes()), "ID: --");
}

TEST(AttributeTexts, AnIntervalOfOneDepthIsSet)
{
    PositionAttributes given = someAttributes();
    given.exist = true;
    const GradeCounts one = {0, 0, 0, 0, 1, 0};
    given.deepMax = given.deepMin;
    EXPECT_EQ(thermalRemark(given, one), "") << "the temperature at that depth is taken";
    given.deepMax = given.deepMin - 0.1;
    EXPECT_EQ(thermalRemark(given, one), "Не задан интервал глубин");
    given.deepMin = PositionAttributes::none;
    EXPECT_EQ(thermalRemark(given, one), "Не задан интервал глубин");
    given.temperatureH = PositionAttributes::none;
    EXPECT_EQ(thermalRemark(given, one), "Не задана температура твёрдого состояния Th");
    EXPECT_EQ(thermalRemark(given, {}), "В позиции нет термоскважин");
}

TEST(AttributeTexts, RangesOfTheGrades)
{
    const PositionAttributes given = someAttributes();
    EXPECT_EQ(settlementRange(Grade::Normal, given), "менее 10.00 см");
    EXPECT_EQ(settlementRange(Grade::Limited, given), "от 10.00 см до 11.00 см");
    EXPECT_EQ(settlementRange(Grade::LimitedII, given), "") << "marks have no such state";
    EXPECT_EQ(settlementRange(Grade::Fail, given), "более 11.00 см");
    EXPECT_EQ(relativeRange(Grade::Normal, given), "менее 0.00100 ");
    EXPECT_EQ(relativeRange(Grade::Limited, given), "от 0.00100 до  0.00320 ");
    EXPECT_EQ(relativeRange(Grade::LimitedII, given), "от 0.00320 до  0.00400 ");
    EXPECT_EQ(relativeRange(Grade::Fail, given), "более 0.00400 ");
    EXPECT_EQ(thermalRange(Grade::Normal, given), "Менее -1.00 ");
    EXPECT_EQ(thermalRange(Grade::Limited, given), "От -1.00 ");
    EXPECT_EQ(thermalRange(Grade::LimitedII, given), "От -0.50 ");
    EXPECT_EQ(thermalRange(Grade::Fail, given), "От -0.50 ");
    const PositionAttributes empty = emptyAttributes();
    EXPECT_EQ(settlementRange(Grade::Limited, empty), "от -- см до -- см");
    EXPECT_EQ(relativeRange(Grade::Fail, empty), "более -- ");
    EXPECT_EQ(thermalRange(Grade::Normal, empty), "Менее -- ");
}

TEST(AttributeTexts, ANormWithoutALimit)
{
    Norm norm;
    norm.code = "4.1";
    norm.description = "Элеваторы";
    norm.averageDiff = 40.0;
    norm.roll = 0.003;
    EXPECT_EQ(normText(norm), "4.1 - Элеваторы - inf - 40 - 0.003");
}

TEST_F(Passport, CaptionsTitlesAndDefaults)
{
    PositionPassport form(1);
    EXPECT_EQ(form.windowTitle(), "Пасспорт позиции: Позиция 1");
    const auto* pages = child<QTabWidget>(form, "Pages");
    QStringList captions;
    for (int page = 0; page < pages->count(); ++page)
        captions << pages->tabText(page);
    QStringList groups;
    for (const QGroupBox* group : form.findChildren<QGroupBox*>())
        groups << group->title();
    groups.sort();
    captions << groups;
    for (const char* name : {"SaveBtn", "ResetBtn", "CloseBtn"})
        captions << child<QPushButton>(form, name)->text();
    EXPECT_EQ(captions,
              (QStringList{"Нормы", "Число измерений", "Деформационные марки", "Термоскважины", "История температур",
                           "История деформаций", "Атрибуты позиции", "Состояния", "Список элементов",
                           "Список элементов", "Число измерений", "Сохранить", "Сбросить", "Закрыть"}));
    EXPECT_EQ(titlesOf(shown(form, "MeasureCounts")),
              (QStringList{"Элементы", "Цикл 1 01.12.22-31.12.22", "Цикл 2 01.07.23-31.07.23"}));
    EXPECT_EQ(titlesOf(shown(form, "MarkList")), (QStringList{"Имя", "Цикл 1", "Цикл 2"}));
    EXPECT_EQ(titlesOf(shown(form, "WellList")), (QStringList{"Имя", "Дата", "Ср.Взеш.\n1.0 - 3.0 м", "Tz\n2.0 м"}));
    EXPECT_EQ(titlesOf(shown(form, "ThermalHistory")),
              (QStringList{"Цикл", "Нет \nИзмерений", "Рабочие", "Ограниченно \nРабочие I", "Ограниченно \nРабочие II",
                           "Нерабочие", "Т-ра ", "Состояние\n грунтов"}));
    EXPECT_EQ(titlesOf(shown(form, "DeformationHistory")),
              (QStringList{"Цикл", "Нет \nИзмерений", "Рабочие", "Оограниченно \nРабочие", "Нерабочие", "Осадка, мм",
                           "Состояние", "Отн. осадка", "Состояние \n деформ."}));
    EXPECT_EQ(text(form, "AttributeId"), "ID: 1");
    EXPECT_EQ(text(form, "DepthText"), "Интервал от 1.0м. до 3.0м.");
    EXPECT_EQ(text(form, "SettlementText"), "10.00 см");
    EXPECT_EQ(text(form, "MarkCount"), "Всего 2");
    EXPECT_EQ(text(form, "WellCount"), "Всего 3");
    EXPECT_EQ(number(form, "RelativeDiff"), "0.004");
    EXPECT_EQ(number(form, "Roll"), "");
    EXPECT_TRUE(takePicture(form, "position-passport"));
}

TEST_F(Passport, TablesOfMeasures)
{
    database.exec("insert into dm_meas (element_id, cycle_id, date, meas) values (1, 2, '2023-07-20', 55)");
    PositionPassport form(1);
    EXPECT_EQ(row(shown(form, "MeasureCounts"), 0), (QStringList{"Деформационные марки", "2", "3"}));
    EXPECT_EQ(row(shown(form, "MeasureCounts"), 1), (QStringList{"Термоскважины", "1", "2"}));
    EXPECT_EQ(row(shown(form, "MarkList"), 0), (QStringList{"М1", "10.0000", "9.9800"})) << "the first row counts";
    EXPECT_EQ(row(shown(form, "WellList"), 0), (QStringList{"Т1", "15.07.2023", "-1.50", "-1.50"}));
    EXPECT_EQ(row(shown(form, "WellList"), 2), (QStringList{"Т3", "--", "--", "--"}));
    auto* cycle = child<QComboBox>(form, "MeasCycle");
    cycle->setCurrentIndex(cycle->findData(1));
    EXPECT_EQ(row(shown(form, "WellList"), 0), (QStringList{"Т1", "15.12.2022", "-2.00", "-2.00"}));
}

TEST_F(Passport, MeasuresAreOfTheMarksAskedForAlone)
{
    const QString others = database.value("select count(*) from dm_meas where element_id <> 1");
    EXPECT_NE(others, "0");
    EXPECT_EQ(loadMarkMeasures({1}).keys(), QList<int>{1});
    EXPECT_TRUE(loadMarkMeasures({}).isEmpty());
    loseServer();
    EXPECT_TRUE(loadMarkMeasures({1}).isEmpty());
}

TEST_F(Passport, HistoriesByCycle)
{
    PositionPassport form(1);
    const QTableWidget& thermal = shown(form, "ThermalHistory");
    EXPECT_EQ(row(thermal, 0), (QStringList{"Цикл 1\nот 01.12.22", "2", "1", "0", "0", "0", "-2.00", "Р"}));
    EXPECT_EQ(row(thermal, 1), (QStringList{"Цикл 2\nот 01.07.23", "1", "1", "1", "0", "0", "-1.10", "ОР I"}))
        << "-1.5 and -0.7";
    EXPECT_EQ(thermal.item(1, 7)->background().color(), QColor(250, 250, 150));
    const QTableWidget& deformation = shown(form, "DeformationHistory");
    EXPECT_EQ(row(deformation, 0), (QStringList{"Цикл 1\nот 01.12.22", "0", "2", "0", "0", "0.0", "Р", "0.00000", "Р"}))
        << "the base cycle against itself";
    EXPECT_EQ(row(deformation, 1),
              (QStringList{"Цикл 2\nот 01.07.23", "0", "2", "0", "0", "20.0", "Р", "0.00200", "ОР I"}));
    EXPECT_EQ(text(form, "BaseCycleNote"), "Относительно исходного цикла: Цикл 1");
    child<QTabWidget>(form, "Pages")->setCurrentIndex(5);
    EXPECT_TRUE(takePicture(form, "position-passport-deformations"));
    child<QTabWidget>(form, "Pages")->setCurrentIndex(4);
    EXPECT_TRUE(takePicture(form, "position-passport-temperatures"));
}

TEST_F(Passport, APositionWithNothing)
{
    PositionPassport form(2);
    EXPECT_EQ(text(form, "AttributeId"), "ID: --");
    EXPECT_EQ(text(form, "DepthText"), "Интервал от  -- м. до  -- м.");
    EXPECT_EQ(number(form, "TemperatureH"), "") << "the limits of the grade are not the position's";
    EXPECT_EQ(text(form, "MarkCount"), "Всего 0");
    EXPECT_EQ(row(shown(form, "ThermalHistory"), 0),
              (QStringList{"Цикл 1\nот 01.12.22", "0", "0", "0", "0", "0", "--", "--"}));
    EXPECT_EQ(row(shown(form, "DeformationHistory"), 1),
              (QStringList{"Цикл 2\nот 01.07.23", "0", "0", "0", "0", "--", "--", "--", "--"}));
}

TEST_F(Passport, NormsAreChosenAndStored)
{
    PositionPassport form(2);
    auto* norms = child<QComboBox>(form, "NormList");
    EXPECT_EQ(norms->itemText(0), "Не выбрана");
    EXPECT_EQ(norms->minimumContentsLength(), 20) << "long names do not widen the form";
    const int elevator = norms->findText("4.1 - ", Qt::MatchStartsWith);
    ASSERT_GT(elevator, 0);
    norms->setCurrentIndex(elevator);
    EXPECT_EQ(number(form, "RelativeDiff"), "") << "a dash in the code of practice";
    EXPECT_EQ(number(form, "AverageDiff"), "40");
    EXPECT_EQ(number(form, "Roll"), "0.003");
    child<QLineEdit>(form, "TemperatureH")->setText("-0.25");
    child<QPushButton>(form, "SaveBtn")->click();
    EXPECT_TRUE(form.hasChanged());
    EXPECT_EQ(database.rows("select temperature_h, temperature_bf, relativediff, averagediff, roll, norm_id from "
                            "positions_attributes where position_id = 2"),
              (QVector<QStringList>{{"-0.25", QString(), QString(), "40", "0.003", norms->currentData().toString()}}));
    EXPECT_EQ(text(form, "AttributeId"),
              "ID: " + database.value("select attr_id from positions_attributes where position_id = 2"));
    child<QLineEdit>(form, "AverageDiff")->setText("12.5");
    child<QPushButton>(form, "SaveBtn")->click();
    EXPECT_EQ(database.rows("select averagediff from positions_attributes where position_id = 2"),
              (QVector<QStringList>{{"12.5"}}))
        << "the row is updated";
    EXPECT_EQ(text(form, "SettlementText"), "12.50 см");
}

TEST_F(Passport, EveryNormHasItsOwnColumnAndField)
{
    const QVector<QPair<const char*, QString>> fields = {
        {"DeepMin", "1.5"},        {"DeepMax", "11"},         {"TemperatureH", "-0.75"},
        {"RelativeDiff", "0.006"}, {"AverageDiff", "15"},     {"Roll", "0.004"},
        {"ConstrHeight", "27.5"},  {"TemperatureBF", "-0.2"}, {"BaseDepth", "8"}};
    QStringList given;
    {
        PositionPassport form(2);
        for (const auto& [name, value] : fields) {
            child<QLineEdit>(form, name)->setText(value);
            given << value;
        }
        child<QPushButton>(form, "SaveBtn")->click();
    }
    EXPECT_EQ(database.rows("select temperature_deep_min, temperature_deep_max, temperature_h, relativediff, "
                            "averagediff, roll, constr_height, temperature_bf, base_depth from positions_attributes "
                            "where position_id = 2"),
              QVector<QStringList>{given});
    const PositionPassport anew(2);
    for (const auto& [name, value] : fields)
        EXPECT_EQ(number(anew, name), value) << name;
}

TEST_F(Passport, WhatIsNoNumberIsNotStored)
{
    PositionPassport form(1);
    child<QLineEdit>(form, "Roll")->setText("-");
    driver.expect("Внимание").text("Крен: '-' — не число").press("OK");
    child<QPushButton>(form, "SaveBtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_FALSE(form.hasChanged());
    EXPECT_EQ(number(form, "Roll"), "-") << "what was entered stays";
}

TEST_F(Passport, AResetIsAskedFor)
{
    PositionPassport form(1);
    driver.expect("Внимание").text("Данное действие приведет к сбросу данных. Продолжить?").press("Нет");
    child<QPushButton>(form, "ResetBtn")->click();
    EXPECT_EQ(database.value("select count(*) from positions_attributes"), "1");
    driver.expect("Внимание").press("Да");
    child<QPushButton>(form, "ResetBtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database.value("select count(*) from positions_attributes"), "0");
    EXPECT_EQ(text(form, "AttributeId"), "ID: --");
    EXPECT_EQ(number(form, "AverageDiff"), "");
    EXPECT_EQ(row(shown(form, "ThermalHistory"), 0).last(), "--");
}

TEST_F(Passport, ARefusalIsTold)
{
    PositionPassport form(1);
    database.exec("alter table positions_attributes add constraint never check (roll is null)");
    child<QLineEdit>(form, "Roll")->setText("0.1");
    driver.expect("Внимание").textContains("Атрибуты не сохранены: ").press("OK");
    child<QPushButton>(form, "SaveBtn")->click();
    loseServer();
    driver.expect("Внимание").text("Данное действие приведет к сбросу данных. Продолжить?").press("Да");
    driver.expect("Внимание").textContains("Атрибуты не сброшены: ").press("OK");
    child<QPushButton>(form, "ResetBtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_FALSE(form.hasChanged());
}

TEST_F(Passport, TheCommandOpensThatOfTheCurrentPosition)
{
    driver.expect("Пасспорт позиции: Позиция 1").press("CloseBtn");
    positionProperties();
    EXPECT_TRUE(driver.done()) << driver.report();
}
