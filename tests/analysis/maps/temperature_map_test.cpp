// The form, the isocontour dialog and the command as a whole.
#include "analysis/levels/level_map.h"
#include "analysis/maps/forms/iso_contours_cmd_dialog.h"
#include "analysis/maps/forms/state_filter_form.h"
#include "analysis/maps/forms/temperature_map_command.h"
#include "analysis/maps/forms/temperature_map_form.h"
#include "analysis/maps/map_fixture.h"
#include "support/form_texts.h"
#include "support/pictures.h"

#include <script/modal_driver.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {

// Gives the border when the command asks for it, or leaves the prompt.
class BorderAnswer final : public PromptBackend {
public:
    explicit BorderAnswer(NcDbObjectId border) : border_(border), before_(setPromptBackend(this)) { }
    ~BorderAnswer() override { setPromptBackend(before_); }
    PromptReply ask(const PromptRequest& request) override
    {
        prompts << request.prompt;
        PromptReply reply;
        if (!border_.isNull()) {
            reply.status = kPromptNormal;
            reply.entity = border_;
        }
        return reply;
    }
    void print(const QString& text) override { printed += text; }
    QStringList prompts;
    QString printed;

private:
    NcDbObjectId border_;
    PromptBackend* before_;
};

class TemperatureMap : public MapFixture {
protected:
    void SetUp() override
    {
        MapFixture::SetUp();
        addSquare();
    }
    NcDbObjectId squareBorder() { return addBorder({{-10, -10}, {110, -10}, {110, 110}, {-10, 110}}); }
    void storeContour()
    {
        database.exec("insert into contours (contour_id, position_id, contour_name) overriding system value "
                      "values (1, 1, 'Контур 1');"
                      "insert into contours_points (contour_id, x, y, param, dist) values "
                      "(1, -10, -10, 0, 0), (1, 110, -10, 1, 120), (1, 110, 110, 2, 240), (1, -10, 110, 3, 360)");
    }
    ModalDriver driver;
};

contour::PointList squarePoints()
{
    return {{0, 0, -0.2}, {100, 0, -4}, {100, 100, -4.2}, {0, 100, -0.1}, {50, 50, -2}};
}

contour::PointList squareBounds() { return {{-10, -10, 0}, {110, -10, 0}, {110, 110, 0}, {-10, 110, 0}}; }

} // namespace

TEST_F(TemperatureMap, TheFormStartsByPositionAndDepth)
{
    TemperatureMapForm form;
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Построение карты температур"));
    EXPECT_TRUE(child<QRadioButton>(form, "ByPosition")->isChecked());
    EXPECT_TRUE(child<QRadioButton>(form, "DeepSampling")->isChecked());
    EXPECT_EQ(child<QComboBox>(form, "MeasData")->currentData().toInt(), 2) << "the current cycle";
    EXPECT_EQ(child<QDoubleSpinBox>(form, "DeepSpin")->value(), 1.0) << "the first depth";
    EXPECT_EQ(child<QLabel>(form, "BoundStatus")->text(), QStringLiteral("Не загружена"));
    EXPECT_EQ(child<QTableWidget>(form, "PointData")->rowCount(), 5);
    EXPECT_EQ(form.usedPoints().size(), 5u);
    EXPECT_FALSE(form.labelsWanted());
}

TEST_F(TemperatureMap, EachModeKeepsItsOwnSpinValue)
{
    TemperatureMapForm form;
    auto* spin = child<QDoubleSpinBox>(form, "DeepSpin");
    spin->setValue(2.5);
    child<QRadioButton>(form, "HSampling")->setChecked(true);
    EXPECT_EQ(spin->value(), 98.5) << "the highest elevation";
    spin->setValue(97.25);
    child<QRadioButton>(form, "DeepSampling")->setChecked(true);
    EXPECT_EQ(spin->value(), 2.5);
    child<QRadioButton>(form, "HSampling")->setChecked(true);
    EXPECT_EQ(spin->value(), 97.25);
}

