// Records out of cells, and records among placed elements.
#include "exchange/elements/element_records.h"

#include "exchange/elements/placed_elements.h"

#include <gtest/gtest.h>

namespace {

ColumnRoles rolesInOrder()
{
    ColumnRoles roles(ElementRole::Count);
    for (int role = 0; role < ElementRole::Count; ++role)
        roles.give(role, role);
    return roles;
}

QVector<ElementRecord> read(const QStringList& lines, bool byColumns = false)
{
    return readElements(cellsOf(lines, ";", byColumns), rolesInOrder());
}

} // namespace

TEST(ElementRecords, EachRoleFillsItsField)
{
    const auto records = read({" М-1 ;10,5;y=-20.25;100.5 м;99;5;1,5; Позиция 2 ;0.5"});
    ASSERT_EQ(records.size(), 1);
    const ElementRecord& record = records[0];
    EXPECT_EQ(record.name, "М-1");
    EXPECT_EQ(record.x, 10.5);
    EXPECT_EQ(record.y, -20.25);
    EXPECT_EQ(record.absoluteMark, 100.5);
    EXPECT_EQ(record.groundMark, 99.0);
    EXPECT_EQ(record.burial, 5.0);
    EXPECT_EQ(record.height, 1.5);
    EXPECT_EQ(record.position, "Позиция 2");
    EXPECT_EQ(record.rotation, 0.5);
    EXPECT_TRUE(record.isValid());
}

TEST(ElementRecords, MarksAndHeightsStandInForEachOther)
{
    const struct {
        const char* line;
        std::optional<double> z, h;
    } rules[] = {
        {"М;1;1;100;;;;", 100.0, {}},     {"М;1;1;;98;;1.5;", 99.5, 1.5},   {"М;1;1;100;98;;;", 100.0, 2.0},
        {"М;1;1;100;98;;1;", 100.0, 1.0}, {"М;1;1;;98;;;", {}, {}},         {"М;1;1;;;;1.5;", {}, 1.5},
        {"М;1;1;;;;;", {}, {}},           {"М;1;1;100;;;1.5;", 100.0, 1.5},
    };
    for (const auto& rule : rules) {
        const ElementRecord record = read({rule.line}).value(0);
        EXPECT_EQ(record.z(), rule.z) << rule.line;
        EXPECT_EQ(record.h(), rule.h) << rule.line;
    }
}

TEST(ElementRecords, WithoutANameOrAPlaceARecordIsNotValid)
{
    const auto records = read({";1;2", "М;;2", "М;1;нет", "", ";;;", "М;1;2"});
    ASSERT_EQ(records.size(), 4) << "empty rows are no records";
    EXPECT_FALSE(records[0].isValid());
    EXPECT_FALSE(records[1].isValid());
    EXPECT_FALSE(records[2].isValid());
    EXPECT_TRUE(records[3].isValid());
    EXPECT_TRUE(readElements({{"М", "1", "2"}}, ColumnRoles(ElementRole::Count)).isEmpty());
}

TEST(ElementRecords, RecordsMayStandInColumns)
{
    const auto records = read({"М-1;М-2;М-3", "1;2;3", "10;20"}, true);
    ASSERT_EQ(records.size(), 3);
    EXPECT_EQ(records[1].name, "М-2");
    EXPECT_EQ(records[1].y, 20.0);
    EXPECT_FALSE(records[2].y.has_value()) << "a short row";
}

TEST(PlacedElements, TheFirstRowThatFitsDecides)
{
    PlacedElements placed;
    placed.append({1, "А", 0, 0});
    placed.append({2, "Б", 10, 0});
    placed.append({3, "А", 20, 0});
    const struct {
        const char* name;
        double x, y;
        ElementMatch match;
        int id;
    } rules[] = {
        {"В", 5, 5, ElementMatch::New, -1},        {"А", 0, 0, ElementMatch::Same, 1},
        {"А", 0.00009, 0, ElementMatch::Same, 1},  {"А", 0.0001, 0, ElementMatch::OtherPlace, 1},
        {"Б", 5, 5, ElementMatch::OtherPlace, 2},  {"В", 10, 0, ElementMatch::OtherName, 2},
        {"В", 0, 0.0001, ElementMatch::New, -1},   {"Б", 0, 0, ElementMatch::OtherName, 1},
        {"А", 20, 0, ElementMatch::OtherPlace, 1}, {"В", -0.00005, -0.00005, ElementMatch::OtherName, 1},
    };
    for (const auto& rule : rules) {
        PlacedElement found;
        EXPECT_EQ(int(placed.find(rule.name, rule.x, rule.y, &found)), int(rule.match)) << rule.name << " " << rule.x;
        EXPECT_EQ(found.id, rule.id) << rule.name << " " << rule.x;
    }
}

TEST(PlacedElements, AChangedElementIsFoundWhereItIs)
{
    PlacedElements placed;
    placed.append({1, "А", 0, 0});
    placed.change({1, "Б", 7, 7});
    placed.change({99, "Г", 0, 0});
    PlacedElement found;
    EXPECT_EQ(placed.find("А", 0, 0, &found), ElementMatch::New);
    EXPECT_EQ(placed.find("Б", 7, 7, &found), ElementMatch::Same);
    EXPECT_EQ(found.id, 1);
}
