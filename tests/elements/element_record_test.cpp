// The record by itself: no database, no drawing.
#include "elements/element_block.h"

#include "session/project_session.h"

#include <gtest/gtest.h>
#include <random>

namespace {

const StateColors colors = {{"exist", 5}, {"lost", 1}, {"moved", 3}, {"old", 1}};

ElementBlock fresh(int kind) { return ElementBlock(kind, colors); }

struct DefaultsRow {
    int kind;
    TextMap attributes;
    TextMap dynProps; // without the list-valued ones
    QString leader;
};

void PrintTo(const DefaultsRow& row, std::ostream* out) { *out << "kind " << row.kind; }

const TextMap named = {{"name", " "}, {"element_id", " "}};
const TextMap stabiliser = {{"name", " "}, {"element_id", " "}, {"h", " "}, {"de", " "}, {"z", " "}};
const TextMap benchmark = {{"name", " "}, {"element_id", " "}, {"rp_z", " "}};
const TextMap label = {{"Положение1 X", "1.39489"}, {"Положение1 Y", "0.895453"}, {"Длина полки", "12.0461"}};
const TextMap benchmarkLabel = {{"Положение1 X", "2.01741"}, {"Положение1 Y", "1.29509"}, {"Длина полки", "12.0461"}};

TextMap with(TextMap map, const TextMap& more)
{
    for (auto it = more.begin(); it != more.end(); ++it)
        map.insert(it.key(), it.value());
    return map;
}

const DefaultsRow defaultsTable[] = {
    {0, named, with(label, {{"Угол1", "0"}}), "Видимость1"},
    {1, {}, {}, {}},
    {2, named, label, "Выноска"},
    {3, named, label, "Выноска"},
    {4, {}, {}, {}},
    {5, stabiliser, label, "Выноска"},
    {6, {}, {}, {}},
    {7, {{"element_id", "0"}}, {{"sv_type", "0"}}, {}},
    {8, benchmark, benchmarkLabel, "Видимость1"},
    {9, benchmark, benchmarkLabel, "Видимость1"},
    {10, benchmark, with(benchmarkLabel, {{"Угол1", "0.0"}}), "Видимость1"},
    {11, named, with(label, {{"Угол1", "0.0"}}), "Видимость1"},
    {12, named, label, "Видимость1"},
    {13, named, label, "Видимость1"},
    {14, named, label, "Выноска"},
    {15, named, label, "Выноска"},
    {16, {{"Z", "0"}, {"ELEMENT_ID", "0"}}, {}, {}},
    {17, with(named, {{"Z", "0"}}), label, "Выноска"},
    {18, stabiliser, with(label, {{"Положение2 X", "0"}, {"Положение2 Y", "5"}}), "Выноска"},
    {19, stabiliser, with(label, {{"Заглубление X", "0"}, {"Заглубление Y", "5"}}), "Выноска"},
    {20, named, label, "Выноска"},
    {21, benchmark, with(benchmarkLabel, {{"Угол1", "0.0"}}), "Видимость1"},
};

class Defaults : public ::testing::TestWithParam<DefaultsRow> { };

} // namespace

TEST_P(Defaults, FillTheMapsOfAFreshElement)
{
    const DefaultsRow& row = GetParam();
    TextMap dynProps = row.dynProps;
    TextListMap lists;
    if (!row.leader.isEmpty()) {
        dynProps.insert("Отраженное состояние1", "0");
        dynProps.insert(row.leader, "Выноска видна");
        lists = {{"Отраженное состояние1", {"0", "1"}}, {row.leader, {"Выноска видна", "Выноскаа скрыта"}}};
    }
    const ElementBlock element = fresh(row.kind);
    EXPECT_EQ(element.attributes, row.attributes);
    EXPECT_EQ(element.dynProps, dynProps);
    EXPECT_EQ(element.allowedValues, lists);
}