TEST_F(TemperatureMap, AWellWithoutAValueShowsDashesAndIsNotUsed)
{
    addWell(9, "ТС.9", 20, 20, 100, 0, "5.00:-1.00|6.00:-1.00");
    TemperatureMapForm form;
    child<QDoubleSpinBox>(form, "DeepSpin")->setValue(2.0);
    const auto* table = child<QTableWidget>(form, "PointData");
    ASSERT_EQ(table->rowCount(), 6);
    int dashes = 0;
    for (int row = 0; row < table->rowCount(); ++row) {
        if (table->item(row, 0)->text() != QStringLiteral("ТС.9"))
            continue;
        ++dashes;
        EXPECT_EQ(table->item(row, 3)->text(), QStringLiteral("--"));
        EXPECT_EQ(table->item(row, 4)->checkState(), Qt::Unchecked);
    }
    EXPECT_EQ(dashes, 1);
    EXPECT_EQ(form.usedPoints().size(), 5u);
}

TEST_F(TemperatureMap, UncheckedWellsAreLeftOutWhateverTheOrder)
{
    TemperatureMapForm form;
    auto* table = child<QTableWidget>(form, "PointData");
    table->sortItems(3, Qt::AscendingOrder);
    EXPECT_EQ(table->item(0, 0)->text(), QStringLiteral("ТС.3")) << "coldest first, by number";
    table->item(0, 4)->setCheckState(Qt::Unchecked);
    const geometry::PointList points = form.usedPoints();
    ASSERT_EQ(points.size(), 4u);
    for (const geometry::Point3& point : points)
        EXPECT_NE(point.z, -4.2);
}

TEST_F(TemperatureMap, TheTableOfValuesInterpolatesInGreen)
{
    addWell(9, "ТС.9", 20, 20, 100, 0.5, "1.00:-1.00|2.00:-1.50|5.00:-3.00");
    TemperatureMapForm form;
    const auto* table = child<QTableWidget>(form, "ValuesData");
    ASSERT_EQ(table->rowCount(), 4);
    EXPECT_EQ(table->verticalHeaderItem(1)->text(), QStringLiteral("2.00"));
    EXPECT_EQ(child<QLabel>(form, "ValuesCorner")->text(), QStringLiteral("Глубина"));
    EXPECT_EQ(table->item(0, 0)->text(), QStringLiteral("-0.20"));
    EXPECT_EQ(table->item(1, 0)->text(), QStringLiteral("-0.30"));
    EXPECT_EQ(table->item(1, 0)->background().color(), QColor(0, 255, 0));
    EXPECT_EQ(table->item(3, 0)->text(), QStringLiteral("--"));
    child<QRadioButton>(form, "HSampling")->setChecked(true);
    EXPECT_EQ(table->verticalHeaderItem(0)->text(), QStringLiteral("98.50")) << "elevations descend";
    EXPECT_EQ(child<QLabel>(form, "ValuesCorner")->text(), QStringLiteral("Отметка"));
}

TEST_F(TemperatureMap, ValuesGoToAFileAndToTheClipboard)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("карта.csv"));
    TemperatureMapForm form;
    driver.expect(QStringLiteral("Экспорт в csv")).files({path});
    child<QPushButton>(form, "ExportCSVBTN")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.startsWith("\xEF\xBB\xBF"));
    EXPECT_EQ(QString::fromUtf8(bytes.mid(3)),
              QStringLiteral(";ТС.1;ТС.2;ТС.3;ТС.4;ТС.5\n"
                             "1.00;-0.20;-4.00;-4.20;-0.10;-2.00\n"
                             "3.00;-0.40;-4.50;-4.60;-0.30;-2.50\n"));
    child<QPushButton>(form, "CopyClipBTN")->click();
    EXPECT_EQ(QApplication::clipboard()->text(),
              QStringLiteral("1.00\t-0.20\t-4.00\t-4.20\t-0.10\t-2.00\n"
                             "3.00\t-0.40\t-4.50\t-4.60\t-0.30\t-2.50\n"));
}

TEST_F(TemperatureMap, AFileOfValuesIsACsvWhateverItsName)
{
    QTemporaryDir folder;
    TemperatureMapForm form;
    driver.expect(QStringLiteral("Экспорт в csv")).files({folder.filePath(QStringLiteral("карта 15.07"))});
    child<QPushButton>(form, "ExportCSVBTN")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("карта 15.07.csv"))));
    driver.expect(QStringLiteral("Экспорт в csv")).files({folder.filePath(QStringLiteral("карта 15.07"))});
    driver.expect(QStringLiteral("Внимание")).press(QStringLiteral("Нет"));
    child<QPushButton>(form, "ExportCSVBTN")->click();
    EXPECT_TRUE(driver.done()) << "a file is never replaced in silence: " << driver.report();
}

