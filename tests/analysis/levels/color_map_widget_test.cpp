// The editor of colour maps and the selector.
#include "analysis/levels/forms/color_map_widget.h"
#include "analysis/levels/forms/level_map_selector_form.h"
#include "support/form_texts.h"
#include "support/scripted_prompts.h"
#include "support/session_database.h"

#include <script/modal_driver.h>

#include <QComboBox>
#include <QFile>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {

class ColorMaps : public SessionDatabase {
protected:
    ColorMapWidget& widget()
    {
        if (!widget_)
            widget_ = std::make_unique<ColorMapWidget>();
        return *widget_;
    }
    int storeMap(const QString& name)
    {
        LevelMap map;
        map.fillGradient(0.0, 3.0, 3);
        map.name = name;
        EXPECT_TRUE(map.insert());
        return map.id;
    }

    QTemporaryDir folder;
    ModalDriver driver;

private:
    std::unique_ptr<ColorMapWidget> widget_;
};

} // namespace

TEST_F(ColorMaps, ListsDeformationsTemperaturesTheUsersOwnThenStoredOnes)
{
    const int id = storeMap(QStringLiteral("Склад"));
    const auto* combo = child<QComboBox>(widget(), "LevelMapType");
    ASSERT_EQ(combo->count(), 4);
    EXPECT_EQ(combo->itemData(0).toInt(), -2);
    EXPECT_EQ(combo->itemData(1).toInt(), -3);
    EXPECT_EQ(combo->itemData(2).toInt(), -1);
    EXPECT_EQ(combo->itemData(3).toInt(), id);
    EXPECT_EQ(combo->itemText(3), QStringLiteral("Склад"));
}

TEST_F(ColorMaps, ShowsARangeAColumn)
{
    widget().setLevelMapId(LevelMap::Temperature);
    const auto* table = child<QTableWidget>(widget(), "ColorTable");
    ASSERT_EQ(table->rowCount(), 3);
    ASSERT_EQ(table->columnCount(), 14);
    EXPECT_EQ(table->item(0, 5)->text(), QStringLiteral("-3.00"));
    EXPECT_EQ(table->item(1, 5)->text(), QStringLiteral("-1.50"));
    EXPECT_EQ(table->item(2, 5)->background().color(), QColor(50, 220, 240));
    EXPECT_TRUE(table->item(0, 5)->textAlignment() & Qt::AlignRight);
}

TEST_F(ColorMaps, AnEditedBoundChangesTheMapAndNonsenseDoesNot)
{
    widget().setLevelMapId(LevelMap::Temperature);
    auto* table = child<QTableWidget>(widget(), "ColorTable");
    table->item(1, 13)->setText(QStringLiteral("12,5"));
    EXPECT_EQ(widget().current().ranges[13].max, 12.5);
    EXPECT_EQ(widget().current().maximum, 12.5);
    EXPECT_EQ(table->item(1, 13)->text(), QStringLiteral("12.50"));
    table->item(1, 13)->setText(QStringLiteral("тепло"));
    EXPECT_EQ(widget().current().ranges[13].max, 12.5);
    EXPECT_EQ(table->item(1, 13)->text(), QStringLiteral("12.50"));
}

TEST_F(ColorMaps, AChangedCountMakesAGradientOfTheUsersOwn)
{
    widget().setLevelMapId(LevelMap::Temperature);
    child<QSpinBox>(widget(), "LevelCountSpin")->setValue(5);
    EXPECT_EQ(widget().levelMapId(), int(LevelMap::User));
    EXPECT_EQ(widget().current().ranges.size(), 5u);
    EXPECT_EQ(widget().current().minimum, -20.0);
    widget().setLevelMapId(LevelMap::Temperature);
    EXPECT_EQ(widget().current().ranges.size(), 14u) << "built-in maps stay";
}

TEST_F(ColorMaps, AChangedCountAsksFirstWhenSomethingWasEdited)
{
    widget().setLevelMapId(LevelMap::Temperature);
    child<QTableWidget>(widget(), "ColorTable")->item(0, 0)->setText(QStringLiteral("-30"));
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Будут потеряны именения в настройке палитры.\n Продолжить?"))
        .press(QStringLiteral("Нет"));
    child<QSpinBox>(widget(), "LevelCountSpin")->setValue(5);
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(widget().levelMapId(), int(LevelMap::Temperature));
    EXPECT_EQ(child<QSpinBox>(widget(), "LevelCountSpin")->value(), 14);

    driver.expect(QStringLiteral("Внимание")).press(QStringLiteral("Да"));
    child<QSpinBox>(widget(), "LevelCountSpin")->setValue(5);
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(widget().current().ranges.size(), 5u);
}

