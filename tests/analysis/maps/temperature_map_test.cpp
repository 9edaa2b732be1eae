// The form of the temperature map and the filter of states.
#include "analysis/maps/forms/state_filter_form.h"
#include "analysis/maps/forms/temperature_map_form.h"
#include "analysis/maps/map_form_fixture.h"
#include "support/pictures.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTemporaryDir>

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

TEST_F(TemperatureMap, TheContoursOfThePositionAreLookedAtAndDeletedFromTheForm)
{
    storeContour();
    database.exec("insert into contours (contour_id, position_id, contour_name) overriding system value values "
                  "(2, 1, 'Контур 2'); insert into contours_points (contour_id, x, y, param, dist) values "
                  "(2, 0, 0, 0, 0), (2, 50, 0, 1, 50), (2, 50, 50, 2, 100)");
    TemperatureMapForm form;
    form.offerPositionContours();
    ASSERT_TRUE(form.border());
    EXPECT_EQ(form.border()->size(), 4u);
    auto* dots = child<QPushButton>(form, "PositionContoursBtn");
    driver.expect("Контуры позиции").step("rows", {"ContoursTable", "2"}).press("OK");
    dots->click();
    EXPECT_EQ(form.border()->size(), 4u) << "merely looked at";
    driver.expect("Контуры позиции").step("menu", {"ContoursTable", "Контур 1", "1"}).step("choose", {"Удалить"});
    driver.expect("Внимание").press("Yes");
    driver.expect("Контуры позиции").press("OK");
    dots->click();
    EXPECT_EQ(child<QComboBox>(form, "PositionContourList")->currentText(), QStringLiteral("Контур 2"));
    EXPECT_EQ(form.border()->size(), 3u) << "the border follows the list";
    driver.expect("Контуры позиции").step("menu", {"ContoursTable", "Контур 2", "1"}).step("choose", {"Удалить"});
    driver.expect("Внимание").press("Yes");
    driver.expect("Контуры позиции").press("OK");
    dots->click();
    EXPECT_FALSE(form.border()) << "there is none left";
    EXPECT_TRUE(driver.done()) << driver.report();
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
    auto* table = child<QTableWidget>(form, "PointData");
    auto* status = child<QLabel>(form, "StatusLabel");
    EXPECT_EQ(status->text(), QStringLiteral("В одном месте с разными значениями (карта возьмёт первое): ТС.5, ТС.9."));
    EXPECT_EQ(redRows(*table), (QStringList{"ТС.5", "ТС.9"}));
    EXPECT_EQ(form.usedPoints().size(), 6u);
    auto* depth = child<QDoubleSpinBox>(form, "DeepSpin");
    depth->setValue(3.0);
    EXPECT_EQ(status->text(), QString()) << "one value at one place";
    EXPECT_EQ(redRows(*table), QStringList());
    depth->setValue(1.0);
    EXPECT_EQ(redRows(*table).size(), 2);
    use(*table, QStringLiteral("ТС.9"))->setCheckState(Qt::Unchecked);
    EXPECT_EQ(status->text(), QString());
    EXPECT_EQ(redRows(*table), QStringList());
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
