// The isocontour dialog, and the command from its prompt to the drawing.
#include "analysis/levels/level_map.h"
#include "analysis/maps/forms/iso_contours_cmd_dialog.h"
#include "analysis/maps/forms/map_commands.h"
#include "analysis/maps/map_form_fixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>

namespace {

using MapBuilding = TemperatureMap;

contour::PointList squarePoints()
{
    return {{0, 0, -0.2}, {100, 0, -4}, {100, 100, -4.2}, {0, 100, -0.1}, {50, 50, -2}};
}

contour::PointList squareBounds() { return {{-10, -10, 0}, {110, -10, 0}, {110, 110, 0}, {-10, 110, 0}}; }

} // namespace

TEST_F(MapBuilding, LabelsAreDrawnOnlyWithAMap)
{
    database.exec("delete from ts_meas where element_id > 2");
    driver.expect(QStringLiteral("Построение карты температур"))
        .set(QStringLiteral("LabelsOutEnabled"), QStringLiteral("on"))
        .press(QStringLiteral("okButton"));
    driver.expect(QStringLiteral("Построение изоконтуров"))
        .set(QStringLiteral("CalculateBoundCheck"), QStringLiteral("on"))
        .press(QStringLiteral("okButton"));
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Карта не построена: нужно не меньше трёх точек, есть только ТС.1, ТС.2."))
        .press(QStringLiteral("OK"));
    BorderAnswer answer{NcDbObjectId()};
    buildTemperatureMap();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(entities<NcDbText>().empty());
}

TEST_F(MapBuilding, AMapThatDrewNothingHasNoLabels)
{
    const NcDbObjectId border = squareBorder();
    driver.expect(QStringLiteral("Построение карты температур"))
        .set(QStringLiteral("LabelsOutEnabled"), QStringLiteral("on"))
        .press(QStringLiteral("okButton"));
    const auto asksForNeither = [](QWidget* contours) {
        QStringList shown;
        for (const QGroupBox* group : contours->findChildren<QGroupBox*>()) {
            if (group->isVisible())
                shown << group->title();
        }
        return shown.contains("Точки поверхности:") || shown.contains("Граница:") ? shown.join(", ") : QString();
    };
    driver.expect(QStringLiteral("Построение изоконтуров"))
        .call(asksForNeither)
        .set(QStringLiteral("HatchOutChek"), QStringLiteral("off"))
        .press(QStringLiteral("okButton"));
    BorderAnswer answer(border);
    buildTemperatureMap();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(entities<NcDbText>().empty());
    EXPECT_TRUE(answer.printed.contains(QStringLiteral("Карта ничего не вывела"))) << answer.printed.toStdString();
}

