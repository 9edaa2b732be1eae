// Inspections: the record, its photo, bulk work, and the states that follow.
#include "elements/inspections/inspected_elements.h"

#include <QBuffer>

namespace {

class EveryInspection : public InspectedElements, public ::testing::WithParamInterface<FamilyFindings> {
protected:
    EveryInspection() { fillFamily(GetParam()); }
    const InspectionFamily& family() const { return *inspectionFamily(GetParam().family); }
    CycleRows rows(const HierarchyPlace& place = {}) const { return readInspectionRows(family(), place).value(); }
    QStringList stored(int element, int cycle)
    {
        for (const QStringList& row : InspectedElements::stored(GetParam())) {
            if (row[0].toInt() == element && row[1].toInt() == cycle)
                return row.mid(2);
        }
        return {};
    }
    QString state(int element) { return InspectedElements::state(GetParam(), element); }
    ReplaceQuestion answer(bool yes)
    {
        return [this, yes](const QString& text) {
            asked.append(text);
            return yes;
        };
    }
    QStringList asked;
};

} // namespace

TEST_P(EveryInspection, IsReadInTheOrderOfItsColumns)
{
    InspectionRecord record(family());
    ASSERT_TRUE(record.load(1));
    EXPECT_EQ(record.values, stored(1, 1).mid(0, record.values.size()));
    QStringList names;
    for (const InspectionColumn& column : family().columns)
        names.append(column.name);
    EXPECT_EQ(names.join(","), GetParam().columns);
    EXPECT_EQ(record.elementName, "Т-10");
    EXPECT_EQ(record.cycleId, 1);
    EXPECT_EQ(record.inspectId, 1);
    EXPECT_TRUE(record.photo().isNull());
    EXPECT_FALSE(record.load(99));
}

TEST_P(EveryInspection, IsWrittenInTheSameOrder)
{
    InspectionRecord record(family());
    ASSERT_TRUE(record.load(1));
    record.cycleId = 3;
    ASSERT_TRUE(record.insert());
    EXPECT_EQ(record.inspectId, 1000);
    EXPECT_EQ(stored(1, 3), stored(1, 1));
    record.values[record.family().indexOf(InspectionKind::Note)] = "иначе";
    record.values[record.family().indexOf(InspectionKind::State)] = "broken";
    ASSERT_TRUE(record.update());
    QStringList expected = stored(1, 1);
    expected.replaceInStrings("exist", "broken");
    expected[family().indexOf(InspectionKind::Note)] = "иначе";
    EXPECT_EQ(stored(1, 3), expected);
    EXPECT_EQ(database->value(fill("select count(*) from %1_inspection", GetParam().prefix)), "4");
}

TEST_P(EveryInspection, ANewOneFindsNothingAndIsInTheUsualState)
{
    InspectionRecord record(family());
    for (int i = 0; i < record.values.size(); ++i) {
        const InspectionKind kind = family().columns[i].kind;
        EXPECT_EQ(record.values[i], kind == InspectionKind::Note ? "" : kind == InspectionKind::State ? "exist" : "0");
    }
    record.setElement(3);
    record.cycleId = 2;
    EXPECT_EQ(record.elementName, "Д-1");
    EXPECT_TRUE(record.insert());
    EXPECT_EQ(record.storedIn(2), record.inspectId);
    EXPECT_EQ(record.storedIn(1), -1);
}

TEST_P(EveryInspection, ARefusedOneIsToldByItsResultAlone)
{
    InspectionRecord record(family());
    ASSERT_TRUE(record.load(1));
    record.values[family().indexOf(InspectionKind::Note)] = "д'Арк";
    EXPECT_FALSE(record.update()) << "a note is pasted as it stands";
    record.inspectId = -1;
    EXPECT_FALSE(record.insert());
    EXPECT_EQ(record.inspectId, -1);
    const int number = family().indexOf(InspectionKind::Number);
    if (number >= 0) {
        ASSERT_TRUE(record.load(1));
        record.values[number] = QString();
        EXPECT_FALSE(record.update()) << "the column takes no empty quotes";
    }
    EXPECT_EQ(console.text(), "");
}