TEST_F(TemperatureMap, AnUntickedWellStaysOutAtAnotherDepthAndCycle)
{
    addWell(9, "ТС.9", 20, 20, 100, 0.5, "1.00:-1.00|2.00:-1.50");
    TemperatureMapForm form;
    const auto untick = [&](const char* name, Qt::CheckState state) {
        auto* table = child<QTableWidget>(form, "PointData");
        for (int row = 0; row < table->rowCount(); ++row) {
            if (table->item(row, 0)->text() == QString::fromUtf8(name))
                table->item(row, 4)->setCheckState(state);
        }
    };
    untick("ТС.3", Qt::Unchecked);
    auto* depth = child<QDoubleSpinBox>(form, "DeepSpin");
    depth->setValue(3.0);
    EXPECT_EQ(form.usedNames(), (QStringList{"ТС.1", "ТС.2", "ТС.4", "ТС.5"})) << "ТС.9 has no value here";
    depth->setValue(2.0);
    EXPECT_EQ(form.usedNames(), (QStringList{"ТС.1", "ТС.2", "ТС.4", "ТС.5", "ТС.9"})) << "and comes back by itself";
    auto* cycle = child<QComboBox>(form, "MeasData");
    const int before = cycle->currentIndex();
    cycle->setCurrentIndex(before == 0 ? 1 : 0);
    cycle->setCurrentIndex(before);
    EXPECT_FALSE(form.usedNames().contains(QStringLiteral("ТС.3")));
    untick("ТС.3", Qt::Checked);
    depth->setValue(3.0);
    EXPECT_TRUE(form.usedNames().contains(QStringLiteral("ТС.3")));
}

TEST_F(TemperatureMap, DepthAndIntervalStayThroughACycleWhileItReachesThem)
{
    database.exec("insert into ts_meas (element_id, cycle_id, device_id, date, t_vozd, meas, performer_id) values "
                  "(1, 1, 1, '2022-07-15', 0, '1.00:-0.50|2.80:-0.70', 1)");
    TemperatureMapForm form;
    auto* depth = child<QDoubleSpinBox>(form, "DeepSpin");
    auto* begin = child<QDoubleSpinBox>(form, "IntervalBegin");
    auto* end = child<QDoubleSpinBox>(form, "IntervalEnd");
    depth->setValue(2.5);
    begin->setValue(1.5);
    end->setValue(2.9);
    auto* cycle = child<QComboBox>(form, "MeasData");
    cycle->setCurrentIndex(cycle->findData(1));
    EXPECT_EQ(depth->value(), 2.5);
    EXPECT_EQ(form.usedPoints().size(), 1u);
    EXPECT_EQ(begin->value(), 1.5);
    EXPECT_EQ(end->value(), 2.8) << "no log is as deep as 2.9";
    cycle->setCurrentIndex(cycle->findData(2));
    EXPECT_EQ(depth->value(), 2.5);
    EXPECT_EQ(end->value(), 2.9);
    EXPECT_EQ(form.usedPoints().size(), 5u);
}

TEST_F(TemperatureMap, ElevationsStartAtTheExactKey)
{
    database.exec("update ts_elements set z = 100.0067 where element_id = 3");
    TemperatureMapForm form;
    child<QRadioButton>(form, "HSampling")->setChecked(true);
    EXPECT_EQ(child<QDoubleSpinBox>(form, "DeepSpin")->value(), 98.51);
    ASSERT_EQ(form.usedPoints().size(), 1u) << "98.51 lies above all readings, 98.5067 is one";
    EXPECT_EQ(form.usedPoints()[0].z, -4.2);
}

