// Tables built of given data, without a database.
#include "report_table.h"

#include "reports/templates/deformation_table.h"
#include "reports/templates/element_list_table.h"
#include "reports/templates/inspection_table.h"
#include "reports/templates/position_tables.h"
#include "reports/templates/shades.h"
#include "reports/templates/temperature_table.h"
#include "reports/templates/well_tables.h"
#include "support/console_capture.h"

#include <limits>

namespace {

using Builders = ReportTable;
constexpr double none = std::numeric_limits<double>::infinity();

LevelMap twoRanges()
{
    LevelMap map(LevelMap::User);
    map.ranges = {{-10.0, 0.0, NcCmColor::fromRGB(0, 0, 255)}, {0.0, 10.0, NcCmColor::fromRGB(255, 16, 0)}};
    return map;
}

const QString blue = "0000FF";
const QString red = "FF1000";

} // namespace

TEST_F(Builders, MarksAndMovementsOfEachCycle)
{
    DocxTable table = open({"№|Имя|База|Отметка|Разница", "№|Имя|дата|дата|мм", "0|x|x|x|x"});
    DeformationTable data;
    data.cycles = {{"1", QDate(2022, 12, 1)}, {"2", QDate(2023, 7, 1)}, {"4", QDate(2024, 1, 5)}};
    data.rows = {{"ДМ-1", "Корпус 1", {12.3456, 12.3506, 12.3406}},
                 {"ДМ-2", "Корпус 1", {10.0, none, 10.00004}},
                 {"ДМ-3", "Корпус 2", {none, 5.0, 5.02}}};
    fillDeformationTable(table, data, twoRanges());
    EXPECT_EQ(tableTexts(table.element()),
              (QStringList{"№|Имя|1-цикл|2-цикл|2-1|4-цикл|4-1", "№|Имя|Дек. 2022|Июл. 2023||Янв. 2024|", "Корпус 1",
                           "1|ДМ-1|12.3456|12.3506|+5.0|12.3406|-5.0", "2|ДМ-2|10.0000|-|-|10.0000|0.0", "Корпус 2",
                           "3|ДМ-3|-|5.0000|-|5.0200|-"}));
    EXPECT_EQ(rowShades(table.element(), 3), (QStringList{"", "", "", "", red, "", blue}));
    EXPECT_EQ(rowShades(table.element(), 4), (QStringList{"", "", "", "", "", "", red}));
    EXPECT_EQ(table.columnCount(), 7);
}

TEST_F(Builders, OneHeadingRowHoldsCycleAndMonth)
{
    DocxTable table = open({"№|Имя|База|Отметка|Разница", "0|x|x|x|x"});
    DeformationTable data;
    data.cycles = {{"1", QDate(2022, 12, 1)}, {"2", QDate(2023, 7, 1)}};
    data.rows = {{"ДМ-1", "", {1.0, 1.0}}};
    fillDeformationTable(table, data, twoRanges());
    EXPECT_EQ(tableTexts(table.element()).first(), "№|Имя|1-цикл Дек. 2022|2-цикл Июл. 2023|2-1");
}

TEST_F(Builders, OneCycleLeavesTheOthersColumnsEmpty)
{
    DocxTable table = open({"№|Имя|База|Отметка|Разница", "0|x|x|x|x"});
    DeformationTable data;
    data.cycles = {{"1", QDate(2022, 12, 1)}};
    data.rows = {{"ДМ-1", "К", {1.0}}};
    fillDeformationTable(table, data, twoRanges());
    EXPECT_EQ(tableTexts(table.element()).last(), "1|ДМ-1|1.0000||");
}

