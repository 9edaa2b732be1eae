// The insertion commands from the first prompt to the row and the block.
#include "insertion_fixture.h"

#include <cmath>

namespace {

const QString modePrompt = "Выполнять циклическую вставку [Да/Нет] <Да>";
const QString pointPrompt = "Точка вставки:";

struct Dialogue {
    const char* command;
    int kind;
    const char* cyclicHeight; // with the offered value, "" when not asked
    const char* cyclicDepth;
    const char* name;
    const char* height;
    const char* depth;
};

void PrintTo(const Dialogue& d, std::ostream* out) { *out << d.command; }

const Dialogue dialogues[] = {
    {"TERVA_INSERT_DM", 0, "Высота марки по умолчанию <1>", "", "Имя деформационной марки <ЭЛ007>", "Высота марки <1>",
     ""},
    {"TERVA_INSERT_DMT", 11, "Высота марки по умолчанию <1>", "", "Имя деформационной марки <ЭЛ007>",
     "Высота марки <1>", ""},
    {"TERVA_INSERT_DMGL", 12, "Высота марки по умолчанию <1>", "", "Имя деформационной марки <ЭЛ007>",
     "Высота марки <1>", ""},
    {"TERVA_INSERT_DMPV", 13, "Высота марки по умолчанию <1>", "", "Имя деформационной марки <ЭЛ007>",
     "Высота марки <1>", ""},
    {"TERVA_INSERT_TS", 2, "Высота устья термоскважины по умолчанию <1>", "", "Имя термометрической скважины <ЭЛ007>",
     "Высота устья термоскважины <1>", ""},
    {"TERVA_INSERT_TT", 14, "Высота устья термоскважины по умолчанию <1>", "", "Имя термометрической скважины <ЭЛ007>",
     "Высота устья термоскважины <1>", ""},
    {"TERVA_INSERT_TSS", 20, "Высота марки по умолчанию <1>", "", "Имя точки снегомерной съемк <ЭЛ007>",
     "Высота точки снегомерной съемки <1>", ""},
    {"TERVA_INSERT_GGS", 3, "Высота ГГС умолчанию <1>", "", "Имя гидрогеологической скважины <ЭЛ007>", "Высота ГГС <1>",
     ""},
    {"TERVA_INSERT_IGS", 17, "", "", "Имя скважины <ЭЛ007>", "", ""},
    {"TERVA_INSERT_RPGL", 8, "Высота репера по умолчанию <1>", "", "Имя репера <ЭЛ007>", "Высота репера <1>", ""},
    {"TERVA_INSERT_RPGR", 9, "Высота репера по умолчанию <1>", "", "Имя репера <ЭЛ007>", "Высота репера <1>", ""},
    {"TERVA_INSERT_RPST", 10, "Высота репера по умолчанию <1>", "", "Имя репера <ЭЛ007>", "Высота репера <1>", ""},
    {"TERVA_INSERT_RPVR", 21, "Высота репера по умолчанию <1>", "", "Имя репера <ЭЛ007>", "Высота репера <1>", ""},
    {"TERVA_INSERT_TSGN", 18, "Высота ТСГ по умолчанию <1>", "Заглубление ТСГ по умолчанию <5>", "Имя ТСГ <ЭЛ007>",
     "Высота ТСГ <1>", "Заглубление ТСГ  <5>"},
    {"TERVA_INSERT_TSGVN", 19, "Высота ТСГ по умолчанию <1>", "Заглубление ТСГ по умолчанию <5>", "Имя ТСГ <ЭЛ007>",
     "Высота ТСГ <1>", "Заглубление ТСГ  <5>"},
    {"TERVA_INSERT_TSGV", 5, "Высота ТСГ по умолчанию <1>", "Заглубление ТСГ по умолчанию <5>", "Имя ТСГ <ЭЛ007>",
     "Высота ТСГ <1>", "Заглубление ТСГ  <5>"},
};

class EveryCommand : public Insertion, public ::testing::WithParamInterface<Dialogue> {
protected:
    const Family& family() const { return *familyOfKind(GetParam().kind); }
    bool stabiliser() const { return family().key == FamilyKey::Tsg; }
    bool heightAsked() const { return *GetParam().height != 0; }
    static void addIfAsked(QStringList& prompts, const char* prompt)
    {
        if (*prompt)
            prompts.append(QString::fromUtf8(prompt));
    }
    // What the row of an element holds in the columns below.
    static QString columns()
    {
        return "type_id, element_name, state_id, position_id, x, y, z, h, scale, block_rotation";
    }
    QStringList row(const QString& name, const QStringList& place, const QString& height) const
    {
        return QStringList{kinds()[size_t(GetParam().kind)].typeId, name, "exist", "7"} + place
            + QStringList{height, "2", "0"};
    }
};

} // namespace