TEST_F(MapBuilding, TheDialogHasItsDefaults)
{
    IsoContoursCmdDialog dialog;
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Построение изоконтуров"));
    EXPECT_EQ(child<QLineEdit>(dialog, "MethodParamOne")->text(), QStringLiteral("2.0"));
    EXPECT_EQ(child<QLineEdit>(dialog, "MethodParamTwo")->text(), QStringLiteral("15"));
    EXPECT_EQ(child<QLineEdit>(dialog, "MethodParamThree")->text(), QStringLiteral("0"));
    EXPECT_TRUE(child<QCheckBox>(dialog, "SplineLine")->isChecked());
    EXPECT_EQ(child<QSlider>(dialog, "TauSlider")->value(), 50);
    EXPECT_EQ(child<QLineEdit>(dialog, "TauValue")->text(), QStringLiteral("0.50"));
    EXPECT_EQ(child<QSpinBox>(dialog, "SplinePointNum")->value(), 10);
    EXPECT_FALSE(child<QCheckBox>(dialog, "IsolineFilterCheck")->isChecked());
    EXPECT_EQ(child<QLineEdit>(dialog, "FilterLinesDistance")->text(), QStringLiteral("0.1"));
    EXPECT_FALSE(child<QCheckBox>(dialog, "RefineLine")->isChecked());
    EXPECT_EQ(child<QLineEdit>(dialog, "RefineLineDist")->text(), QStringLiteral("50.0"));
    EXPECT_EQ(child<QSpinBox>(dialog, "RefineLineCount")->value(), 5);
    EXPECT_TRUE(child<QCheckBox>(dialog, "HatchOutChek")->isChecked());
    EXPECT_FALSE(child<QCheckBox>(dialog, "IsoLineOutCheck")->isChecked());
    EXPECT_FALSE(child<QCheckBox>(dialog, "IsoContoursOutCheck")->isChecked());
    EXPECT_TRUE(child<QPushButton>(dialog, "PreviewBTN")->isHidden());
    EXPECT_TRUE(child<QLineEdit>(dialog, "MethodParamOne")->isHidden()) << "a triangulation has no parameters";
    auto* method = child<QComboBox>(dialog, "MethodCombo");
    EXPECT_EQ(method->itemText(1), QStringLiteral("IDW (Долго)"));
    method->setCurrentIndex(1);
    EXPECT_FALSE(child<QLineEdit>(dialog, "MethodParamOne")->isHidden());
    const auto* layers = child<QComboBox>(dialog, "HatchOutLayer");
    EXPECT_GE(layers->findText(QStringLiteral("MAP")), 0);

    const contour::BuildParameters defaults;
    method->setCurrentIndex(0);
    const contour::BuildParameters shown = dialog.parameters();
    EXPECT_EQ(shown.power, defaults.power);
    EXPECT_EQ(shown.neighbours, defaults.neighbours);
    EXPECT_EQ(shown.tension, defaults.tension);
    EXPECT_EQ(shown.splineSamples, defaults.splineSamples);
    EXPECT_EQ(shown.filterDistance, defaults.filterDistance);
    EXPECT_EQ(shown.refineDistance, defaults.refineDistance);
    EXPECT_EQ(shown.refineParts, defaults.refineParts);
}

TEST_F(MapBuilding, EachParameterIsReadFromItsOwnControl)
{
    IsoContoursCmdDialog dialog;
    const contour::BuildParameters before = dialog.parameters();
    EXPECT_FALSE(before.calculateBoundary || before.filterLines || before.refineLines);
    child<QCheckBox>(dialog, "RefineLine")->setChecked(true);
    EXPECT_TRUE(dialog.parameters().refineLines);
    EXPECT_FALSE(dialog.parameters().filterLines || dialog.parameters().calculateBoundary);
    child<QCheckBox>(dialog, "RefineLine")->setChecked(false);
    child<QCheckBox>(dialog, "IsolineFilterCheck")->setChecked(true);
    EXPECT_TRUE(dialog.parameters().filterLines);
    EXPECT_FALSE(dialog.parameters().refineLines || dialog.parameters().calculateBoundary);
    child<QCheckBox>(dialog, "IsolineFilterCheck")->setChecked(false);
    child<QCheckBox>(dialog, "CalculateBoundCheck")->setChecked(true);
    EXPECT_TRUE(dialog.parameters().calculateBoundary);
    EXPECT_FALSE(dialog.parameters().refineLines || dialog.parameters().filterLines);
    child<QCheckBox>(dialog, "SplineLine")->setChecked(false);
    EXPECT_FALSE(dialog.parameters().smoothLines);

    child<QLineEdit>(dialog, "FilterLinesDistance")->setText(QStringLiteral("0.25"));
    child<QLineEdit>(dialog, "RefineLineDist")->setText(QStringLiteral("12.5"));
    child<QSpinBox>(dialog, "RefineLineCount")->setValue(7);
    child<QSpinBox>(dialog, "SplinePointNum")->setValue(13);
    child<QLineEdit>(dialog, "MethodParamOne")->setText(QStringLiteral("3.5"));
    child<QLineEdit>(dialog, "MethodParamTwo")->setText(QStringLiteral("21"));
    const contour::BuildParameters after = dialog.parameters();
    EXPECT_EQ(after.filterDistance, 0.25);
    EXPECT_EQ(after.refineDistance, 12.5);
    EXPECT_EQ(after.refineParts, 7);
    EXPECT_EQ(after.splineSamples, 13);
    EXPECT_EQ(after.power, 3.5);
    EXPECT_EQ(after.neighbours, 21);
}