TEST_F(Builders, ADepthOfOneWellIsAColumnOfAll)
{
    DocxTable table = open({"№|Имя|Дата|Прибор|Глубина", "0|x|x|x|x"});
    TemperatureTable data;
    data.rows = {{"ТС-1", "К1", "01.07.2023", "SN-1", {{1.0, 0.04}, {2.0, -1.25}, {3.0, none}}},
                 {"ТС-2", "К2", "02.07.2023", "SN-2", {{1.0, -0.04}, {2.5, 3.0}}},
                 {"ТС-3", "К2", "----", "-", {}}};
    fillTemperatureTable(table, data, twoRanges(), Sections::None);
    EXPECT_EQ(tableTexts(table.element()),
              (QStringList{"№|Имя|Дата|Прибор|1.0|2.0|2.5|3.0", "1|ТС-1|01.07.2023|SN-1|+0.0|-1.3|--|--",
                           "2|ТС-2|02.07.2023|SN-2|-0.0|--|+3.0|--", "3|ТС-3|----|-|--|--|--|--"}));
    EXPECT_EQ(rowShades(table.element(), 1), (QStringList{"", "", "", "", red, blue, "", ""}));
    EXPECT_EQ(rowShades(table.element(), 3), (QStringList{"", "", "", "", "", "", "", ""}));
}

TEST_F(Builders, ATitleAboveTheDepthsIsMergedOverThem)
{
    DocxTable table = open({"№|Имя|Дата|Прибор|Глубина, м", "№|Имя|Дата|Прибор|г", "0|x|x|x|x"});
    TemperatureTable data;
    data.rows = {{"ТС-1", "К1", "01.07.2023", "SN-1", {{1.0, 1.0}, {2.0, 1.0}, {3.0, 1.0}}}};
    fillTemperatureTable(table, data, twoRanges(), Sections::None);
    EXPECT_EQ(tableTexts(table.element()).mid(0, 2),
              (QStringList{"№|Имя|Дата|Прибор|Глубина, м", "№|Имя|Дата|Прибор|1.0|2.0|3.0"}));
    EXPECT_EQ(elements(table.element(), "w:gridSpan").value(0).attribute("w:val"), "3");
}

TEST_F(Builders, DifferencesStandUnderTheirPositions)
{
    DocxTable table = open({"№|Имя|Дата|Дата|Глубина", "0|x|x|x|x"});
    TemperatureTable data;
    data.differences = true;
    data.rows = {{"ТС-1", "К1", "01.07.2022", "01.07.2023", {{1.0, 0.04}, {2.0, 0.25}}},
                 {"ТС-2", "К2", "01.07.2022", "01.07.2023", {{1.0, -0.04}}}};
    fillTemperatureTable(table, data, twoRanges(), Sections::ByPosition);
    EXPECT_EQ(tableTexts(table.element()),
              (QStringList{"№|Имя|Дата|Дата|1.0|2.0", "К1", "1|ТС-1|01.07.2022|01.07.2023|0.0|+0.3", "К2",
                           "2|ТС-2|01.07.2022|01.07.2023|0.0|--"}));
}

TEST_F(Builders, TheLegendHasAColumnARange)
{
    ConsoleCapture console;
    DocxTable table = open({"t", "x"});
    fillColorMapTable(table, twoRanges());
    EXPECT_EQ(tableTexts(table.element()), (QStringList{"-10.0|0.0", "|"}));
    EXPECT_EQ(rowShades(table.element(), 1), (QStringList{blue, red}));
    EXPECT_EQ(console.text(), "\nГенерация карты градиентов завершена");
}

TEST_F(Builders, ALegendOfOneRowHoldsValuesInTheColours)
{
    ConsoleCapture console;
    DocxTable table = open({"t|u|v"});
    fillColorMapTable(table, twoRanges());
    EXPECT_EQ(tableTexts(table.element()), (QStringList{"-10.0|0.0|"}));
    EXPECT_EQ(rowShades(table.element(), 0), (QStringList{blue, red, ""}));
}

TEST_F(Builders, ElementsInTheOrderOfTheCells)
{
    DocxTable table = open({"№|П|И|Т|Y|X|L|B|Z|h", "0|x|x|x|x|x|x|x|x|x"});
    fillElementListTable(table, {{"Корпус", "ДМ-1", "Марка", 2.0, 1.0, 90.5, -45.25, 3.126, 4.0}});
    EXPECT_EQ(tableTexts(table.element()).last(),
              "1|Корпус|ДМ-1|Марка|2.00|1.00|E90°30'0.00\"|S45°15'0.00\"|3.13|4.00");
}

