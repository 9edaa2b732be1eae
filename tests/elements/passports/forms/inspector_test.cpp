// The inspectors' panes: they edit the row and the block at once.
#include "elements/passports/forms/element_inspector.h"

#include "elements/passports/forms/element_passport.h"
#include "elements/passports/passport_elements.h"
#include "support/element_drawing.h"
#include "support/form_texts.h"
#include "support/pictures.h"

#include <script/modal_driver.h>

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <cmath>

namespace {

class Inspectors : public PassportElements {
protected:
    Inspectors() { drawing.addAllKinds(); }

    /// A block of the first kind of the family's first type, scaled and turned.
    NcDbObjectId insertBlock(FamilyKey key, int element, const QString& name)
    {
        ElementBlock block(kindByTypeId(cell("type_id", family(key), element)));
        block.setAttribute("element_id", QString::number(element));
        block.setAttribute("name", name);
        block.x = 100 + element;
        block.y = 200 + element;
        block.scale = 2.0;
        block.blockRotation = 0.5;
        EXPECT_TRUE(block.insertBlock());
        database->exec(fill("insert into %1 (element_id, props) values (%2, '')", family(key).dynprops, element));
        return drawing.references().last();
    }
    static void show(InspectorPane& pane, int element, NcDbObjectId reference)
    {
        EXPECT_TRUE(pane.load(element));
        pane.setBlock(ElementBlock(reference), reference);
    }
    static void type(QWidget& pane, const char* name, const QString& text)
    {
        child<QLineEdit>(pane, name)->setText(text);
    }
    static void choose(QWidget& pane, const char* name, const QVariant& data)
    {
        auto* combo = child<QComboBox>(pane, name);
        combo->setCurrentIndex(combo->findData(data));
    }

    ElementDrawing drawing;
    ModalDriver driver;
};

class EachInspector : public Inspectors, public ::testing::WithParamInterface<FamilyKey> {
protected:
    EachInspector() : pane((fillElements(GetParam()), makeInspectorPane(GetParam()))) { }
    const Family& tables() const { return family(GetParam()); }

    std::unique_ptr<InspectorPane> pane;
};

} // namespace

TEST_P(EachInspector, CarriesTheFieldsOfThePassport)
{
    ASSERT_TRUE(pane->load(1));
    EXPECT_EQ(pane->family(), GetParam());
    EXPECT_EQ(pane->elementId(), 1);
    EXPECT_EQ(pane->objectName(), tables().shortKey + "ElementInspector");
    EXPECT_EQ(child<QLabel>(*pane, "ID_Label")->text(), "1");
    for (const PassportField& field : passportFamily(GetParam()).fields)
        EXPECT_NE(pane->findChild<QWidget*>(field.name), nullptr) << field.name;
    EXPECT_EQ(child<QLineEdit>(*pane, "ElementName")->text(), "Т-10");
    EXPECT_EQ(child<QLineEdit>(*pane, "Y")->text(), "201");
    EXPECT_EQ(child<QPushButton>(*pane, "ApplyBtn")->text(), "Применить");
    EXPECT_TRUE(child<QPushButton>(*pane, "ApplyBtn")->isEnabled());
    pane->resize(320, 680);
    EXPECT_TRUE(takePicture(*pane, "inspector-" + tables().shortKey.toLower()));
}

TEST_P(EachInspector, WithoutARowNothingCanBeApplied)
{
    ASSERT_TRUE(pane->load(1));
    for (const bool connected : {true, false}) {
        if (!connected)
            database.disconnect();
        EXPECT_FALSE(pane->load(connected ? 99 : 1));
        EXPECT_EQ(pane->elementId(), -1);
        EXPECT_EQ(child<QLineEdit>(*pane, "ElementName")->text(), "");
        EXPECT_FALSE(child<QPushButton>(*pane, "ApplyBtn")->isEnabled());
        EXPECT_FALSE(pane->apply());
    }
}