TEST_F(MapBuilding, TheLimitsOfThePointsStandEachInItsField)
{
    IsoContoursCmdDialog dialog;
    dialog.SetPoints({{1, 20, -3}, {4, 50, 6}, {2, 30, 0}});
    const QPair<const char*, const char*> limits[] = {{"XMin", "1.00"},  {"XMax", "4.00"},  {"YMin", "20.00"},
                                                      {"YMax", "50.00"}, {"ZMin", "-3.00"}, {"ZMax", "6.00"}};
    for (const auto& [name, text] : limits)
        EXPECT_EQ(child<QLabel>(dialog, name)->text(), QString(text)) << name;
}

TEST_F(MapBuilding, ParametersThatAreNoNumbersCountAsZero)
{
    IsoContoursCmdDialog dialog;
    child<QLineEdit>(dialog, "MethodParamOne")->setText(QStringLiteral("-"));
    child<QLineEdit>(dialog, "MethodParamTwo")->setText(QStringLiteral("7.9"));
    EXPECT_EQ(dialog.parameters().power, 0.0);
    EXPECT_EQ(dialog.parameters().neighbours, 7) << "truncated";
}

TEST_F(MapBuilding, TheSliderSetsTheTension)
{
    IsoContoursCmdDialog dialog;
    child<QSlider>(dialog, "TauSlider")->setValue(7);
    EXPECT_EQ(child<QLineEdit>(dialog, "TauValue")->text(), QStringLiteral("0.07"));
    EXPECT_EQ(dialog.parameters().tension, 0.07);
}

TEST_F(MapBuilding, TheMapTypeTakesTheProjectsColourMap)
{
    session().temperatureColormapId = -3;
    session().deformationColormapId = -2;
    session().dynamicTemperatureColormapId = -1;
    IsoContoursCmdDialog dialog;
    const auto* combo = child<QComboBox>(dialog, "LevelMapType");
    dialog.SetMapType(0);
    EXPECT_EQ(combo->currentData().toInt(), -3);
    dialog.SetMapType(1);
    EXPECT_EQ(combo->currentData().toInt(), -2);
    dialog.SetMapType(2);
    EXPECT_EQ(combo->currentData().toInt(), -1);
    dialog.SetMapType(3);
    EXPECT_EQ(combo->currentData().toInt(), -1) << "other values do nothing";
}

TEST_F(MapBuilding, BuildingNeedsPointsAndABorder)
{
    IsoContoursCmdDialog dialog;
    driver.expect(QStringLiteral("Внимание")).text(QStringLiteral("Не загружены точки!")).press(QStringLiteral("OK"));
    EXPECT_FALSE(dialog.build());
    EXPECT_TRUE(driver.done()) << driver.report();
    dialog.SetPoints(squarePoints());
    driver.expect(QStringLiteral("Внимание")).text(QStringLiteral("Не загружены границы!")).press(QStringLiteral("OK"));
    EXPECT_FALSE(dialog.build());
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(entities<NcDbHatch>().empty());
    child<QCheckBox>(dialog, "CalculateBoundCheck")->setChecked(true);
    EXPECT_TRUE(dialog.build()) << "the hull stands in for a border";
}

