// The record and its row.
#include "elements/element_block.h"

#include "support/position_session.h"
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

namespace {

class ElementRow : public ::testing::Test {
protected:
    ElementBlock sample(int kind)
    {
        ElementBlock element(kind);
        element.setAttribute("name", "Э-1");
        element.x = 1.1234567891;
        element.y = -2.5;
        element.z = 30.25;
        element.h = 1.5;
        element.e = 4.75;
        element.catalogId = 77;
        element.blockRotation = 3.0;
        element.scale = 0.5;
        element.setDynProp("Угол1", "3.5");
        element.setDynProp("Длина полки", "9.5");
        return element;
    }
    QString cell(const QString& column, const QString& table, int id)
    {
        return database->value("select " + column + " from " + table + " where element_id = " + QString::number(id));
    }

    PositionSession database;
    ScriptedPrompts host;
};

class EveryKind : public ElementRow, public ::testing::WithParamInterface<int> { };

} // namespace

TEST_P(EveryKind, InsertWritesRowAndProperties)
{
    ElementBlock element = sample(GetParam());
    const Family& family = *element.family();
    ASSERT_TRUE(element.insertRow(PositionSession::position));
    const int id = element.elementId();
    ASSERT_GT(id, 0);
    EXPECT_EQ(element.positionId, PositionSession::position);
    const auto rows = database->rows("select type_id, element_name, state_id, position_id, x, y, z, h, "
                                     "block_rotation, scale from "
                                     + family.elements);
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0],
              (QStringList{kinds()[size_t(GetParam())].typeId, "Э-1", "exist", "7", "1.123456789", "-2.5", "30.25",
                           "1.5", "3", "0.5"}));
    EXPECT_EQ(cell("marker_rotation", family.elements, id), element.hasDynProp("Угол1") ? "0.216814693" : "3");
    EXPECT_EQ(cell("props", family.dynprops, id), element.propsText());
    if (family.key == FamilyKey::Tsg) {
        EXPECT_EQ(cell("e", family.elements, id), "4.75");
        EXPECT_EQ(cell("catalog_id", family.elements, id), "77");
    }
}

TEST_P(EveryKind, InsertPrintsItsStatementAndOk)
{
    ElementBlock element = sample(GetParam());
    element.insertRow(PositionSession::position);
    const Family& family = *element.family();
    const QString marker = element.hasDynProp("Угол1") ? "0.216814693" : "3.000000000";
    const QString typeId = kinds()[size_t(GetParam())].typeId;
    const QString statement = family.key == FamilyKey::Tsg
        ? "INSERT INTO tsg_elements (type_id,element_name,state_id,position_id,x, y, z, h,e, catalog_id, "
          "block_rotation, marker_rotation,scale) VALUES ('"
            + typeId
            + "','Э-1','exist',7,1.123456789,-2.500000000,"
              "30.250000000,1.500000000,4.750000000,77,3.000000000,"
            + marker + ",0.500000000) returning element_id"
        : "INSERT INTO " + family.elements
            + " (type_id,element_name,state_id,position_id,x , y, z, h,"
              "block_rotation, marker_rotation,scale) VALUES ('"
            + typeId
            + "','Э-1','exist',7,1.123456789,-2.500000000,"
              "30.250000000,1.500000000,3.000000000,"
            + marker + ",0.500000000) returning element_id";
    EXPECT_EQ(host.console, "\n " + statement + " \n\nOK ");
}