TEST_F(Builders, APhotoStandsInTheCellBehindTheFindings)
{
    DocxTable table = open({"№|Имя|А|Итог|Фото", "0|x|x|x|x"});
    QPixmap photo(400, 200);
    photo.fill(Qt::green);
    fillInspectionTable(table, document,
                        {{"РП-1", "К", {"+", "удовл."}, photo}, {"РП-2", "К", {"--", "--"}, QPixmap()}});
    EXPECT_EQ(tableTexts(table.element()),
              (QStringList{"№|Имя|А|Итог|Фото", "К", "1|РП-1|+|удовл.|", "2|РП-2|--|--|"}));
    const QVector<QDomElement> drawings = elements(table.element(), "wp:extent");
    ASSERT_EQ(drawings.size(), 1);
    // 200 x 100 pixels of 1/96 inch: the box of 200 x 150 with the aspect kept.
    EXPECT_EQ(drawings[0].attribute("cx"), "1905000");
    EXPECT_EQ(drawings[0].attribute("cy"), "952500");
    EXPECT_EQ(document.newImages.size(), 1);
}

TEST_F(Builders, APhotoFillsItsBoxOneWay)
{
    for (const auto& [photo, shown] : {std::pair(QSize(40, 30), QSize(200, 150)), {QSize(100, 300), QSize(50, 150)}}) {
        DocxTable table = open({"№|Имя|А|Фото", "0|x|x|x"});
        QPixmap pixmap(photo);
        pixmap.fill(Qt::green);
        fillInspectionTable(table, document, {{"РП-1", "К", {"+"}, pixmap}});
        const QDomElement extent = elements(table.element(), "wp:extent").value(0);
        EXPECT_EQ(extent.attribute("cx").toInt(), shown.width() * 9525);
        EXPECT_EQ(extent.attribute("cy").toInt(), shown.height() * 9525);
    }
}

TEST_F(Builders, MeasuresOfAWellLieAndStand)
{
    WellRecord well;
    well.z = 100.0;
    well.h = 0.5;
    well.measures = {{QDate(2022, 12, 3), "SN-1", "1", 1, {{1.0, -0.04}, {2.0, 1.0}}},
                     {QDate(2023, 7, 2), "", "2", 2, {{1.0, 0.04}, {3.0, none}}}};
    DocxTable lying = open({"№|Дата|Прибор|г", "№|Дата|Прибор|о", "0|x|x|x"});
    fillLyingTable(lying, well);
    EXPECT_EQ(tableTexts(lying.element()),
              (QStringList{"№|Дата|Прибор|1.0|2.0|3.0", "№|Дата|Прибор|98.50|97.50|96.50",
                           "1|03.12.2022|SN-1|0.0|+1.0|-", "2|02.07.2023||0.0|-|-"}));
    DocxTable standing = open({"Глубина|Отметка|1", "Глубина|Отметка|д", "Глубина|Отметка|п", "x|x|x"});
    fillStandingTable(standing, well);
    EXPECT_EQ(tableTexts(standing.element()),
              (QStringList{"Глубина|Отметка|1|2", "Глубина|Отметка|03.12.2022|02.07.2023", "Глубина|Отметка|SN-1|",
                           "1.0|98.50|0.0|0.0", "2.0|97.50|+1.0|-", "3.0|96.50|-|-"}));
}

TEST_F(Builders, AWellWithoutMeasuresHasEmptyTables)
{
    DocxTable lying = open({"№|Дата|Прибор|г", "№|Дата|Прибор|о", "0|x|x|x"});
    fillLyingTable(lying, WellRecord());
    EXPECT_EQ(tableTexts(lying.element()), (QStringList{"№|Дата|Прибор|", "№|Дата|Прибор|"}));
    DocxTable standing = open({"г|о|1", "г|о|д", "г|о|п", "x|x|x"});
    fillStandingTable(standing, WellRecord());
    EXPECT_EQ(tableTexts(standing.element()), (QStringList{"г|о|", "г|о|", "г|о|"}));
}