TEST_P(EachInspector, WritesTheRowAndTheBlock)
{
    const NcDbObjectId reference = insertBlock(GetParam(), 1, "Т-10");
    show(*pane, 1, reference);
    int applied = 0;
    QObject::connect(pane.get(), &InspectorPane::applied, [&applied](int id) { applied = id; });
    type(*pane, "ElementName", "Новая");
    type(*pane, "X", "-7.25");
    type(*pane, "Z", "33.5");
    choose(*pane, "StateCombo", "broken");
    choose(*pane, "PositionCombo", "8");
    child<QPushButton>(*pane, "ApplyBtn")->click();
    EXPECT_EQ(applied, 1);
    EXPECT_EQ(database->rows(fill("select element_name, x, y, z, h, position_id, state_id, block_rotation, scale from "
                                  "%1 where element_id = 1",
                                  tables().elements)),
              (QVector<QStringList>{{"Новая", "-7.25", "201", "33.5", "1.5", "8", "broken", "0.5", "2"}}));
    EXPECT_NE(database->value(fill("select props from %1 where element_id = 1", tables().dynprops)), "")
        << "the properties follow";
    ASSERT_EQ(drawing.references().size(), 1);
    EXPECT_EQ(drawing.references()[0], reference) << "the same block";
    const NcDbBlockReference& block = ElementDrawing::reference(reference);
    EXPECT_EQ(block.position().x, -7.25);
    EXPECT_EQ(block.position().z, 33.5);
    EXPECT_EQ(block.colorIndex(), 1) << "that of the state";
    EXPECT_EQ(ElementDrawing::attributes(reference).value("name"), "Новая");
    EXPECT_EQ(ElementDrawing::attributes(reference).value("element_id"), "1");
    EXPECT_EQ(drawing.faults(), QStringList());
    if (tables().hasDepth) {
        EXPECT_EQ(database->rows("select e, catalog_id from tsg_elements where element_id = 1"),
                  (QVector<QStringList>{{"6.5", "4"}}))
            << "what the block does not know is not lost";
    }
}

TEST_P(EachInspector, ANameThatIsTakenAnywhereIsRefused)
{
    const NcDbObjectId reference = insertBlock(GetParam(), 1, "Т-10");
    show(*pane, 1, reference);
    type(*pane, "ElementName", "Д-1"); // of another position
    type(*pane, "X", "5");
    driver.expect("Внимание")
        .text(GetParam() == FamilyKey::Rp ? "Изменяемое имя уже есть в базе" : "Изменяемое имя 'Д-1' уже есть в базе")
        .press("OK");
    EXPECT_FALSE(pane->apply());
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(child<QLineEdit>(*pane, "ElementName")->text(), "Т-10") << "the old name";
    EXPECT_EQ(child<QLineEdit>(*pane, "X")->text(), "5");
    EXPECT_EQ(cell("x", tables(), 1), "101");
    EXPECT_EQ(ElementDrawing::reference(reference).position().x, 101.0);
}