TEST_P(EveryKind, WhatWasInsertedLoadsBack)
{
    ElementBlock element = sample(GetParam());
    ASSERT_TRUE(element.insertRow(PositionSession::position));
    ElementBlock back(GetParam());
    ASSERT_TRUE(back.loadFromDatabase(element.elementId()));
    EXPECT_EQ(back.dynProps, element.dynProps);
    EXPECT_EQ(back.attributes.value("name"), "Э-1");
    EXPECT_EQ(back.elementId(), element.elementId());
    EXPECT_NEAR(back.x, element.x, 1e-9);
    EXPECT_EQ(back.y, element.y);
    EXPECT_EQ(back.z, element.z);
    EXPECT_EQ(back.h, element.h);
    EXPECT_EQ(back.blockRotation, 3.0);
    EXPECT_EQ(back.scale, 0.5);
    EXPECT_EQ(back.positionId, PositionSession::position);
    EXPECT_EQ(back.stateId, "exist");
    const bool stabiliser = element.family()->key == FamilyKey::Tsg;
    EXPECT_EQ(back.e, stabiliser ? 4.75 : 0.0);
    EXPECT_EQ(back.catalogId, stabiliser ? 77 : -1);
}

TEST_P(EveryKind, LoadMirrorsNumbersIntoTheAttributesThatTheKindHas)
{
    ElementBlock element = sample(GetParam());
    element.insertRow(PositionSession::position);
    ElementBlock back(GetParam());
    back.loadFromDatabase(element.elementId());
    const ElementBlock bare(GetParam());
    const TextMap mirrored = {{"rp_z", "30.25"}, {"z", "30.25"}, {"h", "1.5"}, {"de", "4.75"}};
    for (auto it = mirrored.begin(); it != mirrored.end(); ++it) {
        EXPECT_EQ(back.hasAttribute(it.key()), bare.hasAttribute(it.key()));
        if (bare.hasAttribute(it.key())) {
            EXPECT_EQ(back.attributes.value(it.key()), it.value()) << it.key();
        }
    }
    EXPECT_EQ(back.attributes.size(), bare.attributes.size());
}

TEST_P(EveryKind, ShortUpdateLeavesHeightsStateAndPositionAlone)
{
    ElementBlock element = sample(GetParam());
    element.insertRow(PositionSession::position);
    const int id = element.elementId();
    element.setAttribute("name", "Э-2");
    element.x = 8;
    element.y = 9;
    element.z = 99;
    element.h = 98;
    element.blockRotation = 0.25;
    element.scale = 2;
    element.positionId = PositionSession::otherPosition;
    element.setDynProp("Угол1", "1");
    element.setDynProp("Длина полки", "11");
    ASSERT_TRUE(element.updateRow());
    const Family& family = *element.family();
    const auto rows =
        database->rows("select element_name, x, y, z, h, block_rotation, scale, position_id from " + family.elements);
    EXPECT_EQ(rows.value(0), (QStringList{"Э-2", "8", "9", "30.25", "1.5", "0.25", "2", "7"}));
    EXPECT_EQ(cell("marker_rotation", family.elements, id), element.hasDynProp("Угол1") ? "1.25" : "0.25");
    EXPECT_EQ(cell("props", family.dynprops, id), element.propsText());
}

TEST_P(EveryKind, FullUpdateWritesEverythingAndThePositionWhenItIsSet)
{
    ElementBlock element = sample(GetParam());
    element.insertRow(PositionSession::position);
    element.setAttribute("name", "Э-3");
    element.x = 8;
    element.y = 9;
    element.z = 99;
    element.h = 98;
    element.e = 97;
    element.catalogId = 5;
    element.blockRotation = 0.25;
    element.scale = 2;
    const Family& family = *element.family();
    const QString columns = "select element_name, x, y, z, h, block_rotation, scale, position_id from ";

    element.positionId = -1;
    ASSERT_TRUE(element.updateRowFull());
    EXPECT_EQ(database->rows(columns + family.elements).value(0),
              (QStringList{"Э-3", "8", "9", "99", "98", "0.25", "2", "7"}));

    element.positionId = PositionSession::otherPosition;
    element.x = 10;
    ASSERT_TRUE(element.updateRowFull());
    EXPECT_EQ(database->rows(columns + family.elements).value(0),
              (QStringList{"Э-3", "10", "9", "99", "98", "0.25", "2", "8"}));
    if (family.key == FamilyKey::Tsg) {
        EXPECT_EQ(database->rows("select e, catalog_id from tsg_elements").value(0), (QStringList{"97", "5"}));
    }
    EXPECT_EQ(cell("props", family.dynprops, element.elementId()), element.propsText());
}