TEST_F(MapBuilding, BuildingTwiceGivesTheSameMap)
{
    IsoContoursCmdDialog dialog;
    dialog.SetPoints(squarePoints());
    dialog.SetBounds(squareBounds(), false);
    dialog.SetLevelMapID(LevelMap::Temperature);
    child<QCheckBox>(dialog, "IsoLineOutCheck")->setChecked(true);
    ASSERT_TRUE(dialog.build());
    const size_t lines = dialog.isolineIds().size();
    const size_t hatches = dialog.hatchIds().size();
    EXPECT_GT(lines, 0u);
    EXPECT_GT(hatches, 0u);
    NcGePoint3d first, again;
    Opened<NcDbPolyline>(dialog.isolineIds()[0], kForRead)->getPointAt(3, first);
    ASSERT_TRUE(dialog.build());
    EXPECT_EQ(dialog.isolineIds().size(), lines);
    EXPECT_EQ(dialog.hatchIds().size(), hatches);
    Opened<NcDbPolyline>(dialog.isolineIds()[0], kForRead)->getPointAt(3, again);
    EXPECT_EQ(first, again);
}

TEST_F(MapBuilding, ALayerThatIsGoneDrawsNothing)
{
    IsoContoursCmdDialog dialog;
    dialog.SetPoints(squarePoints());
    dialog.SetBounds(squareBounds(), false);
    auto* layer = child<QComboBox>(dialog, "HatchOutLayer");
    layer->addItem(QStringLiteral("ИСЧЕЗ"));
    layer->setCurrentText(QStringLiteral("ИСЧЕЗ"));
    EXPECT_TRUE(dialog.build());
    EXPECT_TRUE(dialog.hatchIds().empty());
    EXPECT_EQ(console.text(), QString());
}

TEST_F(MapBuilding, PointsAndBorderAreReadFromLayers)
{
    for (const contour::Point3& p : squarePoints()) {
        auto point = std::make_unique<NcDbPoint>(NcGePoint3d(p.x, p.y, p.z));
        point->setLayer(QStringLiteral("MAP"));
        appendToModelSpace(std::move(point));
    }
    squareBorder();
    IsoContoursCmdDialog dialog;
    child<QComboBox>(dialog, "PointLayer")->setCurrentText(QStringLiteral("MAP"));
    child<QPushButton>(dialog, "SelectPointBtn")->click();
    EXPECT_EQ(child<QLabel>(dialog, "PointCount")->text(), QStringLiteral("5"));
    EXPECT_EQ(child<QLabel>(dialog, "XMax")->text(), QStringLiteral("100.00"));
    EXPECT_EQ(child<QLabel>(dialog, "ZMin")->text(), QStringLiteral("-4.20"));
    child<QComboBox>(dialog, "BoundLayer")->setCurrentText(QStringLiteral("BORDER"));
    child<QPushButton>(dialog, "SelectBoundBth")->click();
    EXPECT_NE(child<QLabel>(dialog, "TriangCount")->text(), QStringLiteral("0"));
    EXPECT_FALSE(child<QLabel>(dialog, "EdgeLength")->text().isEmpty());
    EXPECT_TRUE(dialog.build());
    EXPECT_FALSE(dialog.hatchIds().empty());
}

TEST_F(MapBuilding, EmptyLayersAreTold)
{
    IsoContoursCmdDialog dialog;
    child<QComboBox>(dialog, "PointLayer")->setCurrentText(QStringLiteral("MAP"));
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("На слое MAP не найдено ни одной точки"))
        .press(QStringLiteral("OK"));
    child<QPushButton>(dialog, "SelectPointBtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    child<QComboBox>(dialog, "BoundLayer")->setCurrentText(QStringLiteral("MAP"));
    child<QPushButton>(dialog, "SelectBoundBth")->click();
    EXPECT_EQ(console.text(), QStringLiteral("Внимание. На слое  MAP  не найдено ни одной полилинии"));
}

