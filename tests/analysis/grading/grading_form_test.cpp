// Positions graded on a real database, as the forms show and store them.
#include "analysis/grading/attribute_texts.h"
#include "analysis/grading/forms/grading_commands.h"
#include "analysis/grading/forms/positions_analytic_states_form.h"
#include "analysis/grading/grading_fixture.h"
#include "analysis/grading/stored_grades.h"
#include "analysis/maps/real_input.h"
#include "support/pictures.h"

#include <drawing/application.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QXmlStreamReader>

namespace {

class Summary : public GradingFixture {
protected:
    static void press(const QWidget& form, const char* name) { child<QPushButton>(form, name)->click(); }
    static QTableWidget& list(const QWidget& form) { return *child<QTableWidget>(form, "PositionList"); }
    static QString status(const QWidget& form) { return child<QLabel>(form, "StatusLabel")->text(); }
};

} // namespace

TEST_F(Summary, CaptionsTitlesAndDefaults)
{
    PositionsAnalyticStatesForm form;
    EXPECT_EQ(form.windowTitle(), "Геотехническое состояние сооружений");
    QStringList captions;
    for (const char* name : {"RunBTN", "SaveStatsZ_btn", "ExportClipBTN", "ExportCSVBTN", "CloseBtn"})
        captions << child<QPushButton>(form, name)->text();
    EXPECT_EQ(captions, (QStringList{"Обработать", "Сохранить", "Экспорт в буфер", "Экспорт в CSV", "Закрыть"}));
    EXPECT_EQ(titlesOf(list(form)),
              (QStringList{"Объект", "Подобъект", "Позиция", "Норм. значения", "Сост. грунтов", "Макс. осадка",
                           "Отн. осадка", "Сост. позиции"}));
    EXPECT_EQ(child<QComboBox>(form, "BaseCyclesCombo")->currentData(), 1);
    EXPECT_EQ(child<QComboBox>(form, "CurrentCyclesCombo")->currentData(), 2);
    EXPECT_EQ(row(list(form), 0), (QStringList{"Объект", "Подобъект", "Позиция 1", "", "", "", "", ""}));
    EXPECT_EQ(list(form).rowCount(), 2);
}

// Two epochs of fifty bolts in walls: nine sank by more than 22 mm, three by 20 to 22 mm. Along a front
// 12281253 sank by 13.2 mm more than its neighbour at 9.85 m: 0.67 of what is allowed.
TEST_F(Summary, GradesRealBolts)
{
    database.exec("insert into positions_attributes (position_id, averagediff, relativediff) values (2, 2, 0.002);"
                  "insert into deformation_profiles (profile_id, position_id, profile_name) overriding system value "
                  "values (2, 2, 'Фасад')");
    int id = 100;
    for (const RealBolt& bolt : realBolts(QStringLiteral(TERVA_SOURCE_DIR))) {
        ++id;
        database.exec(
            QString("insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, "
                    "z, h) overriding system value values (%1, 'dm', '%2', 'exist', 2, %3, %4, 0, 0);"
                    "insert into dm_meas (element_id, cycle_id, date, meas) values "
                    "(%1, 1, '2022-12-10', %5), (%1, 2, '2023-07-10', %6)")
                .arg(id)
                .arg(bolt.name)
                .arg(bolt.x, 0, 'f', 1)
                .arg(bolt.y, 0, 'f', 1)
                .arg(bolt.base, bolt.current));
        if (bolt.name >= "12281252" && bolt.name <= "12281259")
            database.exec(QString("insert into deformation_profiles_points (profile_id, element_id, param, dist) "
                                  "values (2, %1, %1, %1)")
                              .arg(id));
    }
    ASSERT_EQ(id, 150);
    PositionsAnalyticStatesForm form;
    press(form, "RunBTN");
    EXPECT_EQ(row(list(form), 1).mid(3), (QStringList{"Да", "НИ", "ОР I", "ОР I", "ОР I"}));
    EXPECT_EQ(list(form).item(1, 5)->toolTip(), "Рабочие: 38\nОграниченно Рабочие I: 3\nНерабочие: 9");
    EXPECT_EQ(list(form).item(1, 6)->toolTip(), "Ограниченно Рабочие I: 1");
}