TEST_P(EveryCommand, IsInTheTableWithItsKind)
{
    int found = 0;
    for (const InsertionCommand& command : insertionCommands()) {
        if (command.name != GetParam().command)
            continue;
        EXPECT_EQ(command.kind, GetParam().kind);
        EXPECT_EQ(command.needsPosition, family().key != FamilyKey::Rp);
        ++found;
    }
    EXPECT_EQ(found, 1);
}

TEST_P(EveryCommand, CyclicModeInsertsUntilCancelled)
{
    host.keyword("Yes");
    if (heightAsked())
        host.enter();
    if (stabiliser())
        host.enter();
    host.point(10, 20, 1.5).point(30, 40, 2.5).cancel();
    run(GetParam().kind);

    QStringList prompts{modePrompt};
    addIfAsked(prompts, GetParam().cyclicHeight);
    addIfAsked(prompts, GetParam().cyclicDepth);
    prompts << pointPrompt << pointPrompt << pointPrompt;
    EXPECT_EQ(host.asked, prompts);
    EXPECT_EQ(catalogAsked, stabiliser() ? 1 : 0);

    const QString height = heightAsked() ? "1" : "0";
    const auto rows = rowsOf(family(), columns());
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0], row("ЭЛ007", {"10", "20", "1.5"}, height));
    EXPECT_EQ(rows[1], row("ЭЛ008", {"30", "40", "2.5"}, height));
    EXPECT_EQ(enumeratorOf(family().key).counter, 9);
    EXPECT_EQ(database->value("select count(*) from " + family().dynprops), "2");
    EXPECT_EQ(drawing.references().size(), 2);
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(EveryCommand, CyclicModeTiesEachBlockToItsRow)
{
    host.keyword("Yes");
    if (heightAsked())
        host.real(2.125);
    if (stabiliser())
        host.real(7.5);
    host.point(10, 20, 1.5).cancel();
    run(GetParam().kind);

    ASSERT_EQ(drawing.references().size(), 1);
    const NcDbObjectId id = drawing.references()[0];
    const ElementBlock block(id);
    EXPECT_EQ(block.kind, GetParam().kind);
    EXPECT_EQ(QString::number(block.elementId()), database->value("select element_id from " + family().elements));
    EXPECT_EQ(block.attributes.value("name"), "ЭЛ007");
    EXPECT_EQ(ElementDrawing::reference(id).position(), NcGePoint3d(10, 20, 1.5));
    EXPECT_NEAR(block.scale, 2.0, 1e-12);
    EXPECT_EQ(block.colorIndex, 5);
    EXPECT_EQ(ElementDrawing::reference(id).layer(), kinds()[size_t(GetParam().kind)].layer);
    EXPECT_EQ(block.attributes.value("rp_z"), family().key == FamilyKey::Rp ? "2.13" : QString());
    EXPECT_EQ(block.attributes.value("h"), stabiliser() ? "2.13" : QString());
    EXPECT_EQ(block.attributes.value("de"), stabiliser() ? "7.50" : QString());
    EXPECT_EQ(block.attributes.value("z"), stabiliser() ? "1.50" : QString());
    EXPECT_EQ(database->value("select h from " + family().elements), heightAsked() ? "2.125" : "0");
    if (stabiliser()) {
        EXPECT_EQ(database->rows("select e, catalog_id from tsg_elements").value(0), (QStringList{"7.5", "33"}));
    }
}

TEST_P(EveryCommand, CyclicModePrintsItsSteps)
{
    host.keyword("Yes");
    if (heightAsked())
        host.enter();
    if (stabiliser())
        host.enter();
    host.point(10, 20, 1.5).cancel();
    run(GetParam().kind);
    const QString start =
        "\n Выбор 'Yes'\n Выполняем циклическую вставкуX:10.000000  Y:20.000000  Z:1.500000 \nЭЛ007 \n"
        "\n INSERT INTO "
        + family().elements + " (";
    EXPECT_EQ(host.console.left(start.size()), start);
    EXPECT_TRUE(host.console.endsWith(" returning element_id \n\nOK ")) << host.console;
}