TEST_F(MapBuilding, TheCommandDrawsHatchesIsolinesAndLabels)
{
    const NcDbObjectId border = squareBorder();
    driver.expect(QStringLiteral("Построение карты температур"))
        .set(QStringLiteral("LabelsOutEnabled"), QStringLiteral("on"))
        .press(QStringLiteral("okButton"));
    driver.expect(QStringLiteral("Построение изоконтуров"))
        .set(QStringLiteral("HatchOutLayer"), QStringLiteral("MAP"))
        .set(QStringLiteral("IsoLineOutCheck"), QStringLiteral("on"))
        .set(QStringLiteral("IsoLineOutLayer"), QStringLiteral("MAP"))
        .press(QStringLiteral("okButton"));
    BorderAnswer answer(border);
    buildTemperatureMap();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(answer.prompts, QStringList{QStringLiteral("Укажите линию границы (ESC список в позиции)")});
    EXPECT_EQ(entities<NcDbText>().size(), 5u);
    // Values from -0.1 to -4.2 touch the bands that begin at -5, -3, -1.5 and -0.5.
    EXPECT_EQ(entities<NcDbHatch>(QStringLiteral("MAP")).size(), 4u);
    EXPECT_GE(entities<NcDbPolyline>(QStringLiteral("MAP")).size(), 3u);
}

TEST_F(MapBuilding, TheCommandTakesTheProjectsColourMap)
{
    const NcDbObjectId border = squareBorder();
    for (const auto& [id, name] : {std::make_pair(-2, "Карта деформаций"), std::make_pair(-3, "Карта температур")}) {
        session().temperatureColormapId = id;
        driver.expect(QStringLiteral("Построение карты температур")).press(QStringLiteral("okButton"));
        driver.expect(QStringLiteral("Построение изоконтуров"))
            .check(QStringLiteral("LevelMapType"), QString(name))
            .press(QStringLiteral("cancelButton"));
        BorderAnswer answer(border);
        buildTemperatureMap();
        EXPECT_TRUE(driver.done()) << driver.report();
    }
}

TEST_F(MapBuilding, EscTakesThePositionsFirstContour)
{
    storeContour();
    driver.expect(QStringLiteral("Построение карты температур"))
        .check(QStringLiteral("PositionContourList"), QStringLiteral("Контур 1"))
        .press(QStringLiteral("okButton"));
    driver.expect(QStringLiteral("Построение изоконтуров"))
        .set(QStringLiteral("HatchOutLayer"), QStringLiteral("MAP"))
        .press(QStringLiteral("okButton"));
    BorderAnswer answer{NcDbObjectId()};
    buildTemperatureMap();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(entities<NcDbHatch>(QStringLiteral("MAP")).size(), 4u);
    EXPECT_TRUE(entities<NcDbText>().empty());
}

TEST_F(MapBuilding, CancelDrawsNothing)
{
    const NcDbObjectId border = squareBorder();
    driver.expect(QStringLiteral("Построение карты температур")).press(QStringLiteral("okButton"));
    driver.expect(QStringLiteral("Построение изоконтуров")).press(QStringLiteral("cancelButton"));
    BorderAnswer answer(border);
    buildTemperatureMap();
    ASSERT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(entities<NcDbHatch>().empty());
    EXPECT_TRUE(entities<NcDbText>().empty());
}

TEST_F(MapBuilding, WithoutAUsedPointTheCommandEndsSilently)
{
    database.exec("delete from ts_meas");
    driver.expect(QStringLiteral("Построение карты температур")).press(QStringLiteral("okButton"));
    BorderAnswer answer(squareBorder());
    buildTemperatureMap();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(answer.printed, QString());
}

TEST_F(MapBuilding, WithoutAnyContourTheDialogKeepsItsBorderControls)
{
    driver.expect(QStringLiteral("Построение карты температур")).press(QStringLiteral("okButton"));
    driver.expect(QStringLiteral("Построение изоконтуров"))
        .call([](QWidget* window) -> QString {
            const auto* bound = window->findChild<QWidget*>(QStringLiteral("BoundLayer"));
            const auto* point = window->findChild<QWidget*>(QStringLiteral("PointLayer"));
            return bound->isVisible() && !point->isVisible() ? QString() : QStringLiteral("controls");
        })
        .press(QStringLiteral("cancelButton"));
    BorderAnswer answer{NcDbObjectId()};
    buildTemperatureMap();
    EXPECT_TRUE(driver.done()) << driver.report();
}
