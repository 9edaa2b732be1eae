// The measures of many elements: reading, copying, deleting, exporting.
#include "elements/measures/measures_by_cycle.h"

#include "elements/measures/measure_export.h"
#include "elements/measures/measured_elements.h"

namespace {

class EveryFamilyByCycle : public MeasuredElements, public ::testing::WithParamInterface<FamilyValues> {
protected:
    EveryFamilyByCycle() { fillFamily(GetParam()); }
    const MeasureFamily& family() const { return *measureFamily(GetParam().family); }
    CycleRows rows(const HierarchyPlace& place = {}) const
    {
        const auto read = readMeasureRows(family(), place);
        EXPECT_TRUE(read);
        return read.value_or(CycleRows());
    }
    int copy(int source, int target, bool replace)
    {
        asked = 0;
        return copyMeasures(family(), rows(), {source, target, [this, replace] {
                                                   ++asked;
                                                   return replace;
                                               }});
    }
    QStringList inCycle(int cycle)
    {
        QStringList met;
        for (const QStringList& row : stored(GetParam())) {
            if (row[1].toInt() == cycle)
                met.append(row[0] + ":" + row.mid(4, row.size() - 5).join("/"));
        }
        return met;
    }
    int asked = 0;
};

} // namespace

TEST_P(EveryFamilyByCycle, ElementsOfThePlaceAreReadWithTheirMeasures)
{
    CycleRows read = rows();
    ASSERT_EQ(read.size(), 3u);
    EXPECT_EQ(read[0].name, "Д-1");
    EXPECT_TRUE(read[0].cells.isEmpty());
    EXPECT_EQ(read[1].name, "Т-10");
    EXPECT_EQ(read[1].idIn(1), 1);
    EXPECT_EQ(read[1].cells[1].text, "05.01.2021");
    EXPECT_EQ(read[1].idIn(2), -1);
    EXPECT_EQ(read[2].idIn(2), 3);
    read = rows({3, 8});
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0].name, "Д-1");
    EXPECT_EQ(rows({0, 1}).size(), 3u);
    EXPECT_EQ(rows({0, 2}).size(), 0u);
}

TEST_P(EveryFamilyByCycle, AnEmptyTargetIsFilledWithoutAQuestion)
{
    EXPECT_EQ(copy(2, 3, false), 1);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(inCycle(3), QStringList(inCycle(2)));
    EXPECT_EQ(inCycle(2).size(), 1);
}

TEST_P(EveryFamilyByCycle, AMeasureInTheTargetIsReplacedOnConsentAlone)
{
    const QStringList before = inCycle(2);
    EXPECT_EQ(copy(1, 2, false), 1) << "the element whose target is empty";
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(inCycle(2).mid(1), before);
    EXPECT_EQ(copy(1, 2, true), 4) << "two deleted, two inserted";
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(inCycle(2), inCycle(1));
    EXPECT_EQ(database->value(fill("select count(*) from %1", family().measureTable)), "4");
}

TEST_P(EveryFamilyByCycle, AReadingWithoutADeviceIsNotCarriedOverButItsTargetIsGone)
{
    database->exec(fill("update %1 set device_id = null where element_id = 2 and cycle_id = 1", family().measureTable));
    EXPECT_EQ(copy(1, 2, true), 2);
    EXPECT_EQ(inCycle(2).size(), 1);
    EXPECT_TRUE(inCycle(2)[0].startsWith("1:"));
}

TEST_P(EveryFamilyByCycle, NothingIsCopiedOntoItself)
{
    const auto before = stored(GetParam());
    EXPECT_EQ(copy(2, 2, true), 0);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(stored(GetParam()), before);
}

TEST_P(EveryFamilyByCycle, ACyclesMeasuresAreDeletedInOneStatement)
{
    EXPECT_TRUE(deleteMeasures(family(), rows({3, 7}), 1));
    EXPECT_EQ(inCycle(1), QStringList());
    EXPECT_EQ(inCycle(2).size(), 1);
    EXPECT_TRUE(deleteMeasures(family(), rows(), 3)) << "nothing there is no failure";
    const CycleRows known = rows();
    database.disconnect();
    EXPECT_FALSE(deleteMeasures(family(), known, 2));
}

TEST_P(EveryFamilyByCycle, WithoutAServerNothingIsRead)
{
    const CycleRows known = rows();
    database.disconnect();
    EXPECT_FALSE(readMeasureRows(family(), {}));
    EXPECT_EQ(copyMeasures(family(), known, {1, 2, [] { return true; }}), 0);
    EXPECT_EQ(console.text(), "\nНе установлено соединение с базой данных\n");
    database.connect();
    EXPECT_EQ(inCycle(2).size(), 1);
}

TEST_P(EveryFamilyByCycle, WorkStopsWhenItIsTold)
{
    EXPECT_FALSE(readMeasureRows(family(), {}, [](int done, int total) { return done + 1 < total; }));
    QVector<int> steps;
    const MeasureCopy all = {1, 3, [] { return true; }};
    EXPECT_EQ(copyMeasures(family(), rows(), all,
                           [&](int done, int total) {
                               steps.append(total);
                               return done < 2;
                           }),
              1);
    EXPECT_EQ(steps, (QVector<int>{3, 3, 3}));
    EXPECT_EQ(inCycle(3).size(), 1);
}

