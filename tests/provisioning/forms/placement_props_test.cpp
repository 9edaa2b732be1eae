// The page "Расстановка" of the project settings.
#include "analysis/levels/forms/level_map_selector_form.h"
#include "database/forms/project_placement_props.h"
#include "support/pictures.h"
#include "support/session_database.h"

#include <script/modal_driver.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {

class Placement : public SessionDatabase {
protected:
    void SetUp() override
    {
        SessionDatabase::SetUp();
        database.exec("insert into levelmaps (levelmap_id, levelmap_name, data) overriding system value "
                      "values (5, 'Лёд', '0.0000|1.0000|0|0|255');"
                      "insert into states values ('lost', 'Утрачен', 1), ('plan', 'Проектный', 3)");
        session().projectFile = folder.filePath("p.terva");
        session().reloadStates();
        session().reloadLevelMaps();
        session().stateFilter = {{"exist", "Существующий"}, {"lost", "Утрачен"}};
    }
    void TearDown() override
    {
        EXPECT_TRUE(driver.done()) << driver.report();
        session().projectFile.clear();
        session().placementScale = 1.0;
        SessionDatabase::TearDown();
    }

    QTemporaryDir folder;
    ModalDriver driver;
};

TEST_F(Placement, SaysWhatItAlwaysSaid)
{
    ProjectPlacementProps page;
    QStringList captions;
    for (const QLabel* caption : page.findChildren<QLabel*>())
        captions << caption->text();
    EXPECT_EQ(
        captions,
        (QStringList{"Масштабный  коэфициент элементов", "Цветовые схемы:", "Карта деформаций", "Карта температур",
                     "Карта динамики температур", "Состояние элементов ГМН (цветовая легенда)"}));
    EXPECT_EQ(page.findChild<QDoubleSpinBox*>("ScaleFactor")->toolTip(),
              QString("Коэффициент вставки блоков 1 (1:1000), 0.5 (1:500), 2 (1:2000) и т.д."));
    EXPECT_EQ(page.findChild<QPushButton*>("DeformationMapBTN")->text(), QString("Карта деформаций"));
    EXPECT_EQ(page.findChild<QPushButton*>("TemperatureBTN")->text(), QString("Карта температур"));
    EXPECT_EQ(page.findChild<QPushButton*>("DynTemperatureBNT")->text(), QString("Карта температур"));
    EXPECT_EQ(page.findChild<QPushButton*>("ApplyBtn")->text(), QString("Применить"));
    EXPECT_EQ(page.findChild<QTableWidget*>("StatesTable")->rowCount(), 3);
    page.resize(290, 420);
    EXPECT_TRUE(takePicture(page, "ProjectPlacementProps"));
}

TEST_F(Placement, AMapIsChosenForEachUse)
{
    ProjectPlacementProps page;
    const struct {
        const char* button;
        int ProjectSession::*id;
        const char* before;
    } uses[] = {{"DeformationMapBTN", &ProjectSession::deformationColormapId, "Карта деформаций"},
                {"TemperatureBTN", &ProjectSession::temperatureColormapId, "Карта температур"},
                {"DynTemperatureBNT", &ProjectSession::dynamicTemperatureColormapId, "Карта температур"}};
    for (const auto& use : uses) {
        driver.expect("Выбор цветовой схемы").check("LevelMap", use.before).set("LevelMap", "Лёд").press("Выбрать");
        page.findChild<QPushButton*>(use.button)->click();
        EXPECT_EQ(session().*use.id, 5) << use.button;
        EXPECT_EQ(page.findChild<QPushButton*>(use.button)->text(), QString("Лёд"));
    }
}

TEST_F(Placement, TheServiceMapIsRefused)
{
    ProjectPlacementProps page;
    driver.expect("Выбор цветовой схемы").set("LevelMap", "Пользовательская").press("Выбрать");
    driver.expect("Внимание").text("Это служебная палитра. Её нельзя выбрать.").press("OK");
    page.findChild<QPushButton*>("DeformationMapBTN")->click();
    EXPECT_EQ(session().deformationColormapId, -2);
    driver.expect("Выбор цветовой схемы").set("LevelMap", "Лёд").press("Отмена");
    page.findChild<QPushButton*>("DeformationMapBTN")->click();
    EXPECT_EQ(session().deformationColormapId, -2);
}

TEST_F(Placement, ApplyingTakesScaleAndStates)
{
    ProjectPlacementProps page;
    page.findChild<QDoubleSpinBox*>("ScaleFactor")->setValue(0.5);
    auto* states = page.findChild<QTableWidget*>("StatesTable");
    for (int row = 0; row < states->rowCount(); ++row) {
        const QString state = states->item(row, 0)->data(Qt::UserRole + 1).toString();
        states->item(row, 0)->setCheckState(state == "plan" ? Qt::Checked : Qt::Unchecked);
    }
    EXPECT_EQ(session().stateFilter.size(), 2) << "until it is applied";
    page.findChild<QPushButton*>("ApplyBtn")->click();
    EXPECT_EQ(session().placementScale, 0.5);
    EXPECT_EQ(session().stateFilter, (QMap<QString, QString>{{"plan", "Проектный"}}));
    QFile file(session().projectFile);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString saved = QString::fromUtf8(file.readAll());
    EXPECT_EQ(saved.count("<State "), 1);
    EXPECT_TRUE(saved.contains("Name=\"plan\"") && saved.contains("Description=\"Проектный\""));
    session().stateFilter = session().states;
    page.refresh();
    EXPECT_EQ(states->item(0, 0)->checkState(), Qt::Checked);
}

TEST_F(Placement, TheSelectorShowsTheMapsByTheirNames)
{
    LeveMapSelectorForm form(5);
    EXPECT_EQ(form.windowTitle(), QString("Выбор цветовой схемы"));
    EXPECT_EQ(form.levelMapId(), 5);
    EXPECT_EQ(form.findChild<QComboBox*>("LevelMap")->count(), 4);
    EXPECT_TRUE(takePicture(form, "LeveMapSelectorForm"));
}

} // namespace
