// The object inspector: its switch, and how it follows the selection.
#include "inspected_drawing.h"
#include "support/pictures.h"
#include "support/statement_relay.h"

using ObjectInspector = InspectedDrawing;

namespace {

// Every kind of selection, with an inspector that is on.
class Following : public InspectedDrawing {
protected:
    void SetUp() override
    {
        InspectedDrawing::SetUp();
        switchInspector();
    }
};

} // namespace

TEST_F(ObjectInspector, IsSwitchedOnAndOffByItsCommand)
{
    EXPECT_FALSE(session().inspectorOn);
    switchInspector();
    EXPECT_TRUE(session().inspectorOn);
    EXPECT_EQ(console.take(), "\n Инспектор объектов включен.");
    EXPECT_EQ(text(), nothingSelected);
    EXPECT_TRUE(palette->isVisible());
    switchInspector();
    EXPECT_FALSE(session().inspectorOn);
    EXPECT_EQ(console.take(), "\n Инспектор объектов отключен.");
    EXPECT_EQ(text(), nothingSelected);
    EXPECT_FALSE(palette->isVisible());
}

TEST_F(ObjectInspector, ReplacesItsFormByTheTextWhenItIsSwitchedOff)
{
    switchInspector();
    setPickfirst({addBlock(0, "1")});
    ASSERT_NE(pane(), nullptr);
    switchInspector();
    EXPECT_EQ(text(), nothingSelected);
    EXPECT_FALSE(palette->isVisible());
    setPickfirst({addBlock(0, "1")});
    EXPECT_EQ(pane(), nullptr) << "nobody follows the selection any more";
}

TEST_F(ObjectInspector, StartsWithWhatIsSelected)
{
    setPickfirst({addBlock(0, "1")});
    switchInspector();
    ASSERT_NE(pane(), nullptr);
    EXPECT_EQ(pane()->elementId(), 1);
}

TEST_F(ObjectInspector, IsTakenFromTheHostWithTheModule)
{
    switchInspector();
    console.take();
    removeObjectInspector();
    removeObjectInspector();
    EXPECT_FALSE(session().inspectorOn);
    EXPECT_EQ(console.text(), "");
    setPickfirst({addBlock(0, "1")});
    EXPECT_EQ(pane(), nullptr);
}

TEST_F(Following, ShowsTheElementOfEveryFamily)
{
    for (const Family& family : families()) {
        setPickfirst({addBlock(family.kinds.first(), "1")});
        ASSERT_NE(pane(), nullptr) << family.shortKey;
        EXPECT_EQ(pane()->family(), family.key);
        EXPECT_EQ(pane()->elementId(), 1);
        EXPECT_EQ(line("ElementName")->text(), "Э-1");
        EXPECT_EQ(remark(), "");
        EXPECT_TRUE(applyButton()->isEnabled());
    }
}

TEST_F(Following, EveryKindOfAFamilyIsItsOwn)
{
    for (const Family& family : families()) {
        for (int kind : family.kinds) {
            setPickfirst({addBlock(kind, "1")});
            ASSERT_NE(pane(), nullptr) << kind;
            EXPECT_EQ(pane()->family(), family.key) << kind;
        }
    }
}

TEST_F(Following, OfSeveralBlocksTheFirstIsShown)
{
    database->exec(
        "insert into dm_elements (element_id, type_id, element_name, state_id, position_id) overriding system "
        "value values (2, 'dm', 'Э-2', 'exist', 7)");
    const NcDbObjectId first = addBlock(0, "2"), second = addBlock(0, "1");
    setPickfirst({first, second});
    EXPECT_EQ(line("ElementName")->text(), "Э-2");
    setPickfirst({second, first});
    EXPECT_EQ(line("ElementName")->text(), "Э-1");
    EXPECT_EQ(palette->findChildren<InspectorPane*>().size(), 1) << "one form at a time";
}

TEST_F(Following, ALineIsNoElement)
{
    setPickfirst({addLine(), addBlock(0, "1")});
    EXPECT_EQ(text(), "NONE") << "the first alone is looked at";
}

TEST_F(Following, ForeignBlocksAreNoElements)
{
    ElementDrawing::addDefinition(*workingDatabase(), "Чужой", {"element_id"});
    NcDbObjectId foreign;
    {
        auto block = std::make_unique<NcDbBlockReference>();
        block->setBlockTableRecord(
            HostAccess::recordId(*workingDatabase(), workingDatabase()->blockTableId(), "Чужой"));
        foreign = appendToModelSpace(std::move(block));
    }
    setPickfirst({foreign});
    EXPECT_EQ(text(), "NONE");
}