TEST_P(EveryCommand, SingleModeAsksForNameAndHeightAndEndsAfterOne)
{
    host.keyword("No");
    if (!stabiliser())
        host.point(10, 20, 1.5);
    host.text("Своё имя");
    if (heightAsked())
        host.real(3.25);
    if (stabiliser())
        host.real(8.5).point(10, 20, 1.5);
    run(GetParam().kind);

    QStringList prompts{modePrompt};
    if (!stabiliser())
        prompts << pointPrompt;
    prompts << GetParam().name;
    addIfAsked(prompts, GetParam().height);
    addIfAsked(prompts, GetParam().depth);
    if (stabiliser())
        prompts << pointPrompt;
    EXPECT_EQ(host.asked, prompts);
    EXPECT_TRUE(host.allAnswersUsed());
    EXPECT_FALSE(host.ranDry());
    EXPECT_EQ(catalogAsked, stabiliser() ? 1 : 0);

    const auto rows = rowsOf(family(), columns());
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0], row("Своё имя", {"10", "20", "1.5"}, heightAsked() ? "3.25" : "0"));
    EXPECT_EQ(enumeratorOf(family().key).counter, 7);
    ASSERT_EQ(drawing.references().size(), 1);
    const ElementBlock block(drawing.references()[0]);
    EXPECT_EQ(block.attributes.value("name"), "Своё имя");
    EXPECT_EQ(block.attributes.value("rp_z"), family().key == FamilyKey::Rp ? " " : QString());
    EXPECT_EQ(block.attributes.value("de"), stabiliser() ? "8.50" : QString());
    EXPECT_EQ(drawing.faults(), QStringList());
    EXPECT_TRUE(host.console.startsWith("\n Выбор 'No'\n Работаем поштучно"));
}

TEST_P(EveryCommand, SingleModeTakesTheNextNameOnEnter)
{
    host.keyword("No");
    if (!stabiliser())
        host.point(1, 2);
    host.enter();
    if (heightAsked())
        host.enter();
    if (stabiliser())
        host.enter().point(1, 2);
    run(GetParam().kind);
    const auto rows = rowsOf(family(), "element_name, h");
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0], (QStringList{"ЭЛ007", heightAsked() ? "1" : "0"}));
    EXPECT_EQ(enumeratorOf(family().key).counter, 8);
}

TEST_P(EveryCommand, FailedRowLeavesTheBlockWithThePlaceholderId)
{
    session().currentPositionId = -1;
    host.keyword("Yes");
    if (heightAsked())
        host.enter();
    if (stabiliser())
        host.enter();
    host.point(1, 2).point(3, 4).cancel();
    run(GetParam().kind);
    EXPECT_TRUE(rowsOf(family(), "1").isEmpty());
    EXPECT_EQ(database->value("select count(*) from " + family().dynprops), "0");
    ASSERT_EQ(drawing.references().size(), 2);
    for (const NcDbObjectId& id : drawing.references())
        EXPECT_EQ(ElementDrawing::attributes(id).value("element_id"), "1001");
    EXPECT_FALSE(host.console.contains("OK"));
    EXPECT_EQ(enumeratorOf(family().key).counter, 9);
}

INSTANTIATE_TEST_SUITE_P(Commands, EveryCommand, ::testing::ValuesIn(dialogues));

TEST_F(Insertion, SixteenCommandsAndNoOther)
{
    EXPECT_EQ(insertionCommands().size(), 16);
    for (const InsertionCommand& command : insertionCommands())
        EXPECT_NE(command.kind, 15);
}

TEST_F(Insertion, EnterAtTheFirstPromptEndsTheCommandInSpiteOfItsDefault)
{
    host.enter();
    run(0);
    EXPECT_EQ(host.asked, QStringList{modePrompt});
    EXPECT_EQ(host.console, "");
    EXPECT_TRUE(drawing.references().isEmpty());
}

TEST_F(Insertion, CancelAtTheFirstPromptEndsTheCommand)
{
    host.cancel();
    run(5);
    EXPECT_EQ(host.asked, QStringList{modePrompt});
    EXPECT_EQ(catalogAsked, 0);
}