TEST_F(TemperatureMap, WellsAtOnePlaceAreNamedMarkedAndNotUnticked)
{
    addWell(9, "ТС.9", 50, 50, 100, 0.5, "1.00:-1.00|3.00:-2.50");
    TemperatureMapForm form;
    const auto redRows = [&] {
        QStringList names;
        const auto* table = child<QTableWidget>(form, "PointData");
        for (int row = 0; row < table->rowCount(); ++row) {
            if (table->item(row, 0)->foreground().color() == QColor(255, 0, 0))
                names << table->item(row, 0)->text();
        }
        names.sort();
        return names;
    };
    auto* status = child<QLabel>(form, "StatusLabel");
    EXPECT_EQ(status->text(), QStringLiteral("В одном месте с разными значениями (карта возьмёт первое): ТС.5, ТС.9."));
    EXPECT_EQ(redRows(), (QStringList{"ТС.5", "ТС.9"}));
    EXPECT_EQ(form.usedPoints().size(), 6u);
    auto* depth = child<QDoubleSpinBox>(form, "DeepSpin");
    depth->setValue(3.0);
    EXPECT_EQ(status->text(), QString()) << "one value at one place";
    EXPECT_EQ(redRows(), QStringList());
    depth->setValue(1.0);
    EXPECT_EQ(redRows().size(), 2);
    auto* table = child<QTableWidget>(form, "PointData");
    for (int row = 0; row < table->rowCount(); ++row) {
        if (table->item(row, 0)->text() == QStringLiteral("ТС.9"))
            table->item(row, 4)->setCheckState(Qt::Unchecked);
    }
    EXPECT_EQ(status->text(), QString());
    EXPECT_EQ(redRows(), QStringList());
}

TEST_F(TemperatureMap, FewerThanThreeWellsAreNamedAndMarked)
{
    database.exec("delete from ts_meas where element_id in (1, 2, 4)");
    TemperatureMapForm form;
    EXPECT_EQ(child<QLabel>(form, "StatusLabel")->text(), QStringLiteral("Выбрано меньше трёх точек: ТС.3, ТС.5."));
    EXPECT_EQ(form.usedPoints().size(), 2u);
    const auto* table = child<QTableWidget>(form, "PointData");
    for (int row = 0; row < table->rowCount(); ++row)
        EXPECT_EQ(table->item(row, 0)->foreground().color(), QColor(255, 0, 0));
}

TEST_F(TemperatureMap, LabelsAreDrawnOnlyWithAMap)
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

TEST_F(TemperatureMap, AMapThatDrewNothingHasNoLabels)
{
    const NcDbObjectId border = squareBorder();
    driver.expect(QStringLiteral("Построение карты температур"))
        .set(QStringLiteral("LabelsOutEnabled"), QStringLiteral("on"))
        .press(QStringLiteral("okButton"));
    driver.expect(QStringLiteral("Построение изоконтуров"))
        .set(QStringLiteral("HatchOutChek"), QStringLiteral("off"))
        .press(QStringLiteral("okButton"));
    BorderAnswer answer(border);
    buildTemperatureMap();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_TRUE(entities<NcDbText>().empty());
    EXPECT_TRUE(answer.printed.contains(QStringLiteral("Карта ничего не вывела"))) << answer.printed.toStdString();
}

TEST_F(TemperatureMap, ByDatabaseAsksForALayer)
{
    squareBorder();
    TemperatureMapForm form;
    child<QRadioButton>(form, "ByDataBase")->setChecked(true);
    EXPECT_EQ(child<QLabel>(form, "StatusLabel")->text(), QStringLiteral("Укажите слой"));
    child<QComboBox>(form, "BoundLayer")->setCurrentText(QStringLiteral("BORDER"));
    EXPECT_EQ(child<QLabel>(form, "BoundStatus")->text(), QStringLiteral("Загружена"));
    EXPECT_EQ(child<QLabel>(form, "StatusLabel")->text(), QString());
    EXPECT_EQ(form.usedPoints().size(), 5u);
}

TEST_F(TemperatureMap, TheBottomOfTheWellIsOfferedForDepthsOnly)
{
    TemperatureMapForm form;
    auto* bottom = child<QCheckBox>(form, "EndPoint");
    EXPECT_TRUE(bottom->isEnabled());
    bottom->setChecked(true);
    EXPECT_EQ(form.usedPoints().at(0).z, -0.4);
    child<QRadioButton>(form, "AverageSampling")->setChecked(true);
    EXPECT_FALSE(bottom->isEnabled());
    EXPECT_DOUBLE_EQ(form.usedPoints().at(0).z, -0.3);
}