TEST_P(Defaults, SetTheRestOfTheRecord)
{
    const int kind = GetParam().kind;
    const ElementBlock element = fresh(kind);
    EXPECT_EQ(element.kind, kind);
    EXPECT_EQ(element.blockName, kinds()[size_t(kind)].blockName);
    EXPECT_EQ(element.group, kinds()[size_t(kind)].layer);
    EXPECT_EQ(element.colorIndex, 5);
    EXPECT_EQ(element.stateId, "exist");
    EXPECT_EQ(element.stateColors, colors);
    EXPECT_EQ(element.blockRotation, 0.0);
    EXPECT_EQ(element.scale, 1.0);
    EXPECT_EQ(element.x, 0.0);
    EXPECT_EQ(element.y, 0.0);
    EXPECT_EQ(element.z, 0.0);
    EXPECT_EQ(element.h, 0.0);
    EXPECT_EQ(element.e, 0.0);
    EXPECT_EQ(element.catalogId, -1);
    EXPECT_EQ(element.positionId, -1);
}

TEST_P(Defaults, PropertiesSurviveTheirText)
{
    const ElementBlock element = fresh(GetParam().kind);
    ElementBlock copy = fresh(GetParam().kind);
    std::mt19937 random(unsigned(GetParam().kind));
    std::uniform_int_distribution<int> length(0, 6), sign('a', 'z');
    for (int round = 0; round < 50; ++round) {
        ElementBlock filled = element;
        for (QString& text : filled.dynProps) {
            text.clear();
            for (int i = length(random); i > 0; --i)
                text += QChar(sign(random));
        }
        EXPECT_TRUE(copy.parseProps(filled.propsText()) || filled.dynProps.isEmpty());
        EXPECT_EQ(copy.dynProps, filled.dynProps);
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Defaults, ::testing::ValuesIn(defaultsTable));

TEST(ElementRecord, StartsWithoutAKind)
{
    const ElementBlock element(colors);
    EXPECT_EQ(element.kind, noKind);
    EXPECT_EQ(element.blockName, "");
    EXPECT_TRUE(element.attributes.isEmpty());
    EXPECT_TRUE(element.dynProps.isEmpty());
    EXPECT_EQ(element.stateColors, colors);
    EXPECT_EQ(element.stateId, "exist");
}

TEST(ElementRecord, SetKindStartsOverButKeepsThePlace)
{
    ElementBlock element = fresh(0);
    element.x = 4;
    element.positionId = 12;
    element.scale = 2;
    element.blockRotation = 1;
    element.setState("lost");
    element.setAttribute("name", "ДМ1");
    element.setKind(2);
    EXPECT_EQ(element.blockName, "ts_def");
    EXPECT_EQ(element.group, "GMN_TS");
    EXPECT_EQ(element.attributes.value("name"), " ");
    EXPECT_EQ(element.stateId, "exist");
    EXPECT_EQ(element.colorIndex, 5);
    EXPECT_EQ(element.scale, 1.0);
    EXPECT_EQ(element.blockRotation, 0.0);
    EXPECT_EQ(element.x, 4);
    EXPECT_EQ(element.positionId, 12);
}

TEST(ElementRecord, SetKindWithoutAKindEmptiesNameAndMaps)
{
    for (const int kind : {noKind, 22, -1}) {
        ElementBlock element = fresh(0);
        element.setKind(kind);
        EXPECT_EQ(element.kind, noKind);
        EXPECT_EQ(element.blockName, "");
        EXPECT_TRUE(element.attributes.isEmpty());
        EXPECT_TRUE(element.dynProps.isEmpty());
        EXPECT_TRUE(element.allowedValues.isEmpty());
    }
}

TEST(ElementRecord, SettersChangeOnlyWhatTheKindHas)
{
    ElementBlock element = fresh(12);
    EXPECT_TRUE(element.setAttribute("name", "ДМ1"));
    EXPECT_EQ(element.attributes.value("name"), "ДМ1");
    EXPECT_FALSE(element.setAttribute("rp_z", "1"));
    EXPECT_FALSE(element.hasAttribute("rp_z"));
    EXPECT_FALSE(element.setAttribute("NAME", "x"));
    EXPECT_TRUE(element.setDynProp("Длина полки", "3"));
    EXPECT_FALSE(element.setDynProp("Угол1", "1"));
    EXPECT_FALSE(element.hasDynProp("Угол1"));
    EXPECT_EQ(element.attributes.size(), 2);
}

TEST(ElementRecord, StateTakesItsColour)
{
    ElementBlock element = fresh(0);
    element.setState("lost");
    EXPECT_EQ(element.stateId, "lost");
    EXPECT_EQ(element.colorIndex, 1);
    element.setState("unheard of");
    EXPECT_EQ(element.stateId, "unheard of");
    EXPECT_EQ(element.colorIndex, 5);
}

TEST(ElementRecord, WithoutAConnectionEveryStateHasColourFive)
{
    ASSERT_FALSE(session().connection.isOpen());
    ElementBlock element(0);
    EXPECT_TRUE(element.stateColors.isEmpty());
    element.setState("lost");
    EXPECT_EQ(element.colorIndex, 5);
}

TEST(ElementRecord, KeyIsTheNumberThatTheAttributeBeginsWith)
{
    ElementBlock element = fresh(0);
    EXPECT_EQ(element.elementId(), -1);
    element.setAttribute("element_id", "42");
    EXPECT_EQ(element.elementId(), 42);
    element.setAttribute("element_id", " 42x");
    EXPECT_EQ(element.elementId(), 42);
    element.setAttribute("element_id", "x42");
    EXPECT_EQ(element.elementKey(), std::nullopt);
    EXPECT_EQ(element.elementId(), -1);
    EXPECT_EQ(fresh(16).elementId(), -1);
    EXPECT_EQ(fresh(6).elementId(), -1);
}

TEST(ChangeKind, CarriesNameAndPropertiesToTheOtherKind)
{
    ElementBlock element = fresh(0);
    element.setAttribute("name", "ДМ1");
    element.setAttribute("element_id", "5");
    element.setDynProp("Угол1", "1.5");
    element.setDynProp("Длина полки", "3");
    element.setState("lost");
    element.x = 9;
    ASSERT_TRUE(element.changeKind(12));
    EXPECT_EQ(element.kind, 12);
    EXPECT_EQ(element.blockName, "dm_gl_def");
    EXPECT_EQ(element.attributes, (TextMap{{"name", "ДМ1"}, {"element_id", "5"}}));
    EXPECT_FALSE(element.hasDynProp("Угол1"));
    EXPECT_EQ(element.dynProps.value("Длина полки"), "3");
    EXPECT_EQ(element.allowedValues, fresh(12).allowedValues);
    EXPECT_EQ(element.stateId, "lost");
    EXPECT_EQ(element.x, 9);
}

TEST(ChangeKind, GivesDefaultsToWhatTheOldKindLacked)
{
    ElementBlock element = fresh(2);
    element.setAttribute("name", "ТС1");
    ASSERT_TRUE(element.changeKind(18));
    EXPECT_EQ(element.group, "GMN_TSG");
    EXPECT_EQ(element.attributes.value("de"), " ");
    EXPECT_EQ(element.dynProps.value("Положение2 Y"), "5");
}

TEST(ChangeKind, RefusesToLoseAnAttribute)
{
    const struct {
        int from, to;
    } refused[] = {{8, 0}, {5, 2}, {17, 2}, {16, 0}, {0, 6}, {0, 9999}, {2, 1}};
    for (const auto& change : refused) {
        ElementBlock element = fresh(change.from);
        element.setAttribute("name", "X");
        const ElementBlock before = element;
        EXPECT_FALSE(element.changeKind(change.to)) << change.from << "->" << change.to;
        EXPECT_EQ(element.kind, before.kind);
        EXPECT_EQ(element.blockName, before.blockName);
        EXPECT_EQ(element.attributes, before.attributes);
        EXPECT_EQ(element.dynProps, before.dynProps);
        EXPECT_EQ(element.allowedValues, before.allowedValues);
    }
}

TEST(Props, AreOneTextInTheOrderOfTheNames)
{
    EXPECT_EQ(fresh(0).propsText(),
              "Видимость1:Выноска видна|Длина полки:12.0461|Отраженное состояние1:0|"
              "Положение1 X:1.39489|Положение1 Y:0.895453|Угол1:0");
    EXPECT_EQ(fresh(6).propsText(), "");
}

TEST(Props, UnknownNameEndsTheReadingInMapOrder)
{
    ElementBlock mark = fresh(0);
    mark.setDynProp("Длина полки", "7");
    mark.setDynProp("Угол1", "1");
    // A deep mark has no angle; all names before it are read.
    ElementBlock deep = fresh(12);
    EXPECT_FALSE(deep.parseProps(mark.propsText()));
    EXPECT_EQ(deep.dynProps.value("Длина полки"), "7");
    // A well has "Выноска" instead of "Видимость1", the first name: nothing is read.
    ElementBlock well = fresh(2);
    EXPECT_FALSE(well.parseProps(mark.propsText()));
    EXPECT_EQ(well.dynProps, fresh(2).dynProps);
}

TEST(Props, PiecesWithoutAColonArePassedOver)
{
    ElementBlock element = fresh(12);
    EXPECT_TRUE(element.parseProps(""));
    EXPECT_TRUE(element.parseProps("|nonsense||Длина полки:3|"));
    EXPECT_EQ(element.dynProps.value("Длина полки"), "3");
}

TEST(Props, OnlyTheFirstTwoPartsOfAPieceCount)
{
    ElementBlock element = fresh(12);
    EXPECT_TRUE(element.parseProps("Длина полки:3:4|Положение1 X:"));
    EXPECT_EQ(element.dynProps.value("Длина полки"), "3");
    EXPECT_EQ(element.dynProps.value("Положение1 X"), "");
    EXPECT_FALSE(element.parseProps(":3|Длина полки:8"));
    EXPECT_EQ(element.dynProps.value("Длина полки"), "3");
}

TEST(MarkerRotation, IsTheSumOfBothAngles)
{
    ElementBlock element = fresh(0);
    element.blockRotation = 3.0;
    element.setDynProp("Угол1", "3.5");
    EXPECT_DOUBLE_EQ(element.markerRotation(), 6.5 - 6.283185307179586);
    element.setDynProp("Угол1", "1");
    EXPECT_DOUBLE_EQ(element.markerRotation(), 4.0);
}

TEST(MarkerRotation, LosesATurnOnlyAboveIt)
{
    ElementBlock element = fresh(0);
    element.setDynProp("Угол1", "6.283185307179586");
    EXPECT_EQ(element.markerRotation(), 6.283185307179586);
    element.setDynProp("Угол1", "20");
    EXPECT_DOUBLE_EQ(element.markerRotation(), 20 - 6.283185307179586); // once only
    element.setDynProp("Угол1", "-1");
    EXPECT_EQ(element.markerRotation(), -1.0);
}

TEST(MarkerRotation, AngleThatIsNoNumberCountsAsZero)
{
    ElementBlock element = fresh(11);
    element.blockRotation = 0.5;
    element.setDynProp("Угол1", "abc");
    EXPECT_EQ(element.markerRotation(), 0.5);
}

TEST(MarkerRotation, WithoutTheAngleIsTheBlocks)
{
    ElementBlock element = fresh(2);
    element.blockRotation = 7.0;
    EXPECT_EQ(element.markerRotation(), 7.0);
}