TEST_F(Insertion, CyclicNamesGoOnWithTheCounter)
{
    session().dmEnumerator = {"ДМ", 7, 3};
    host.keyword("Yes").enter().point(0, 0).point(1, 1).cancel();
    run(0);
    EXPECT_EQ(rowsOf(family(FamilyKey::Dm), "element_name"), (QVector<QStringList>{{"ДМ007"}, {"ДМ008"}}));
    EXPECT_EQ(session().dmEnumerator.counter, 9);
}

TEST_F(Insertion, CancelAtTheHeightEndsBeforeAnyPoint)
{
    host.keyword("Yes").cancel();
    run(0);
    EXPECT_EQ(host.asked.size(), 2);
    EXPECT_FALSE(host.console.contains("циклическую"));
    EXPECT_EQ(session().dmEnumerator.counter, 7);
}

TEST_F(Insertion, CancelAtTheDepthEndsBeforeAnyPoint)
{
    host.keyword("Yes").real(2).cancel();
    run(5);
    EXPECT_EQ(host.asked.last(), "Заглубление ТСГ по умолчанию <5>");
    EXPECT_TRUE(drawing.references().isEmpty());
}

TEST_F(Insertion, CancelAtThePointUsesNoName)
{
    host.keyword("No").cancel();
    run(0);
    EXPECT_EQ(session().dmEnumerator.counter, 7);
    EXPECT_TRUE(drawing.references().isEmpty());
}

TEST_F(Insertion, CancelAtTheNameEndsTheSingleMode)
{
    host.keyword("No").point(1, 2).cancel();
    run(0);
    EXPECT_EQ(host.asked.last(), "Имя деформационной марки <ЭЛ007>");
    EXPECT_TRUE(drawing.references().isEmpty());
    EXPECT_EQ(session().dmEnumerator.counter, 7);
}

TEST_F(Insertion, CancelAtTheHeightOfASingleElementInsertsNothing)
{
    host.keyword("No").point(1, 2).text("А").cancel();
    run(0);
    EXPECT_TRUE(drawing.references().isEmpty());
    EXPECT_EQ(database->value("select count(*) from dm_elements"), "0");
}

TEST_F(Insertion, ThermostabiliserUsesItsNameUpBeforeThePoint)
{
    host.keyword("No").enter().enter().enter().cancel();
    run(5);
    EXPECT_EQ(host.asked.last(), pointPrompt);
    EXPECT_TRUE(drawing.references().isEmpty());
    EXPECT_EQ(session().tsgEnumerator.counter, 8);
}

TEST_F(Insertion, CatalogueClosedWithoutAChoiceEndsTheCommand)
{
    chosen.reset();
    for (const char* mode : {"Yes", "No"}) {
        host.keyword(mode);
        run(18);
    }
    EXPECT_EQ(catalogAsked, 2);
    EXPECT_EQ(host.asked, (QStringList{modePrompt, modePrompt}));
    EXPECT_FALSE(host.console.contains("поштучно"));
}

TEST_F(Insertion, OfferedHeightHasTwoSignificantDigits)
{
    host.keyword("Yes").real(1234.5).point(0, 0).cancel();
    run(0);
    EXPECT_EQ(rowsOf(family(FamilyKey::Dm), "h"), (QVector<QStringList>{{"1234.5"}}));
    // Values are not remembered between commands.
    host.keyword("Yes").enter().cancel();
    run(0);
    EXPECT_EQ(host.asked.value(host.asked.size() - 2), "Высота марки по умолчанию <1>");
}