TEST_F(ColorMaps, AnEditedColourCountsAsAnEdit)
{
    widget().setLevelMapId(LevelMap::Temperature);
    ScriptedPrompts chosen;
    chosen.color(10, 20, 30);
    emit child<QTableWidget>(widget(), "ColorTable")->cellDoubleClicked(2, 3);
    ASSERT_TRUE(chosen.allAnswersUsed());
    const NcCmColor& color = widget().current().ranges[3].color;
    EXPECT_EQ(QColor(color.red(), color.green(), color.blue()), QColor(10, 20, 30));
    EXPECT_EQ(child<QTableWidget>(widget(), "ColorTable")->item(2, 3)->background().color(), QColor(10, 20, 30));
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Будут потеряны именения в настройке палитры.\n Продолжить?"))
        .press(QStringLiteral("Нет"));
    child<QSpinBox>(widget(), "LevelCountSpin")->setValue(5);
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST_F(ColorMaps, ALookAtAnotherMapForgetsNoEdit)
{
    widget().setLevelMapId(LevelMap::Temperature);
    child<QTableWidget>(widget(), "ColorTable")->item(0, 0)->setText(QStringLiteral("-30"));
    widget().setLevelMapId(LevelMap::Deformation);
    widget().setLevelMapId(LevelMap::Temperature);
    EXPECT_EQ(widget().current().minimum, -30.0);
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Будут потеряны именения в настройке палитры.\n Продолжить?"))
        .press(QStringLiteral("Нет"));
    child<QSpinBox>(widget(), "LevelCountSpin")->setValue(5);
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(widget().levelMapId(), int(LevelMap::Temperature));
}

TEST_F(ColorMaps, AGradientMadeElsewhereAsksBeforeTheUsersEditedMapGoes)
{
    widget().setLevelMapId(LevelMap::Temperature);
    child<QSpinBox>(widget(), "LevelCountSpin")->setValue(5);
    ASSERT_EQ(widget().levelMapId(), int(LevelMap::User));
    child<QTableWidget>(widget(), "ColorTable")->item(0, 0)->setText(QStringLiteral("-30"));
    widget().setLevelMapId(LevelMap::Deformation);
    driver.expect(QStringLiteral("Внимание")).press(QStringLiteral("Да"));
    child<QSpinBox>(widget(), "LevelCountSpin")->setValue(4);
    EXPECT_TRUE(driver.done()) << driver.report();
    child<QSpinBox>(widget(), "LevelCountSpin")->setValue(3);
    EXPECT_EQ(widget().current().ranges.size(), 3u) << "a fresh gradient is not asked for again";
}

TEST_F(ColorMaps, WritingOneMapKeepsTheEditsOfTheOthers)
{
    const int id = storeMap(QStringLiteral("Склад"));
    widget().setLevelMapId(LevelMap::Temperature);
    child<QSpinBox>(widget(), "LevelCountSpin")->setValue(6);
    widget().setLevelMapId(LevelMap::Deformation);
    child<QTableWidget>(widget(), "ColorTable")->item(0, 0)->setText(QStringLiteral("-300"));
    widget().setLevelMapId(id);
    child<QTableWidget>(widget(), "ColorTable")->item(1, 2)->setText(QStringLiteral("7"));
    widget().setLevelMapId(LevelMap::Temperature);
    child<QTableWidget>(widget(), "ColorTable")->item(0, 0)->setText(QStringLiteral("-30"));
    driver.expect(QStringLiteral("Сохранить палитру"))
        .set(QStringLiteral("input"), QStringLiteral("Зимняя"))
        .press(QStringLiteral("OK"));
    child<QPushButton>(widget(), "WriteDB_btn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(widget().current().name, QStringLiteral("Зимняя"));
    EXPECT_EQ(widget().current().minimum, -30.0);
    widget().setLevelMapId(LevelMap::Deformation);
    EXPECT_EQ(widget().current().minimum, -300.0);
    widget().setLevelMapId(id);
    EXPECT_EQ(widget().current().maximum, 7.0);
    widget().setLevelMapId(LevelMap::User);
    EXPECT_EQ(widget().current().ranges.size(), 6u) << "the user's own map is kept nowhere else";
    widget().setLevelMapId(LevelMap::Temperature);
    EXPECT_EQ(widget().current().minimum, -20.0) << "the edits are in the new row";
}

TEST_F(ColorMaps, RemovingOneMapKeepsTheEditsOfTheOthers)
{
    const int id = storeMap(QStringLiteral("Склад"));
    widget().setLevelMapId(LevelMap::Temperature);
    child<QTableWidget>(widget(), "ColorTable")->item(0, 0)->setText(QStringLiteral("-30"));
    widget().setLevelMapId(id);
    driver.expect(QStringLiteral("Внимание")).press(QStringLiteral("Да"));
    child<QPushButton>(widget(), "DeleteDb_btn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    widget().setLevelMapId(LevelMap::Temperature);
    EXPECT_EQ(widget().current().minimum, -30.0);
}

TEST_F(ColorMaps, TheLimitsOfAMapStandEachInItsField)
{
    widget().setLevelMapId(LevelMap::Temperature);
    EXPECT_EQ(child<QDoubleSpinBox>(widget(), "LevelMin")->value(), -20.0);
    EXPECT_EQ(child<QDoubleSpinBox>(widget(), "LevelMax")->value(), 10.0);
    EXPECT_EQ(child<QSpinBox>(widget(), "LevelCountSpin")->value(), 14);
    child<QDoubleSpinBox>(widget(), "LevelMin")->setValue(-4.0);
    child<QDoubleSpinBox>(widget(), "LevelMax")->setValue(8.0);
    child<QSpinBox>(widget(), "LevelCountSpin")->setValue(3);
    EXPECT_EQ(widget().current().minimum, -4.0);
    EXPECT_EQ(widget().current().maximum, 8.0);
}

TEST_F(ColorMaps, AreWrittenToTheDatabaseUnderAName)
{
    widget().setLevelMapId(LevelMap::Temperature);
    driver.expect(QStringLiteral("Сохранить палитру"))
        .set(QStringLiteral("input"), QStringLiteral("Зимняя"))
        .press(QStringLiteral("OK"));
    child<QPushButton>(widget(), "WriteDB_btn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database.value("select levelmap_name from levelmaps"), QStringLiteral("Зимняя"));
    EXPECT_GT(widget().levelMapId(), 0) << "the new row is selected";
    EXPECT_EQ(session().levelMaps.value(widget().levelMapId()), QStringLiteral("Зимняя"));
}

TEST_F(ColorMaps, DeletingAMapInUseAsksForEachUseAndFallsBack)
{
    const int id = storeMap(QStringLiteral("Склад"));
    session().deformationColormapId = session().temperatureColormapId = session().dynamicTemperatureColormapId = id;
    widget().setLevelMapId(id);
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Удалить палитру 'Склад' ?"))
        .press(QStringLiteral("Да"));
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Палитра 'Склад' установлена для карт деформаций. \n Удалить в любом случае?"))
        .press(QStringLiteral("Да"));
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Палитра 'Склад' установлена для карт температур. \n Удалить в любом случае?"))
        .press(QStringLiteral("Да"));
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Палитра 'Склад' установлена для карт динамики температур. \n Удалить в любом случае?"))
        .press(QStringLiteral("Да"));
    child<QPushButton>(widget(), "DeleteDb_btn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database.value("select count(*) from levelmaps"), QStringLiteral("0"));
    EXPECT_EQ(session().deformationColormapId, -2);
    EXPECT_EQ(session().temperatureColormapId, -3);
    EXPECT_EQ(session().dynamicTemperatureColormapId, -3);
}

TEST_F(ColorMaps, ANoAtAnyQuestionKeepsTheMap)
{
    const int id = storeMap(QStringLiteral("Склад"));
    session().temperatureColormapId = id;
    widget().setLevelMapId(id);
    driver.expect(QStringLiteral("Внимание")).press(QStringLiteral("Да"));
    driver.expect(QStringLiteral("Внимание")).press(QStringLiteral("Нет"));
    child<QPushButton>(widget(), "DeleteDb_btn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database.value("select count(*) from levelmaps"), QStringLiteral("1"));
    EXPECT_EQ(session().temperatureColormapId, id);
}

TEST_F(ColorMaps, AFileIsReadIntoTheUsersOwnMapInEitherNumberBase)
{
    LevelMap map;
    map.ranges = {{0.0, 1.0, NcCmColor::fromRGB(250, 11, 12)}};
    const QString path = folder.filePath(QStringLiteral("hex.cmp"));
    ASSERT_TRUE(map.saveFile(path, 16));
    driver.expect(QStringLiteral("Загрузить цветовую палитру уровней")).files({path});
    child<QPushButton>(widget(), "LoadColorMapBtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(widget().levelMapId(), int(LevelMap::User));
    ASSERT_EQ(widget().current().ranges.size(), 1u);
    EXPECT_EQ(widget().current().ranges[0].color.red(), 250);
}

TEST_F(ColorMaps, AFileThatIsNoPaletteIsTold)
{
    const QString path = folder.filePath(QStringLiteral("bad.cmp"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("1, 2, 3\n");
    file.close();
    driver.expect(QStringLiteral("Загрузить цветовую палитру уровней")).files({path});
    driver.expect(QStringLiteral("Внимание"))
        .text(QStringLiteral("Ошибка загрузки палитры ") + path)
        .press(QStringLiteral("OK"));
    child<QPushButton>(widget(), "LoadColorMapBtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
}

TEST_F(ColorMaps, DatabaseButtonsNeedAConnectionAndAStoredMap)
{
    loseServer();
    EXPECT_FALSE(child<QPushButton>(widget(), "WriteDB_btn")->isEnabled());
    EXPECT_FALSE(child<QPushButton>(widget(), "DeleteDb_btn")->isEnabled());
}

TEST_F(ColorMaps, TheSelectorReturnsTheChosenId)
{
    const int id = storeMap(QStringLiteral("Склад"));
    LeveMapSelectorForm form(-3);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Выбор цветовой схемы"));
    EXPECT_EQ(form.levelMapId(), -3);
    auto* combo = form.findChild<QComboBox*>(QStringLiteral("LevelMap"));
    ASSERT_NE(combo, nullptr);
    combo->setCurrentIndex(combo->findData(id));
    EXPECT_EQ(form.levelMapId(), id);
}