TEST_P(EveryKind, UpdateCanChangeTheTypeWithinTheFamily)
{
    ElementBlock element = sample(GetParam());
    element.insertRow(PositionSession::position);
    const int last = element.family()->kinds.last();
    if (!element.changeKind(last))
        GTEST_FAIL() << "kinds of one family have the same attributes";
    ASSERT_TRUE(element.updateRow());
    EXPECT_EQ(cell("type_id", element.family()->elements, element.elementId()), kinds()[size_t(last)].typeId);
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind,
                         ::testing::Values(0, 2, 3, 5, 8, 9, 10, 11, 12, 13, 14, 15, 17, 18, 19, 20, 21));

TEST_F(ElementRow, KindsWithoutAFamilyHaveNoRow)
{
    for (const int kind : {1, 4, 6, 7, 16, noKind}) {
        ElementBlock element(kind);
        element.setAttribute("element_id", "1");
        EXPECT_FALSE(element.loadFromDatabase(1)) << kind;
        EXPECT_FALSE(element.insertRow(PositionSession::position)) << kind;
        EXPECT_FALSE(element.updateRow()) << kind;
        EXPECT_FALSE(element.updateRowFull()) << kind;
    }
    EXPECT_EQ(host.console, "");
}

TEST_F(ElementRow, LoadWithoutARowLeavesTheRecord)
{
    ElementBlock element = sample(0);
    EXPECT_FALSE(element.loadFromDatabase(123456));
    EXPECT_EQ(element.attributes.value("name"), "Э-1");
    EXPECT_EQ(element.y, -2.5);
}

TEST_F(ElementRow, LoadTakesStateAndColour)
{
    database->exec("insert into states (state_id, note, colorindex) values ('lost', 'Утрачен', 1), ('dim', '', null);"
                   "insert into dm_elements (element_id, type_id, element_name, position_id, state_id, x, y) values "
                   "(1, 'dm', 'a', 7, 'lost', 0, 0), (2, 'dm', 'b', 7, 'dim', 0, 0), (3, 'dm', 'c', 7, null, 0, 0)");
    ElementBlock element(0);
    EXPECT_EQ(element.stateColors.value("lost"), 1);
    ASSERT_TRUE(element.loadFromDatabase(1));
    EXPECT_EQ(element.stateId, "lost");
    EXPECT_EQ(element.colorIndex, 1);
    ASSERT_TRUE(element.loadFromDatabase(3));
    EXPECT_EQ(element.stateId, "");
    EXPECT_EQ(element.colorIndex, 5);
}

TEST_F(ElementRow, RowWithoutPropertiesKeepsTheKindsDefaults)
{
    database->exec("insert into tsg_elements (element_id, type_id, element_name, position_id, state_id, scale, e) "
                   "values (4, 'tsg', null, 7, 'exist', null, null)");
    ElementBlock element(5);
    ASSERT_TRUE(element.loadFromDatabase(4));
    EXPECT_EQ(element.dynProps, ElementBlock(5).dynProps);
    EXPECT_EQ(element.attributes.value("name"), "");
    EXPECT_EQ(element.attributes.value("de"), "");
    EXPECT_EQ(element.scale, 1.0);
    EXPECT_EQ(element.e, 0.0);
    EXPECT_EQ(element.catalogId, -1);
}

TEST_F(ElementRow, LoadOfAScaleOfZeroKeepsIt)
{
    database->exec("insert into dm_elements (element_id, type_id, position_id, scale) values (5, 'dm', 7, 0)");
    ElementBlock element(0);
    ASSERT_TRUE(element.loadFromDatabase(5));
    EXPECT_EQ(element.scale, 0.0);
}

TEST_F(ElementRow, AnUnchangedTurnIsWrittenWhole)
{
    ElementBlock element = sample(0);
    element.blockRotation = 0.0;
    element.setDynProp("Угол1", "6.283185307179586");
    element.insertRow(PositionSession::position);
    EXPECT_EQ(cell("marker_rotation", "dm_elements", element.elementId()), "6.283185307");
}