TEST_F(TemperatureMap, ALostServerIsToldInTheForm)
{
    loseServer();
    TemperatureMapForm form;
    EXPECT_EQ(child<QLabel>(form, "StatusLabel")->text(), QStringLiteral("Ошибка соединения с базой данных"));
    EXPECT_TRUE(form.usedPoints().empty());
}

TEST_F(TemperatureMap, TheDialogHasItsDefaults)
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

TEST_F(TemperatureMap, EachParameterIsReadFromItsOwnControl)
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

TEST_F(TemperatureMap, TheLimitsOfThePointsStandEachInItsField)
{
    IsoContoursCmdDialog dialog;
    dialog.SetPoints({{1, 20, -3}, {4, 50, 6}, {2, 30, 0}});
    const QPair<const char*, const char*> limits[] = {{"XMin", "1.00"},  {"XMax", "4.00"},  {"YMin", "20.00"},
                                                      {"YMax", "50.00"}, {"ZMin", "-3.00"}, {"ZMax", "6.00"}};
    for (const auto& [name, text] : limits)
        EXPECT_EQ(child<QLabel>(dialog, name)->text(), QString(text)) << name;
}

TEST_F(TemperatureMap, ParametersThatAreNoNumbersCountAsZero)
{
    IsoContoursCmdDialog dialog;
    child<QLineEdit>(dialog, "MethodParamOne")->setText(QStringLiteral("-"));
    child<QLineEdit>(dialog, "MethodParamTwo")->setText(QStringLiteral("7.9"));
    EXPECT_EQ(dialog.parameters().power, 0.0);
    EXPECT_EQ(dialog.parameters().neighbours, 7) << "truncated";
}

TEST_F(TemperatureMap, TheSliderSetsTheTension)
{
    IsoContoursCmdDialog dialog;
    child<QSlider>(dialog, "TauSlider")->setValue(7);
    EXPECT_EQ(child<QLineEdit>(dialog, "TauValue")->text(), QStringLiteral("0.07"));
    EXPECT_EQ(dialog.parameters().tension, 0.07);
}

TEST_F(TemperatureMap, TheMapTypeTakesTheProjectsColourMap)
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

TEST_F(TemperatureMap, BuildingNeedsPointsAndABorder)
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

TEST_F(TemperatureMap, BuildingTwiceGivesTheSameMap)
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

TEST_F(TemperatureMap, ALayerThatIsGoneDrawsNothing)
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

TEST_F(TemperatureMap, PointsAndBorderAreReadFromLayers)
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

TEST_F(TemperatureMap, EmptyLayersAreTold)
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

TEST_F(TemperatureMap, TheCommandDrawsHatchesIsolinesAndLabels)
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

TEST_F(TemperatureMap, TheCommandTakesTheProjectsColourMap)
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

TEST_F(TemperatureMap, EscTakesThePositionsFirstContour)
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

TEST_F(TemperatureMap, CancelDrawsNothing)
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

TEST_F(TemperatureMap, WithoutAUsedPointTheCommandEndsSilently)
{
    database.exec("delete from ts_meas");
    driver.expect(QStringLiteral("Построение карты температур")).press(QStringLiteral("okButton"));
    BorderAnswer answer(squareBorder());
    buildTemperatureMap();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(answer.printed, QString());
}

TEST_F(TemperatureMap, WithoutAnyContourTheDialogKeepsItsBorderControls)
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

TEST_F(TemperatureMap, TheStateFilterReturnsWhatIsChecked)
{
    StateFilterForm form({QStringLiteral("lost")});
    EXPECT_EQ(form.chosenStates(), QStringList{QStringLiteral("lost")});
    child<QPushButton>(form, "SelectAllBtn")->click();
    EXPECT_EQ(form.chosenStates(), (QStringList{QStringLiteral("exist"), QStringLiteral("lost")}));
    child<QPushButton>(form, "SelectNoneBtn")->click();
    EXPECT_TRUE(form.chosenStates().isEmpty());
    EXPECT_EQ(stateNotes({}), QStringLiteral("Все"));
    EXPECT_EQ(stateNotes({QStringLiteral("lost")}), QStringLiteral("Утрачен"));
}

TEST_F(TemperatureMap, PictureOfTheStateFilter)
{
    StateFilterForm form({QStringLiteral("exist")});
    EXPECT_TRUE(takePicture(form, QStringLiteral("StateFilterForm")));
}