TEST_F(Following, AKindOutsideTheFamiliesChangesNothing)
{
    setPickfirst({addBlock(0, "1")});
    InspectorPane* before = pane();
    ASSERT_NE(before, nullptr);
    setPickfirst({addBlock(16, "1")});
    EXPECT_EQ(pane(), before);
}

TEST_F(Following, AnEmptySelectionIsToldWhileThePaletteIsSeen)
{
    setPickfirst({addBlock(0, "1")});
    setPickfirst({});
    EXPECT_EQ(text(), nothingSelected);
    setPickfirst({addBlock(0, "1")});
    palette->hide();
    InspectorPane* hidden = pane();
    setPickfirst({});
    EXPECT_EQ(pane(), hidden) << "and not otherwise";
}

TEST_F(Following, AHiddenPaletteFollowsToo)
{
    palette->hide();
    setPickfirst({addBlock(0, "1")});
    EXPECT_NE(pane(), nullptr);
}

TEST_F(Following, AnErasedBlockIsNoSelection)
{
    const NcDbObjectId block = addBlock(0, "1");
    setPickfirst({block});
    erase(block);
    setPickfirst({block});
    EXPECT_EQ(text(), nothingSelected);
}

TEST_F(Following, AnElementWhoseBlockWasErasedMeanwhileCanStillBeApplied)
{
    const NcDbObjectId block = addBlock(0, "1");
    setPickfirst({block});
    erase(block);
    line("X")->setText("77");
    applyButton()->click();
    EXPECT_EQ(database->value("select x from dm_elements where element_id = 1"), "77");
    EXPECT_TRUE(HostAccess::openObjectCount() == 0);
}

TEST_F(Following, ABlockWhoseRowIsGoneSaysSoAndWritesNothing)
{
    const NcDbObjectId block = addBlock(0, "99", 5, 6);
    setPickfirst({block});
    ASSERT_NE(pane(), nullptr);
    EXPECT_EQ(remark(), "Элемента с ID 99 нет в базе данных");
    EXPECT_FALSE(applyButton()->isEnabled());
    EXPECT_FALSE(pane()->apply());
    EXPECT_EQ(ElementBlock(block).x, 5.0) << "an empty form moves no block";
    EXPECT_TRUE(takePicture(*palette, "inspector-gone"));
    setPickfirst({addBlock(0, "1")});
    EXPECT_EQ(remark(), "");
}

TEST_F(Following, ARowThatIsDeletedWhileItIsShownIsNotWritten)
{
    const NcDbObjectId block = addBlock(0, "1");
    setPickfirst({block});
    database->exec("delete from dm_elements where element_id = 1");
    line("X")->setText("77");
    applyButton()->click();
    EXPECT_EQ(database->value("select count(*) from dm_elements where element_id = 1"), "0");
    setPickfirst({block});
    EXPECT_EQ(remark(), "Элемента с ID 1 нет в базе данных");
}

TEST_F(Following, AKeyThatIsNoNumberIsNone)
{
    for (const char* key : {"", "нет", "4294967297"}) {
        setPickfirst({addBlock(0, key)});
        ASSERT_NE(pane(), nullptr);
        EXPECT_EQ(pane()->elementId(), -1) << key;
        EXPECT_EQ(remark(), "Элемента с ID 0 нет в базе данных");
        EXPECT_FALSE(applyButton()->isEnabled());
    }
}

TEST_F(Following, AClosedDrawingLeavesNothingBehind)
{
    setPickfirst({addBlock(0, "1")});
    ASSERT_NE(pane(), nullptr);
    closeAllDocuments();
    EXPECT_EQ(text(), nothingSelected);
}

TEST_F(Following, AFormOfAClosedDrawingMovesNoBlockOfAnother)
{
    setPickfirst({addBlock(0, "1")});
    palette->hide(); // it keeps its form then
    closeAllDocuments();
    openDrawing();
    const NcDbObjectId other = addBlock(0, "1", 500, 600);
    ASSERT_NE(pane(), nullptr);
    line("X")->setText("11");
    applyButton()->click();
    EXPECT_EQ(ElementBlock(other).x, 500.0);
    EXPECT_EQ(database->value("select x from dm_elements where element_id = 1"), "11");
}

TEST_F(Following, WithoutAServerSaysSo)
{
    const NcDbObjectId block = addBlock(0, "1");
    database.disconnect();
    setPickfirst({block});
    ASSERT_NE(pane(), nullptr);
    EXPECT_EQ(remark(), "Нет соединения с базой данных");
    EXPECT_FALSE(applyButton()->isEnabled());
    database.connect();
    setPickfirst({block});
    EXPECT_EQ(remark(), "");
    EXPECT_TRUE(applyButton()->isEnabled());
}