TEST_F(ElementRow, FailedInsertLeavesTheRecordAndWritesNoProperties)
{
    ElementBlock element = sample(0);
    element.setAttribute("element_id", "1001");
    EXPECT_FALSE(element.insertRow(-1)); // no such position
    EXPECT_EQ(element.elementId(), 1001);
    EXPECT_EQ(element.positionId, -1);
    EXPECT_EQ(database->value("select count(*) from dm_elements"), "0");
    EXPECT_EQ(database->value("select count(*) from dm_dynprops"), "0");
    EXPECT_FALSE(host.console.contains("OK"));
    EXPECT_TRUE(host.console.startsWith("\n INSERT INTO dm_elements "));
}

TEST_F(ElementRow, NamesArePutBetweenQuotesAsTheyAre)
{
    ElementBlock element = sample(0);
    element.setAttribute("name", "д'1");
    EXPECT_FALSE(element.insertRow(PositionSession::position));
    element.setAttribute("name", "%1 %12 '' \\");
    EXPECT_TRUE(element.insertRow(PositionSession::position));
    EXPECT_EQ(cell("element_name", "dm_elements", element.elementId()), "%1 %12 ' \\");
}

// Drawings come from others: what a property says must not become a statement.
TEST_F(ElementRow, APropertyThatWouldEndItsStatementChangesNothing)
{
    ElementBlock good = sample(0);
    ASSERT_TRUE(good.insertRow(PositionSession::position));
    const QString before = cell("props", "dm_dynprops", good.elementId());
    ElementBlock element = sample(0);
    ASSERT_TRUE(element.insertRow(PositionSession::position));
    element.setDynProp("Видимость1", "a' --");
    if (!element.propsText().contains("a' --"))
        element.dynProps.insert("Чужое", "a' --");
    ASSERT_TRUE(element.propsText().contains("a' --")) << element.propsText();
    EXPECT_FALSE(element.updateRow());
    EXPECT_EQ(cell("props", "dm_dynprops", good.elementId()), before);
    EXPECT_TRUE(session().connection.errorMessage().startsWith("Запрос не отправлен: апостроф"));
}

TEST_F(ElementRow, InsertIsAlwaysInTheStateExist)
{
    database->exec("insert into states (state_id, colorindex) values ('lost', 1)");
    ElementBlock element = sample(0);
    element.setState("lost");
    ASSERT_TRUE(element.insertRow(PositionSession::position));
    EXPECT_EQ(cell("state_id", "dm_elements", element.elementId()), "exist");
}

TEST_F(ElementRow, FailedPropertiesAfterAGoodRowStayWithoutOk)
{
    database->exec("alter table dm_dynprops add constraint never check (props <> props)");
    ElementBlock element = sample(0);
    EXPECT_FALSE(element.insertRow(PositionSession::position));
    EXPECT_GT(element.elementId(), 0);
    EXPECT_EQ(database->value("select count(*) from dm_elements"), "1");
    EXPECT_FALSE(host.console.contains("OK"));
    database->exec("alter table dm_dynprops drop constraint never");
}

TEST_F(ElementRow, UpdateWithoutAKeyTouchesNothing)
{
    ElementBlock stored = sample(0);
    stored.insertRow(PositionSession::position);
    ElementBlock element = sample(0);
    element.x = 5;
    EXPECT_FALSE(element.updateRow());
    EXPECT_FALSE(element.updateRowFull());
    EXPECT_EQ(cell("y", "dm_elements", stored.elementId()), "-2.5");
}

TEST_F(ElementRow, WithoutAConnectionNothingWorks)
{
    ElementBlock element = sample(0);
    database.disconnect();
    EXPECT_FALSE(element.insertRow(PositionSession::position));
    element.setAttribute("element_id", "1");
    EXPECT_FALSE(element.updateRow());
    EXPECT_FALSE(element.loadFromDatabase(1));
}