TEST_P(EveryInspection, APhotoIsStoredAsPngAndReadBack)
{
    InspectionRecord record(family());
    ASSERT_TRUE(record.load(1));
    record.setPhoto(picture());
    ASSERT_TRUE(record.update());
    InspectionRecord read(family());
    ASSERT_TRUE(read.load(1));
    EXPECT_EQ(read.photo().toImage().convertToFormat(QImage::Format_RGB32),
              picture().toImage().convertToFormat(QImage::Format_RGB32));
    EXPECT_EQ(database->value(fill("select encode(substr(photos, 2, 3), 'escape') from %1_inspection where "
                                   "inspect_id = 1",
                                   GetParam().prefix)),
              "PNG");
    read.setPhoto(QPixmap());
    ASSERT_TRUE(read.update());
    EXPECT_NE(stored(1, 1).last(), "") << "no photo leaves the stored one alone";
}

TEST_P(EveryInspection, WhatIsNoPngLeavesThePhotoEmpty)
{
    for (const char* bytes : {"''", "'\\x00'", "'\\xffd8ffe000104a464946'"}) {
        database->exec(
            fill("update %1_inspection set photos = %2::bytea where inspect_id = 1", GetParam().prefix, bytes));
        InspectionRecord record(family());
        ASSERT_TRUE(record.load(1));
        EXPECT_TRUE(record.photo().isNull()) << bytes;
    }
}

TEST_P(EveryInspection, TheTableShowsStatesByTheirNotes)
{
    const CycleRows read = rows();
    ASSERT_EQ(read.size(), 3u);
    EXPECT_EQ(read[0].state, "Разрушена");
    EXPECT_EQ(read[0].stateId, "broken");
    EXPECT_EQ(read[2].name, "Т-2");
    EXPECT_EQ(read[2].cells[1].text, "Разрушена");
    EXPECT_EQ(read[2].idIn(1), 2);
    EXPECT_EQ(read[2].idIn(3), -1);
    session().states.remove("broken");
    EXPECT_EQ(rows()[0].state, "broken") << "a state without a note is told by its id";
    EXPECT_EQ(rows({3, 7}).size(), 2u);
}

TEST_P(EveryInspection, APatternIsWrittenForEveryElement)
{
    InspectionRecord pattern(family());
    ASSERT_TRUE(pattern.load(1));
    pattern.setPhoto(picture());
    pattern.cycleId = 2;
    EXPECT_EQ(createInspections(pattern, rows(), answer(false)), 2);
    const InspectionRecord question(family());
    EXPECT_EQ(asked, QStringList(fill(family().question, "Т-2", "Цикл 2")));
    for (int element : {1, 3}) {
        EXPECT_EQ(stored(element, 2).mid(0, pattern.values.size()), pattern.values);
        EXPECT_NE(stored(element, 2).last(), "") << "its photo";
    }
    EXPECT_EQ(stored(2, 2).last(), "");
    pattern.values[family().indexOf(InspectionKind::Note)] = "иначе";
    EXPECT_EQ(createInspections(pattern, rows(), answer(true)), 3);
    EXPECT_EQ(stored(2, 2).mid(0, pattern.values.size()), pattern.values);
    EXPECT_EQ(database->value(fill("select count(*) from %1_inspection where cycle_id = 2", GetParam().prefix)), "3");
}

TEST_P(EveryInspection, ACycleIsCopiedWithItsPhotos)
{
    InspectionRecord record(family());
    ASSERT_TRUE(record.load(1));
    record.setPhoto(picture());
    ASSERT_TRUE(record.update());
    EXPECT_EQ(copyInspections(family(), rows(), {1, 3}, answer(false)), 2);
    EXPECT_EQ(asked, QStringList());
    EXPECT_EQ(stored(1, 3), stored(1, 1));
    EXPECT_EQ(stored(2, 3), stored(2, 1));
    EXPECT_EQ(copyInspections(family(), rows(), {1, 2}, answer(false)), 1);
    EXPECT_EQ(asked.size(), 1);
    EXPECT_NE(stored(2, 2), stored(2, 1));
    EXPECT_EQ(copyInspections(family(), rows(), {1, 2}, answer(true)), 2);
    EXPECT_EQ(stored(2, 2), stored(2, 1));
}

TEST_P(EveryInspection, ACyclesInspectionsAreDeleted)
{
    EXPECT_EQ(deleteInspections(family(), rows({3, 7}), 1), 2);
    EXPECT_EQ(deleteInspections(family(), rows(), 3), 0);
    EXPECT_EQ(InspectedElements::stored(GetParam()).size(), 1);
}