TEST_F(Following, AnotherProjectClearsThePalette)
{
    setPickfirst({addBlock(0, "1")});
    palette->hide();
    setPickfirst({});
    ASSERT_NE(pane(), nullptr);
    palette->refresh();
    EXPECT_EQ(text(), nothingSelected);
    setPickfirst({addBlock(0, "1")});
    InspectorPane* before = pane();
    palette->refresh();
    ASSERT_NE(pane(), nullptr) << "what is still selected is read anew";
    EXPECT_NE(pane(), before);
}

TEST_F(Following, RowAndBlockAreWrittenTogether)
{
    const NcDbObjectId block = addBlock(0, "1");
    setPickfirst({block});
    line("ElementName")->setText("Э-9");
    line("X")->setText("15.5");
    line("Z")->setText("31");
    applyButton()->click();
    EXPECT_EQ(database->rows("select element_name, x, y, z from dm_elements where element_id = 1"),
              QVector<QStringList>({{"Э-9", "15.5", "20", "31"}}));
    const ElementBlock moved(block);
    EXPECT_EQ(moved.name(), "Э-9");
    EXPECT_EQ(moved.x, 15.5);
    EXPECT_EQ(moved.y, 20.0);
    EXPECT_EQ(database->value("select props from dm_dynprops where element_id = 1"), moved.propsText());
    EXPECT_TRUE(takePicture(*palette, "inspector-mark"));
}

TEST_F(Following, PropertiesOfEveryFamilyAreWrittenBack)
{
    for (const Family& family : families()) {
        const NcDbObjectId block = addBlock(family.kinds.first(), "1");
        setPickfirst({block});
        applyButton()->click();
        EXPECT_EQ(database->value("select props from " + family.dynprops + " where element_id = 1"),
                  ElementBlock(block).propsText())
            << family.shortKey;
    }
}

TEST_F(Following, AnElementWithoutPropertiesRowKeepsNone)
{
    database->exec("delete from dm_dynprops");
    setPickfirst({addBlock(0, "1")});
    applyButton()->click();
    EXPECT_EQ(database->value("select count(*) from dm_dynprops"), "0");
}

TEST_F(Following, AFormThatMovesTheSelectionWhileItWorksOutlivesIt)
{
    const NcDbObjectId block = addBlock(0, "1"), line = addLine();
    setPickfirst({block});
    int applied = 0;
    QObject::connect(pane(), &InspectorPane::applied, palette, [line, &applied] {
        ++applied;
        setPickfirst({line});
    });
    applyButton()->click();
    EXPECT_EQ(applied, 1);
    EXPECT_EQ(text(), "NONE");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(palette->findChildren<InspectorPane*>().size(), 0);
}

TEST_F(Following, TheSizeOfASelectionCostsNoStatement)
{
    NcDbObjectIdArray few, many;
    for (int i = 0; i < 200; ++i)
        many.push_back(addBlock(0, "1"));
    few.assign(many.begin(), many.begin() + 2);
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    relay.refuse(-1);
    setPickfirst(few);
    const QStringList ofFew = relay.texts();
    relay.refuse(-1);
    setPickfirst(many);
    EXPECT_EQ(relay.texts(), ofFew);
    EXPECT_FALSE(ofFew.isEmpty());
    session().connection.finish();
}

// The n-th statement of a selection fails, for every n: something is shown, and nothing is written.
TEST_F(Following, OutlivesEveryStatementThatFails)
{
    const NcDbObjectId block = addBlock(0, "1");
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    relay.refuse(-1);
    setPickfirst({block});
    const int statements = relay.statements();
    ASSERT_GE(statements, 3);
    for (int statement = 1; statement <= statements; ++statement) {
        relay.refuse(statement);
        setPickfirst({block});
        EXPECT_TRUE(relay.hasRefused()) << statement;
        EXPECT_NE(pane(), nullptr) << statement;
        EXPECT_EQ(ElementBlock(block).x, 10.0);
    }
    for (int statement = 1; statement < statements; ++statement) {
        ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
        relay.cutAfter(statement);
        setPickfirst({block});
        EXPECT_TRUE(relay.hasCut()) << statement;
        EXPECT_NE(pane(), nullptr) << statement;
    }
    EXPECT_EQ(database->value("select x from dm_elements where element_id = 1"), "10");
    session().connection.finish();
}