TEST_F(Insertion, PointIsTurnedFromTheUserSystemIntoTheWorld)
{
    NcGeMatrix3d ucs;
    ucs.setCoordSystem({1000, 2000, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
    ASSERT_TRUE(isOk(ncedSetCurrentUCS(ucs)));
    host.keyword("Yes").enter().point(10, 20).cancel();
    run(0);
    EXPECT_EQ(rowsOf(family(FamilyKey::Dm), "x, y"), (QVector<QStringList>{{"980", "2010"}}));
    EXPECT_TRUE(host.console.contains("X:980.000000  Y:2010.000000  Z:0.000000 \n"));
}

TEST_F(Insertion, ConnectionLostMidWayKeepsThePlaceholderFromThenOn)
{
    host.keyword("Yes").enter().point(0, 0);
    host.meanwhile([this]() { database.disconnect(); }).point(1, 1).point(2, 2);
    host.meanwhile([this]() { database.connect(); }).point(3, 3).cancel();
    run(2);
    EXPECT_EQ(rowsOf(family(FamilyKey::Ts), "element_name"), (QVector<QStringList>{{"ЭЛ007"}, {"ЭЛ010"}}));
    QStringList ids, names;
    for (const NcDbObjectId& id : drawing.references()) {
        ids.append(ElementDrawing::attributes(id).value("element_id"));
        names.append(ElementDrawing::attributes(id).value("name"));
    }
    EXPECT_EQ(names, (QStringList{"ЭЛ007", "ЭЛ008", "ЭЛ009", "ЭЛ010"}));
    EXPECT_EQ(ids.mid(1, 2), (QStringList{"1001", "1001"}));
    EXPECT_EQ(ids[0], database->value("select element_id from ts_elements where element_name = 'ЭЛ007'"));
    EXPECT_EQ(ids[3], database->value("select element_id from ts_elements where element_name = 'ЭЛ010'"));
}

TEST_F(Insertion, ServerThatHangsUpMidWayKeepsThePlaceholder)
{
    const QString backend = session().run("select pg_backend_pid()").getvalue(0, 0);
    host.keyword("Yes").enter().point(0, 0);
    host.meanwhile([&]() { database->value("select pg_terminate_backend(" + backend + ")"); }).point(1, 1).cancel();
    run(2);
    EXPECT_EQ(rowsOf(family(FamilyKey::Ts), "element_name"), (QVector<QStringList>{{"ЭЛ007"}}));
    ASSERT_EQ(drawing.references().size(), 2);
    const ElementBlock last(drawing.references()[1]);
    EXPECT_EQ(last.attributes.value("name"), "ЭЛ008");
    EXPECT_EQ(last.elementId(), 1001);
    EXPECT_EQ(last.colorIndex, 5);
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(Insertion, PointThatCannotBeTurnedIsTakenAsItIs)
{
    HostAccess::data(drawing.database()).ucs.entry[0][0] = std::nan("");
    host.keyword("Yes").enter().point(10, 20).cancel();
    run(2);
    EXPECT_EQ(rowsOf(family(FamilyKey::Ts), "x, y"), (QVector<QStringList>{{"10", "20"}}));
}

TEST_F(Insertion, NameThatBreaksTheStatementStillInsertsTheBlock)
{
    host.keyword("No").point(0, 0).text("д'1").enter();
    run(0);
    EXPECT_EQ(database->value("select count(*) from dm_elements"), "0");
    ASSERT_EQ(drawing.references().size(), 1);
    EXPECT_EQ(ElementDrawing::attributes(drawing.references()[0]).value("name"), "д'1");
    EXPECT_EQ(ElementDrawing::attributes(drawing.references()[0]).value("element_id"), "1001");
}

TEST_F(Insertion, EmptyDrawingGetsItsDefinitionsFromTheDeliveredFiles)
{
    ElementDrawing empty;
    host.keyword("Yes").enter().point(10, 20).cancel();
    run(2);
    EXPECT_EQ(host.console.count("завершена\n"), 19) << host.console;
    ASSERT_EQ(empty.references().size(), 1);
    const ElementBlock block(empty.references()[0]);
    EXPECT_EQ(block.kind, 2);
    EXPECT_EQ(QString::number(block.elementId()), database->value("select element_id from ts_elements"));
    EXPECT_EQ(block.dynProps, ElementBlock(2).dynProps);
    EXPECT_EQ(empty.faults(), QStringList());
}

TEST_F(Insertion, MissingDefinitionStillWritesTheRow)
{
    const QString moduleDir = session().moduleDir;
    session().moduleDir = "/nowhere/";
    const ElementDrawing empty;
    host.keyword("Yes").enter().point(0, 0).cancel();
    run(0);
    session().moduleDir = moduleDir;
    EXPECT_EQ(database->value("select count(*) from dm_elements"), "1");
    EXPECT_TRUE(host.console.contains("\n Block dm_def not found in current AcDbDatabase\n"));
}

TEST_F(Insertion, KindWithoutAFamilyDoesNothing)
{
    for (const int kind : {1, 6, 16, noKind})
        run(kind);
    EXPECT_TRUE(host.asked.isEmpty());
}