TEST_F(Summary, GradesEveryPosition)
{
    PositionsAnalyticStatesForm form;
    press(form, "RunBTN");
    // Wells: one at -1.5 (state 0) and one at -0.7 (state 1). Marks: 20 mm of 100 allowed.
    // Profile: 20 mm over 10 m is 0.002 of 0.004.
    EXPECT_EQ(row(list(form), 0).mid(3), (QStringList{"Да", "ОР I", "Р", "ОР I", "ОР I"}));
    EXPECT_EQ(row(list(form), 1).mid(3), (QStringList{"Нет", "--", "--", "--", "--"}));
    EXPECT_EQ(list(form).item(0, 4)->foreground().color(), QColor(255, 0, 0));
    EXPECT_EQ(list(form).item(0, 4)->background().color(), QColor(250, 250, 150));
    EXPECT_EQ(list(form).item(0, 5)->foreground().color(), QColor(0, 255, 0));
    EXPECT_EQ(list(form).item(0, 5)->background().style(), Qt::NoBrush);
    EXPECT_EQ(list(form).item(1, 4)->foreground().style(), Qt::NoBrush);
    EXPECT_EQ(list(form).item(0, 4)->toolTip(), "Рабочие: 1\nОграниченно Рабочие I: 1\nНет Измерений: 1");
    EXPECT_EQ(status(form), "Обработано позиций: 2 из 2");
    EXPECT_TRUE(takePicture(form, "positions-states"));
}

TEST_F(Summary, ColoursOfTheWorseStates)
{
    database.exec("update positions_attributes set relativediff = 0.0021, averagediff = 1");
    PositionsAnalyticStatesForm form;
    press(form, "RunBTN");
    EXPECT_EQ(row(list(form), 0).mid(3), (QStringList{"Да", "ОР I", "ОР II", "ОР II", "ОР I"}));
    EXPECT_EQ(list(form).item(0, 5)->background().color(), QColor(250, 200, 50));
    database.exec("update positions_attributes set relativediff = 0.0001");
    press(form, "RunBTN");
    EXPECT_EQ(row(list(form), 0).mid(6), (QStringList{"H", "H"}));
    EXPECT_EQ(list(form).item(0, 6)->background().color(), QColor(250, 100, 0));
    EXPECT_EQ(list(form).item(0, 6)->foreground().color(), QColor(255, 0, 0));
}

TEST_F(Summary, TheEarlierCycleIsTheBaseWhateverTheOrder)
{
    PositionsAnalyticStatesForm form;
    child<QComboBox>(form, "BaseCyclesCombo")->setCurrentIndex(1);
    child<QComboBox>(form, "CurrentCyclesCombo")->setCurrentIndex(0);
    press(form, "RunBTN");
    EXPECT_EQ(row(list(form), 0).mid(3), (QStringList{"Да", "ОР I", "Р", "ОР I", "ОР I"}));
    child<QComboBox>(form, "BaseCyclesCombo")->setCurrentIndex(0);
    EXPECT_EQ(row(list(form), 0).mid(3).join(""), "") << "another pair: nothing is known of it yet";
}

TEST_F(Summary, SaysWhatIsMissing)
{
    database.exec("update positions_attributes set temperature_h = null, averagediff = null, relativediff = null");
    PositionsAnalyticStatesForm form;
    press(form, "RunBTN");
    EXPECT_EQ(row(list(form), 0).mid(3), (QStringList{"Да", "НИ", "Р", "НИ", "Р"}));
    EXPECT_TRUE(list(form).item(0, 4)->toolTip().startsWith("Не задана температура твёрдого состояния Th\n"));
    EXPECT_TRUE(list(form).item(0, 5)->toolTip().startsWith("Не задана предельная осадка\n"));
    EXPECT_TRUE(list(form).item(0, 6)->toolTip().startsWith("Не задана предельная относительная осадка\n"));
    EXPECT_TRUE(list(form).item(1, 4)->toolTip().startsWith("Атрибуты позиции не заданы"));
}

TEST_F(Summary, TheFirstOfSeveralMeasuresCounts)
{
    database.exec("insert into dm_meas (element_id, cycle_id, date, meas) values (1, 2, '2023-07-20', 55);"
                  "insert into ts_meas (element_id, cycle_id, date, meas) values (1, 2, '2023-07-20', '1:9|3:9|4:9')");
    PositionsAnalyticStatesForm form;
    press(form, "RunBTN");
    EXPECT_EQ(row(list(form), 0).mid(3), (QStringList{"Да", "ОР I", "Р", "ОР I", "ОР I"}));
}

TEST_F(Summary, IsStoredOncePerPairOfCycles)
{
    PositionsAnalyticStatesForm form;
    driver.expect("Внимание").text("Нет обработанных позиций: сохранять нечего").press("OK");
    press(form, "SaveStatsZ_btn");
    EXPECT_TRUE(driver.done()) << driver.report();
    press(form, "RunBTN");
    press(form, "SaveStatsZ_btn");
    EXPECT_EQ(status(form), "Сохранено состояний: 2 из 2");
    const QString first = database.value("select max(stat_id) from positions_stat");
    database.exec("update positions_stat set content = 'old', created_at = '2001-01-01'");
    press(form, "SaveStatsZ_btn");
    EXPECT_EQ(database.rows("select position_id, base_cycle_id, current_cycle_id, content like '<?xml%', "
                            "created_at > '2002-01-01' from positions_stat order by 1"),
              (QVector<QStringList>{{"1", "1", "2", "t", "t"}, {"2", "1", "2", "t", "t"}}));
    EXPECT_EQ(database.value("select max(stat_id) from positions_stat"), first);
    EXPECT_EQ(database.value("select content from positions_stat where position_id = 1"),
              gradesXml(gradedPosition(1, 1, 2)));
}

