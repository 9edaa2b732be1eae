// The form and the command of the difference map.
#include "analysis/levels/level_map.h"
#include "analysis/maps/forms/map_commands.h"
#include "analysis/maps/forms/temperature_diff_map_form.h"
#include "analysis/maps/map_form_fixture.h"
#include "support/pictures.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace {

class TemperatureDiffMap : public MapFormFixture {
protected:
    // The square with logs of an earlier cycle: warmer by 0 to 4 degrees since.
    void SetUp() override
    {
        MapFixture::SetUp();
        addSquare();
        addLog(1, 1, "1.00:-0.20|3.00:-1.40");
        addLog(2, 1, "1.00:-5.00|2.00:-5.25|3.00:-5.50");
        addLog(3, 1, "1.00:-6.20|3.00:-6.60");
        addLog(4, 1, "1.00:2.90|3.00:3.70");
        addLog(5, 1, "1.00:-2.50");
    }
};

const QString kTitle = QStringLiteral("Построение карты разности температур");

} // namespace

TEST_F(TemperatureDiffMap, SaysWhatItSays)
{
    TemperatureDiffMapForm form;
    expectCaptions(form, "TemperatureDiffMapForm", kTitle,
                   {"Термоскважины", "Значение по", "Глубине", "Абс. Отметке", "Средневзвешенное по глубине",
                    "Значение глубины (отметки)", "Интервал  от", "до забоя", "по забою"});
    EXPECT_EQ(titlesOf(points(form)), (QStringList{"Имя", "X", "Y", "Исх. т-ра (°C)", "Δt (°C)", "Использовать"}));
    EXPECT_TRUE(child<QRadioButton>(form, "DeepSampling")->isChecked());
    EXPECT_FALSE(form.labelsWanted());
    EXPECT_EQ(form.levelMapId(), session().dynamicTemperatureColormapId);
    EXPECT_TRUE(takePicture(form, QStringLiteral("temperature-diff-map-small")));
}

TEST_F(TemperatureDiffMap, ShowsBaseAndDifference)
{
    TemperatureDiffMapForm form;
    EXPECT_EQ(row(points(form), "ТС.1").mid(0, 5), (QStringList{"ТС.1", "0.00", "0.00", "-0.20", "0.00"}));
    EXPECT_EQ(row(points(form), "ТС.2").mid(3, 2), (QStringList{"-5.00", "1.00"}));
    EXPECT_EQ(row(points(form), "ТС.4").mid(3, 2), (QStringList{"2.90", "-3.00"}));
    EXPECT_EQ(form.usedPoints().size(), 5u);
    EXPECT_DOUBLE_EQ(form.usedPoints()[2].z, 2.0) << "the map is of the difference";
    child<QDoubleSpinBox>(form, "DeepSpin")->setValue(3.0);
    EXPECT_EQ(row(points(form), "ТС.5").mid(3, 2), (QStringList{"--", "--"})) << "no log is so deep in the base cycle";
    EXPECT_EQ(use(points(form), "ТС.5")->checkState(), Qt::Unchecked);
    EXPECT_EQ(form.usedNames(), (QStringList{"ТС.1", "ТС.2", "ТС.3", "ТС.4"}));
}

TEST_F(TemperatureDiffMap, TheTableOfValuesJoinsBothCycles)
{
    TemperatureDiffMapForm form;
    const auto* table = child<QTableWidget>(form, "ValuesData");
    ASSERT_EQ(table->rowCount(), 3);
    EXPECT_EQ(titlesOf(*table), (QStringList{"ТС.1", "ТС.2", "ТС.3", "ТС.4", "ТС.5"}));
    EXPECT_EQ(child<QLabel>(form, "ValuesCorner")->text(), QStringLiteral("Глубина"));
    EXPECT_EQ(table->item(0, 1)->text(), QStringLiteral("-5.00/-4.00"));
    EXPECT_EQ(table->item(1, 1)->text(), QStringLiteral("-5.25/~-4.25"));
    EXPECT_EQ(table->item(2, 4)->text(), QStringLiteral("--/-2.50"));
    child<QRadioButton>(form, "HSampling")->setChecked(true);
    EXPECT_EQ(child<QLabel>(form, "ValuesCorner")->text(), QStringLiteral("Абс. отметка"));
    EXPECT_EQ(table->verticalHeaderItem(0)->text(), QStringLiteral("98.50")) << "elevations descend";
    child<QPushButton>(form, "CopyClipBTN")->click();
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("98.50\t-0.20/-0.20\t-5.00/-4.00\t"));
}