TEST_P(EveryInspection, TheLatestDecidesTheStatesOfAll)
{
    EXPECT_TRUE(recomputeStates(family()));
    EXPECT_EQ(state(1), "exist");
    EXPECT_EQ(state(2), "exist");
    EXPECT_EQ(state(3), "exist") << "an element without an inspection is 'exist' again";
    deleteInspections(family(), rows(), 2);
    EXPECT_TRUE(recomputeStates(family()));
    EXPECT_EQ(state(2), "broken");
    database->exec("update cycles set date_start = '2019-01-01' where cycle_id = 1");
    InspectionRecord later(family());
    later.setElement(2);
    later.cycleId = 3;
    ASSERT_TRUE(later.insert());
    EXPECT_TRUE(recomputeStates(family()));
    EXPECT_EQ(state(2), "exist") << "by the date of the cycle, not by its number";
}

TEST_P(EveryInspection, OneElementWithoutAnInspectionKeepsItsState)
{
    EXPECT_EQ(recomputeState(family(), 3, "broken"), "broken");
    database->exec(fill("delete from %1_inspection where inspect_id = 3", GetParam().prefix));
    EXPECT_EQ(recomputeState(family(), 2, "exist"), "broken");
    EXPECT_EQ(state(2), "broken");
    EXPECT_EQ(state(1), "exist");
    database.disconnect();
    EXPECT_EQ(recomputeState(family(), 2, "exist"), "exist");
}

TEST_P(EveryInspection, WorkStopsWhenItIsTold)
{
    const auto first = [](int done, int) { return done < 1; };
    EXPECT_FALSE(readInspectionRows(family(), {}, first));
    InspectionRecord pattern(family());
    pattern.cycleId = 3;
    EXPECT_EQ(createInspections(pattern, rows(), answer(true), first), 1);
    EXPECT_EQ(copyInspections(family(), rows({3, 7}), {1, 3}, answer(true), first), 1);
}

TEST_P(EveryInspection, APhotoThatIsRefusedIsToldAndTheRestStands)
{
    database->exec(
        fill("alter table %1_inspection add constraint small check (length(photos) < 10)", GetParam().prefix));
    InspectionRecord record(family());
    ASSERT_TRUE(record.load(1));
    record.values[family().indexOf(InspectionKind::Note)] = "иначе";
    record.setPhoto(picture());
    EXPECT_TRUE(record.update());
    EXPECT_TRUE(console.text().contains("small")) << console.text();
    EXPECT_EQ(stored(1, 1)[family().indexOf(InspectionKind::Note)], "иначе");
    database->exec(fill("alter table %1_inspection drop constraint small", GetParam().prefix));
}

INSTANTIATE_TEST_SUITE_P(Families, EveryInspection, ::testing::ValuesIn(familyFindings));

TEST_F(InspectedElements, AWellTakesItsDepthFromTheLatestInspection)
{
    fillFamily(familyFindings[1]);
    const InspectionFamily& wells = *inspectionFamily(FamilyKey::Ts);
    const auto measured = [this](int element) {
        return database->rows(fill("select depth, h from ts_elements where element_id = %1", element)).value(0);
    };
    recomputeState(wells, 1, "exist");
    EXPECT_EQ(measured(1), (QStringList{"10.5", "0.75"}));
    database->exec("update ts_inspection set depth = 12 where inspect_id = 3");
    recomputeState(wells, 2, "exist");
    EXPECT_EQ(measured(2), (QStringList{"12", "0.75"}));
    recomputeState(wells, 3, "broken");
    EXPECT_EQ(measured(3), (QStringList{"0", "0"}));
    EXPECT_EQ(state(familyFindings[1], 3), "broken");
}

TEST_F(InspectedElements, APhotoOfSixtyMegapixelsGoesAndComes)
{
    fillFamily(familyFindings[5]);
    InspectionRecord record(*inspectionFamily(FamilyKey::Tsg));
    ASSERT_TRUE(record.load(1));
    record.setPhoto(picture(10000, 6000));
    ASSERT_TRUE(record.update());
    ASSERT_TRUE(record.load(1));
    EXPECT_EQ(record.photo().size(), QSize(10000, 6000));
}

TEST_F(InspectedElements, GeologicalWellsAreNotInspected)
{
    EXPECT_EQ(inspectionFamily(FamilyKey::Igs), nullptr);
    EXPECT_EQ(inspectionFamilies().size(), 6);
}