TEST_F(Summary, WithoutTheTableTheRestWorks)
{
    database.exec("drop table positions_stat");
    PositionsAnalyticStatesForm form;
    press(form, "RunBTN");
    driver.expect("Внимание").text("В базе данных нет таблицы positions_stat: состояния не сохранены").press("OK");
    press(form, "SaveStatsZ_btn");
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST_F(Summary, ANameWithAnApostropheIsNotStoredAndIsTold)
{
    database.exec("update ts_elements set element_name = 'О''Нил' where element_id = 1");
    PositionsAnalyticStatesForm form;
    press(form, "RunBTN");
    driver.expect("Внимание").textContains("Не сохранены состояния позиций (1):\nПозиция 1: ").press("OK");
    press(form, "SaveStatsZ_btn");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database.value("select count(*) from positions_stat"), "1");
}

TEST_F(Summary, GoesToTheClipboardAndToAFile)
{
    QTemporaryDir folder;
    PositionsAnalyticStatesForm form;
    press(form, "RunBTN");
    const QString lines =
        "Объект;Подобъект;Позиция;Норм. значения;Сост. грунтов;Макс. осадка;Отн. осадка;Сост. позиции\n"
        "Объект;Подобъект;Позиция 1;Да;ОР I;Р;ОР I;ОР I\n"
        "Объект;Подобъект;Позиция 2;Нет;--;--;--;--\n";
    press(form, "ExportClipBTN");
    EXPECT_EQ(QApplication::clipboard()->text(), QString(lines).replace(';', '\t'));
    driver.expect("Экспорт в csv").files({folder.filePath("состояния")});
    press(form, "ExportCSVBTN");
    EXPECT_TRUE(driver.done()) << driver.report();
    QFile file(folder.filePath("состояния.csv"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QTextCodec::codecForName("Windows-1251")->toUnicode(file.readAll()), lines);
}

TEST_F(Summary, TheMenuOpensThePassportAndChoosesThePosition)
{
    PositionsAnalyticStatesForm form;
    press(form, "RunBTN");
    form.show();
    driver.window("PositionsAnalyticStatesForm")
        .step("menu", {"PositionList", "1", "2"})
        .step("choose", {"Пасспорт позиции"});
    driver.expect("Пасспорт позиции: Позиция 2").set("AverageDiff", "10").press("SaveBtn").press("CloseBtn");
    driver.play();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(row(list(form), 1).mid(3), (QStringList{"Да", "НИ", "НИ", "--", "--"})) << "graded anew";
    driver.window("PositionsAnalyticStatesForm")
        .step("menu", {"PositionList", "1", "2"})
        .step("choose", {"Установить текущей"});
    QTemporaryDir folder;
    session().tempDir = folder.path();
    driver.play();
    EXPECT_EQ(session().currentPositionId, 2);
    closeAllDocuments();
    session().tempDir.clear();
    EXPECT_EQ(status(form), "Текущая позиция: Позиция 2");
}

TEST_F(Summary, WhatCannotBeGradedAnewStaysAndIsTold)
{
    PositionsAnalyticStatesForm form;
    press(form, "RunBTN");
    const QStringList before = row(list(form), 0);
    form.show();
    driver.window("PositionsAnalyticStatesForm")
        .step("menu", {"PositionList", "0", "2"})
        .step("choose", {"Пасспорт позиции"});
    driver.expect("Пасспорт позиции: Позиция 1")
        .set("AverageDiff", "1")
        .press("SaveBtn")
        .call([this](QWidget*) {
            loseServer();
            return QString();
        })
        .press("CloseBtn");
    driver.play();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(status(form), "Не прочитаны данные: Позиция 1");
    EXPECT_EQ(row(list(form), 0), before);
}

TEST_F(Summary, WithoutACurrentCycleTheLastOneIsOffered)
{
    session().currentCycleId = -1;
    const PositionsAnalyticStatesForm form;
    EXPECT_EQ(child<QComboBox>(form, "CurrentCyclesCombo")->currentData(), 2);
    EXPECT_EQ(child<QComboBox>(form, "BaseCyclesCombo")->currentData(), 1);
}

TEST_F(Summary, ALongRunCanBeStopped)
{
    database.exec("insert into positions (position_id, subobject_id, position, appearence) overriding system value "
                  "select i, 1, 'П' || i, i from generate_series(100, 999) i");
    PositionsAnalyticStatesForm form;
    driver.expect("Обработка позиций").press("Отмена");
    press(form, "RunBTN");
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(row(list(form), 0).last(), "ОР I") << "what was done stays";
    EXPECT_EQ(row(list(form), 901).last(), "") << status(form);
}

TEST_F(Summary, WithoutAConnection)
{
    loseServer();
    PositionsAnalyticStatesForm form;
    EXPECT_EQ(status(form), "\nНе установлено соединение с базой данных\n");
    EXPECT_EQ(list(form).rowCount(), 0);
}

TEST_F(Summary, TheServerGoesWhileTheFormIsOpen)
{
    PositionsAnalyticStatesForm form;
    loseServer();
    press(form, "RunBTN");
    EXPECT_EQ(status(form), "\nНе установлено соединение с базой данных\n");
    EXPECT_EQ(row(list(form), 0).mid(3).join(""), "");
}

TEST_F(Summary, TheCommandOpensTheForm)
{
    driver.expect("Геотехническое состояние сооружений").press("RunBTN").press("CloseBtn");
    positionSummary();
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST_F(Summary, TheStoredTextHasItsShape)
{
    QStringList path, lines;
    QXmlStreamReader xml(gradesXml(gradedPosition(1, 1, 2)).toUtf8());
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            path << xml.name().toString();
            QStringList attributes;
            for (const QXmlStreamAttribute& attribute : xml.attributes())
                attributes << attribute.name().toString() + "=" + attribute.value().toString();
            lines << path.join('/') + " " + attributes.join(' ');
        } else if (xml.isEndElement()) {
            path.removeLast();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString();
    EXPECT_TRUE(gradesXml(gradedPosition(1, 1, 2)).startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
    const QStringList expected{
        "Position ID=1",
        "Position/Attribute Exist=1",
        "Position/Attribute/PositionID Value=1",
        "Position/Attribute/AttributeID Value=1",
        "Position/Attribute/TemperatureDeepMin Value=1",
        "Position/Attribute/TemperatureDeepMax Value=3",
        "Position/Attribute/Temperature Value=-1",
        "Position/Attribute/AverageDiff Value=10",
        "Position/Attribute/Roll Value=inf",
        "Position/Attribute/ConstructionHeigth Value=inf",
        "Position/Attribute/NormativeID Value=-1",
        "Position/Attribute/TemperatureH Value=-1",
        "Position/Attribute/TemperatureBF Value=-0.5",
        "Position/Attribute/BaseDepth Value=2",
        "Position/Elements ",
        "Position/Elements/DMElements Count=2",
        "Position/Elements/GGSElements Count=0",
        "Position/Elements/RPElements Count=0",
        "Position/Elements/TSElements Count=3",
        "Position/Elements/TSGElements Count=0",
        "Position/Elements/TSSElements Count=0",
        "Position/Cycles ",
        "Position/Cycles/BaseCycle ID=1",
        "Position/Cycles/CurrentCycle ID=2",
        "Position/ThermalStates PositionState=1",
        "Position/ThermalStates/NoMeasures Count=1",
        "Position/ThermalStates/NoMeasures/TSElement ID=3 Name=Т3",
        "Position/ThermalStates/Normal Count=1",
        "Position/ThermalStates/Normal/TSElement ID=1 Name=Т1",
        "Position/ThermalStates/Limited Count=1",
        "Position/ThermalStates/Limited/TSElement ID=2 Name=Т2",
        "Position/ThermalStates/LimitedII Count=0",
        "Position/ThermalStates/Fail Count=0",
        "Position/DeformationStates PositionState=0",
        "Position/DeformationStates/NoMeasures Count=0",
        "Position/DeformationStates/Normal Count=2",
        "Position/DeformationStates/Normal/DMElement ID=1 Name=М1",
        "Position/DeformationStates/Normal/DMElement ID=2 Name=М2",
        "Position/DeformationStates/Limited Count=0",
        "Position/DeformationStates/LimitedII Count=0",
        "Position/DeformationStates/Fail Count=0",
        "Position/RelativeDeformationStates PositionState=1",
        "Position/RelativeDeformationStates/NoMeasures Count=0",
        "Position/RelativeDeformationStates/Normal Count=0",
        "Position/RelativeDeformationStates/Limited Count=1",
        "Position/RelativeDeformationStates/Limited/DeformationProfile ID=1 Name=Ось А",
        "Position/RelativeDeformationStates/LimitedII Count=0",
        "Position/RelativeDeformationStates/Fail Count=0",
    };
    EXPECT_EQ(lines, expected);
    const QString absent = gradesXml(gradedPosition(2, 1, 2));
    EXPECT_TRUE(absent.contains("<Attribute Exist=\"0\"/>")) << absent;
    EXPECT_TRUE(absent.contains("<ThermalStates PositionState=\"5\">"));
}