TEST_P(EveryFamilyByCycle, AMeasureInACycleThatWasMetTwiceCountsAsTheLastOne)
{
    insertMeasure(GetParam(), 9, 1, 1, "'2021-01-09'", GetParam().second);
    EXPECT_EQ(rows({3, 7})[0].idIn(1), 9);
    EXPECT_EQ(rows({3, 7})[0].cells[1].text, "09.01.2021");
}

INSTANTIATE_TEST_SUITE_P(Families, EveryFamilyByCycle, ::testing::ValuesIn(familyValues));

namespace {

class MeasureExport : public MeasuredElements {
protected:
    QString exported(const FamilyValues& c, const QVector<int>& cycles = {1, 2, 3})
    {
        const MeasureFamily& family = *measureFamily(c.family);
        return exportText(c.family, loadMeasures(family, readMeasureRows(family, {}).value(), cycles).value());
    }
};

const FamilyValues& valuesOf(FamilyKey family)
{
    for (const FamilyValues& values : familyValues) {
        if (values.family == family)
            return values;
    }
    return familyValues[0];
}

} // namespace

TEST_F(MeasureExport, FamiliesOfNumbersHaveOneHeader)
{
    const struct {
        FamilyKey family;
        QString text;
    } cases[] = {
        {FamilyKey::Dm,
         "Имя;Дата;Отметка;SN прибора\nТ-10;05.01.2021;12.346;SN-1\nТ-2;06.01.2021;12.346;SN-1\n"
         "Т-2;07.02.2021;13.500;SN-1\n"},
        {FamilyKey::Rp,
         "Имя;Дата;Отметка;Точность;SN прибора\nТ-10;05.01.2021;12.3456;0.25;SN-1\n"
         "Т-2;06.01.2021;12.3456;0.25;SN-1\nТ-2;07.02.2021;13.5000;0.50;SN-1\n"},
        {FamilyKey::Ggs,
         "Имя;Дата;Уровень ГВ;SN прибора\nТ-10;05.01.2021;3.25;SN-1\nТ-2;06.01.2021;3.25;SN-1\n"
         "Т-2;07.02.2021;4.50;SN-1\n"},
    };
    for (const auto& c : cases) {
        fillFamily(valuesOf(c.family));
        EXPECT_EQ(exported(valuesOf(c.family)), c.text);
        EXPECT_TRUE(isExported(c.family));
    }
    EXPECT_FALSE(isExported(FamilyKey::Tss));
    EXPECT_FALSE(isExported(FamilyKey::Tsg));
}

TEST_F(MeasureExport, WellsGetAHeaderWhereverTheirDepthsDiffer)
{
    const FamilyValues& wells = valuesOf(FamilyKey::Ts);
    fillFamily(wells);
    insertMeasure(wells, 4, 3, 1, "'2021-01-04'", "null,''");
    EXPECT_EQ(exported(wells),
              "Имя;Серийный номер;Дата замера;Время замера;Темп.возд\n"
              "Д-1;SN-1;04.01.2021;12:00:00;\n"
              "Имя;Серийный номер;Дата замера;Время замера;Темп.возд;0.5;1\n"
              "Т-10;SN-1;05.01.2021;12:00:00;-5.25;-1.23;-1.80\n"
              "Т-2;SN-1;06.01.2021;12:00:00;-5.25;-1.23;-1.80\n"
              "Имя;Серийный номер;Дата замера;Время замера;Темп.возд;0.5;2\n"
              "Т-2;SN-1;07.02.2021;12:00:00;1.00;-1.00;-2.00\n");
    database->exec("update ts_meas set meas = '2.00:-2.00|0.50:-1.00|2.00:-9.00|3.00:inf' where meas_ts_id = 1");
    EXPECT_EQ(exported(wells, {1}).section('\n', 3, 4),
              "Т-10;SN-1;05.01.2021;12:00:00;-5.25;-1.00;-9.00;\n"
              "Имя;Серийный номер;Дата замера;Время замера;Темп.возд;0.5;1");
}

TEST_F(MeasureExport, AMeasureThatIsGoneIsPassedOver)
{
    const FamilyValues& marks = valuesOf(FamilyKey::Dm);
    fillFamily(marks);
    const MeasureFamily& family = *measureFamily(FamilyKey::Dm);
    const CycleRows rows = readMeasureRows(family, {}).value();
    database->exec("delete from dm_meas where meas_dm_id = 1");
    EXPECT_EQ(loadMeasures(family, rows, {1, 2})->size(), 2u);
    EXPECT_EQ(loadMeasures(family, rows, {})->size(), 0u);
    EXPECT_FALSE(loadMeasures(family, rows, {1, 2}, [](int done, int) { return done < 1; })) << "stopped";
}

// What is refused does not take the place of what stands.
TEST_F(MeasuredElements, AReadingThatIsRefusedLeavesTheOneItWouldReplace)
{
    fillFamily(familyValues[0]);
    database->exec(
        "create function refuse_row() returns trigger language plpgsql as 'begin raise exception ''no''; end';"
        "create trigger refuse_row before insert on dm_meas for each row execute function refuse_row()");
    const MeasureFamily& marks = *measureFamily(FamilyKey::Dm);
    const auto rows = readMeasureRows(marks, {}, {});
    ASSERT_TRUE(rows);
    EXPECT_EQ(copyMeasures(marks, *rows, {1, 2, [] { return true; }}, {}), 0);
    EXPECT_EQ(database->value("select count(*) from dm_meas where cycle_id = 2"), "1");
    EXPECT_TRUE(console.take().contains("Измерение элемента Т-2 не перенесено: "));
    database->exec("drop trigger refuse_row on dm_meas; drop function refuse_row()");
}