TEST_F(TemperatureDiffMap, TheBottomIsTheLastReadingOfEachCycle)
{
    TemperatureDiffMapForm form;
    child<QCheckBox>(form, "EndPoint")->setChecked(true);
    EXPECT_EQ(row(points(form), "ТС.5").mid(3, 2), (QStringList{"-2.50", "0.00"}));
    EXPECT_EQ(row(points(form), "ТС.1").mid(3, 2), (QStringList{"-1.40", "1.00"}));
}

TEST_F(TemperatureDiffMap, OtherCyclesAreReadAnew)
{
    TemperatureDiffMapForm form;
    auto* base = child<QComboBox>(form, "BaseCycleCombo");
    base->setCurrentIndex(base->findData(2));
    EXPECT_EQ(row(points(form), "ТС.2").mid(3, 2), (QStringList{"-4.00", "0.00"})) << "a cycle against itself";
    auto* current = child<QComboBox>(form, "MeasData");
    current->setCurrentIndex(current->findData(1));
    EXPECT_EQ(row(points(form), "ТС.2").mid(3, 2), (QStringList{"-4.00", "-1.00"}));
}

TEST_F(TemperatureDiffMap, TellsAWellThatIsMeasuredTwice)
{
    addLog(3, 2, "1.00:9.00");
    TemperatureDiffMapForm form;
    EXPECT_EQ(status(form), QStringLiteral("Измерены в одном цикле несколько раз (взят первый замер): ТС.3."));
    EXPECT_EQ(row(points(form), "ТС.3").mid(3, 2), (QStringList{"-6.20", "2.00"}));
    EXPECT_EQ(points(form).rowCount(), 5);
}

TEST_F(TemperatureDiffMap, APositionWithoutWellsHasALine)
{
    session().currentPositionId = 2;
    TemperatureDiffMapForm form;
    EXPECT_EQ(status(form), QStringLiteral("Не выбрано ни одной точки со значением."));
    EXPECT_TRUE(form.usedPoints().empty());
}

TEST_F(TemperatureDiffMap, ALostServerIsTold)
{
    loseServer();
    TemperatureDiffMapForm form;
    EXPECT_EQ(status(form), QStringLiteral("Ошибка соединения с базой данных"));
}

TEST_F(TemperatureDiffMap, TheCommandDrawsTheMapAndTwoLabelsAWell)
{
    session().dynamicTemperatureColormapId = LevelMap::Deformation;
    drawWithLabels(kTitle, buildTemperatureDiffMap);
    EXPECT_FALSE(entities<NcDbHatch>(QStringLiteral("MAP")).empty());
    const QStringList drawn = labels();
    ASSERT_EQ(drawn.size(), 10);
    EXPECT_EQ(drawn.mid(0, 4),
              (QStringList{"-0.20 @0,0,0 v3", "d+0.00 @0,0,0 v1", "-5.00 @100,0,0 v3", "d+1.00 @100,0,0 v1"}));
    EXPECT_EQ(drawn.mid(6, 2), (QStringList{"+2.90 @0,100,0 v3", "d-3.00 @0,100,0 v1"}));
    EXPECT_EQ(groupNames().filter(QStringLiteral("TERVA_VALS_")).size(), 1);
    const Opened<NcDbText> text(entities<NcDbText>().front(), kForRead);
    EXPECT_EQ(text->height(), 1.8);
    EXPECT_EQ(text->horizontalMode(), 1);
}

TEST_F(TemperatureDiffMap, UntickedWellsHaveNoLabels)
{
    session().dynamicTemperatureColormapId = LevelMap::Deformation;
    drawWithLabels(kTitle, buildTemperatureDiffMap,
                   [](QWidget& form) { use(points(form), "ТС.1")->setCheckState(Qt::Unchecked); });
    EXPECT_EQ(labels().size(), 8);
    EXPECT_EQ(labels().first(), QStringLiteral("-5.00 @100,0,0 v3"));
}