TEST_F(Builders, StatesOfSoilAndDeformations)
{
    const auto side = [](Grade grade, std::vector<GradedElement> elements) {
        GradedSide made{std::move(elements), {}, grade};
        for (const GradedElement& element : made.elements)
            ++made.counts[size_t(element.grade)];
        return made;
    };
    GradedCycle cycle{"2", "01.07.23", {}};
    cycle.grades.thermal =
        side(Grade::LimitedII,
             {{1, "", Grade::Normal, -2.0}, {2, "", Grade::LimitedII, -0.25}, {3, "", Grade::NoMeasures, none}});
    cycle.grades.settlement = side(Grade::Limited, {{1, "", Grade::Normal, 0.001}, {2, "", Grade::Fail, 0.25}});
    cycle.grades.relative = side(Grade::Fail, {{1, "", Grade::Limited, 0.0005}});
    DocxTable soil = open({"a|b|c|d|e|f|g|h|i", "x|x|x|x|x|x|x|x|x"});
    fillSoilStateTable(soil, {cycle, {"3", "01.08.23", {}}});
    EXPECT_EQ(tableTexts(soil.element()).mid(1),
              (QStringList{"Цикл 2|от 01.07.23|1|1|0|1|0|от -2.00\nдо -0.25 |ОР II",
                           "Цикл 3|от 01.08.23|0|0|0|0|0| -- |--"}));
    DocxTable deformations = open({"a|b|c|d|e|f|g|h|i|j", "x|x|x|x|x|x|x|x|x|x"});
    fillDeformationStateTable(deformations, {cycle});
    EXPECT_EQ(tableTexts(deformations.element()).last(),
              "Цикл 2|от 01.07.23|0|1|0|1|от 1.0 мм\nдо 250.0 мм|ОР I|от 0.00050\nдо 0.00050 |H");
}

TEST_F(Builders, NormsSpellOutWhatAStateMeans)
{
    ReportedNorms norms;
    norms.exist = true;
    norms.depthFrom = 5;
    norms.depthTo = 15;
    norms.temperatureH = -0.5;
    norms.temperatureBf = -0.1;
    norms.baseDepth = 10;
    norms.settlement = 12;
    norms.relative = 0.002;
    DocxTable table = open({"a|b|c|d|e", "x|x|x|x|x"});
    fillNormTable(table, norms);
    EXPECT_EQ(
        tableTexts(table.element()).mid(1),
        (QStringList{"Интервал от 5м. до 15м.|Менее -0.5 |От -0.5 |От -0.1 | -- ",
                     "Глубина 10 м.| -- | -- |Менее -0.1 |От -0.1 ",
                     "Осадка|менее 12 см|от 12 см до 13.2 см| -- |более 13.2 см",
                     "Относительная осадка|менее 0.0005 |от 0.0005  до 0.0016 |от 0.0016  до 0.002 |более 0.002 "}));
    EXPECT_EQ(depthText(5, none), "Глубина 5 м.");
    EXPECT_EQ(depthText(none, none), " -- ");
    EXPECT_TRUE(normRows(ReportedNorms()).isEmpty());
}

TEST_F(Builders, TheSummaryOfPositions)
{
    PositionGrades graded;
    graded.attributes.exist = true;
    graded.thermal.grade = Grade::Normal;
    graded.settlement.grade = Grade::NoMeasures;
    graded.relative.grade = Grade::Fail;
    graded.grade = Grade::Fail;
    DocxTable table = open({"a|b|c|d|e|f|g|h|i", "x|x|x|x|x|x|x|x|x"});
    fillSummaryTable(table, {{"О", "П", "Корпус 1", graded}, {"О", "П", "Корпус 2", {}}});
    EXPECT_EQ(tableTexts(table.element()).mid(1),
              (QStringList{"1|О|П|Корпус 1|Да|Р|НИ|H|H", "2|О|П|Корпус 2|Нет|--|--|--|--"}));
}