TEST_P(EachInspector, AnotherTypeReplacesTheBlockAndKeepsScaleAndRotation)
{
    if (tables().kinds.size() < 2)
        GTEST_SKIP() << "one kind";
    const NcDbObjectId reference = insertBlock(GetParam(), 1, "Т-10");
    show(*pane, 1, reference);
    const QString other = kinds()[size_t(tables().kinds.last())].typeId;
    const QString another =
        other == cell("type_id", tables(), 1) ? kinds()[size_t(tables().kinds.first())].typeId : other;
    choose(*pane, "TypeCombo", another);
    EXPECT_TRUE(pane->apply());
    EXPECT_EQ(cell("type_id", tables(), 1), another);
    ASSERT_EQ(drawing.references().size(), 1);
    const NcDbObjectId fresh = drawing.references()[0];
    EXPECT_NE(fresh, reference);
    EXPECT_EQ(pane->reference(), fresh) << "the next change goes to the new block";
    EXPECT_EQ(ElementBlock(fresh).kind, kindByTypeId(another));
    EXPECT_EQ(ElementDrawing::reference(fresh).scaleFactors().sx, 2.0);
    EXPECT_NEAR(ElementDrawing::reference(fresh).rotation(), 0.5, 1e-12);
    EXPECT_EQ(ElementDrawing::attributes(fresh).value("name"), "Т-10");
    type(*pane, "X", "1");
    EXPECT_TRUE(pane->apply());
    EXPECT_EQ(ElementDrawing::reference(fresh).position().x, 1.0);
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(EachInspector, SurvivesABlockThatIsGone)
{
    const NcDbObjectId reference = insertBlock(GetParam(), 1, "Т-10");
    show(*pane, 1, reference);
    {
        NcDbBlockReference* block = nullptr;
        ASSERT_TRUE(isOk(ncdbOpenObject(block, reference, kForWrite)));
        block->erase();
        block->close();
    }
    type(*pane, "X", "5");
    pane->apply();
    EXPECT_EQ(cell("x", tables(), 1), "5") << "the row is written all the same";
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(EachInspector, ANumberThatIsNoneMovesNothing)
{
    const NcDbObjectId reference = insertBlock(GetParam(), 1, "Т-10");
    show(*pane, 1, reference);
    type(*pane, "X", "");
    pane->apply();
    EXPECT_EQ(ElementDrawing::reference(reference).position().x, 101.0);
}

TEST_P(EachInspector, FollowsThePassport)
{
    std::unique_ptr<InspectorPane> other(makeInspectorPane(GetParam()));
    ASSERT_TRUE(pane->load(1));
    ASSERT_TRUE(other->load(2));
    ElementPassport passport(GetParam(), 1);
    child<QLineEdit>(passport, "X")->setText("9.5");
    type(*other, "X", "typed");
    if (GetParam() == FamilyKey::Igs)
        driver.expect("Успех").press("OK");
    child<QPushButton>(passport, "ApplyBtn")->click();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(child<QLineEdit>(*pane, "X")->text(), "9.5");
    EXPECT_EQ(child<QLineEdit>(*other, "X")->text(), "typed") << "it shows another element";
}

INSTANTIATE_TEST_SUITE_P(Families, EachInspector,
                         ::testing::Values(FamilyKey::Dm, FamilyKey::Ts, FamilyKey::Rp, FamilyKey::Ggs, FamilyKey::Igs,
                                           FamilyKey::Tss, FamilyKey::Tsg));

TEST_F(Inspectors, AThermalWellShowsOneProfileAtATime)
{
    fillElements(FamilyKey::Ts);
    const std::unique_ptr<InspectorPane> pane(makeInspectorPane(FamilyKey::Ts));
    ASSERT_TRUE(pane->load(2));
    auto* cycles = child<QComboBox>(*pane, "CycleCombo");
    auto* profile = child<QTableWidget>(*pane, "MeasView");
    EXPECT_EQ(cycles->count(), 2);
    EXPECT_EQ(cycles->currentText(), "Цикл 2") << "the latest";
    EXPECT_EQ(child<QLabel>(*pane, "MeasureDate")->text(), "07.02.2021");
    EXPECT_EQ(titlesOf(*profile), (QStringList{"Глубина, м", "Температура, °C"}));
    EXPECT_EQ(cellsOf(*profile->model()), (QVector<QStringList>{{"0.50", "-1.00"}, {"2.00", "-2.00"}}));
    cycles->setCurrentIndex(0);
    EXPECT_EQ(child<QLabel>(*pane, "MeasureDate")->text(), "06.01.2021");
    EXPECT_EQ(cellsOf(*profile->model()), (QVector<QStringList>{{"0.50", "-1.23"}, {"1.00", "-1.80"}}));
    const QStringList texts = textsOf(*pane);
    for (const char* caption : {"Цикл измерений", "Дата измерений", "Проектная глубина", "Глубина"})
        EXPECT_TRUE(texts.contains(caption)) << caption;

    pane->show();
    driver.window("TSElementInspector").step("menu", {"MeasView", "0", "0"}).step("choose", {"Удалить измерение"});
    driver.expect("Внимание").text("Измерение будет удалено").press("Да");
    driver.play();
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(cycles->count(), 1);
    EXPECT_EQ(database->value("select count(*) from ts_meas where element_id = 2"), "1");
    ASSERT_TRUE(pane->load(3));
    EXPECT_EQ(profile->rowCount(), 0) << "a well without measures";
}

TEST_F(Inspectors, TheDrillingIsWrittenWithTheRow)
{
    fillElements(FamilyKey::Igs);
    const std::unique_ptr<InspectorPane> pane(makeInspectorPane(FamilyKey::Igs));
    ASSERT_TRUE(pane->load(1));
    type(*pane, "DrillingDate", "12.13.2021");
    driver.expect("Внимание").textContains("Дата бурения").press("OK");
    EXPECT_FALSE(pane->apply());
    type(*pane, "DrillingDate", "12.03.2021");
    child<QPlainTextEdit>(*pane, "Description")->setPlainText("сухая");
    EXPECT_TRUE(pane->apply());
    EXPECT_TRUE(driver.done()) << driver.report();
    EXPECT_EQ(database->rows("select element_id, description, drilling_date, ground_water_level from "
                             "igs_geology_elements"),
              (QVector<QStringList>{{"1", "сухая", "2021-03-12", QString()}}));
}

TEST_F(Inspectors, AnElementWithoutAPropsRowKeepsNone)
{
    fillElements(FamilyKey::Dm);
    const std::unique_ptr<InspectorPane> pane(makeInspectorPane(FamilyKey::Dm));
    const NcDbObjectId reference = insertBlock(FamilyKey::Dm, 1, "Т-10");
    database->exec("delete from dm_dynprops");
    show(*pane, 1, reference);
    EXPECT_TRUE(pane->apply());
    EXPECT_EQ(database->value("select count(*) from dm_dynprops"), "0") << "the update finds no row";
}
