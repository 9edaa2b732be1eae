#include "elements/measures/family_measures.h"

#include "base/placeholders.h"
#include "base/written_date.h"
#include "support/position_session.h"
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

namespace {

struct FamilyCase {
    FamilyKey family;
    const char* typeId;
    const char* prefix;
    const char* idColumn;
    std::array<double, 2> values;
    const char* columns; // of the insert
    const char* texts;   // of the values
};

const FamilyCase cases[] = {
    {FamilyKey::Dm, "dm", "dm", "meas_dm_id", {{12.34567, 0}}, "meas", "12.3457"},
    {FamilyKey::Ts, "ts", "ts", "meas_ts_id", {{-3.125, 0}}, "t_vozd,meas", "-3.13,'0.50:-1.23|1.00:-1.80'"},
    {FamilyKey::Rp, "rp_gl", "rp", "meas_rp_id", {{12.34567, 0.0000125}}, "meas,precis", "12.3457,0.000013"},
    {FamilyKey::Tss, "tss_h", "tss", "meas_id", {{0.25, 40.5}}, "meas_density,meas_heigth", "0.2500,40.5000"},
    {FamilyKey::Ggs, "ggs", "ggs", "meas_id", {{0.03125, 0}}, "meas", "0.0313"},
    {FamilyKey::Tsg, "tsg", "tsg", "meas_id", {{-20.5, -18.25}}, "env_temp,exchanger_temp", "-20.5000,-18.2500"},
};

void PrintTo(const FamilyCase& c, std::ostream* out) { *out << c.prefix; }

constexpr auto lists =
    "insert into cycles (cycle_id, number, date_start, date_end, description) values "
    "(3, 2, '2021-03-10', '2021-03-13', 'весна'), (2, 1, '2020-09-01', '2020-09-30', 'осень'), "
    "(4, 3, '2021-09-01', null, 'открыт');"
    "insert into devices (device_id, name, serial, description) values (1, 'Нивелир', 'A-17', 'нивелир'), "
    "(2, 'Коса', ' B 9 ', null);"
    "insert into performers (performer_id, fullname, name, post) values (6, 'Иванов И. И.', 'ИванИИ', 'геодезист')";

class MeasureTest : public ::testing::Test {
protected:
    MeasureTest() { database->exec(lists); }

    void insertElement(const FamilyCase& c, int id, const QString& name, int position = PositionSession::position)
    {
        database->exec(fill("insert into %1_elements (element_id, type_id, element_name, position_id, state_id) "
                            "values (%2, '%3', '%4', %5, 'exist')",
                            c.prefix, id, c.typeId, name, position));
    }
    std::unique_ptr<BaseMeasure> complete(const FamilyCase& c)
    {
        insertElement(c, 40, "Э-1");
        auto measure = makeMeasure(c.family);
        measure->loadElements(false);
        measure->loadCycles();
        measure->loadDevices();
        measure->loadPerformers();
        measure->setElementName("Э-1");
        measure->setDate(writtenMoment(QDate(2021, 3, 11), QTime(9, 30)));
        measure->setDeviceSerial("A-17");
        measure->setPerformerId(6);
        measure->values = c.values;
        if (auto* well = dynamic_cast<TSMeasure*>(measure.get()))
            well->profile = {{0.5, -1.23}, {1.0, -1.8}};
        return measure;
    }

    PositionSession database;
    ScriptedPrompts host;
};

class EveryFamily : public MeasureTest, public ::testing::WithParamInterface<FamilyCase> { };

QStringList texts(const EntryList& list)
{
    QStringList texts;
    for (const ListEntry& entry : list)
        texts.append(entry.text);
    return texts;
}

QVector<int> ids(const EntryList& list)
{
    QVector<int> ids;
    for (const ListEntry& entry : list)
        ids.append(entry.id);
    return ids;
}

} // namespace

TEST_P(EveryFamily, InsertStatementIsTheFamilys)
{
    const FamilyCase& c = GetParam();
    const auto measure = complete(c);
    EXPECT_EQ(measure->insertSql().text(),
              fill("INSERT INTO %1_meas (element_id,cycle_id,device_id,date,%2,performer_id) VALUES "
                   "(40,3,1,'2021-03-11',%3,6) RETURNING %4",
                   c.prefix, c.columns, c.texts, c.idColumn));
    EXPECT_TRUE(measure->complete);
}

TEST_P(EveryFamily, UpdateStatementIsTheFamilys)
{
    const FamilyCase& c = GetParam();
    const auto measure = complete(c);
    EXPECT_EQ(measure->updateSql(91).text(),
              fill("UPDATE %1_meas SET (element_id,cycle_id,device_id,date,%2,performer_id) = "
                   "(40,3,1,'2021-03-11',%3,6) WHERE %4=91",
                   c.prefix, c.columns, c.texts, c.idColumn));
}

TEST_P(EveryFamily, IncompleteRecordHasNoStatement)
{
    const auto measure = complete(GetParam());
    measure->setPerformerId(-1);
    EXPECT_EQ(measure->insertSql().text(), QString());
    EXPECT_EQ(measure->updateSql(1).text(), QString());
    EXPECT_FALSE(measure->complete);
}

TEST_P(EveryFamily, WhatWasStoredLoadsBack)
{
    const FamilyCase& c = GetParam();
    const auto measure = complete(c);
    const sql::Result key = session().run(measure->insertSql());
    ASSERT_TRUE(key.isTuples()) << key.errorMessage();

    const auto back = makeMeasure(c.family, measure->lists);
    ASSERT_EQ(back->load(key.toInt(0, 0)), 0);
    EXPECT_EQ(back->measureId, key.toInt(0, 0));
    EXPECT_EQ(back->elementId, 40);
    EXPECT_EQ(back->elementName, "Э-1");
    EXPECT_EQ(back->elementIndex, 0);
    EXPECT_EQ(back->cycleId, 3);
    EXPECT_EQ(back->cycleIndex, measure->cycleIndex);
    EXPECT_EQ(back->deviceId, 1);
    EXPECT_EQ(back->deviceSerial, "A-17");
    EXPECT_EQ(back->performerId, 6);
    EXPECT_EQ(back->date, writtenMoment(QDate(2021, 3, 11), QTime(0, 0)));
    EXPECT_TRUE(back->isComplete());
    EXPECT_EQ(back->updateSql(1).text(), measure->updateSql(1).text());
}

TEST_P(EveryFamily, UpdateReplacesTheStoredValues)
{
    const FamilyCase& c = GetParam();
    const auto measure = complete(c);
    EXPECT_EQ(measure->findMeasureId(), -1);
    EXPECT_FALSE(measure->exists);
    session().run(measure->insertSql());
    const int id = measure->findMeasureId();
    ASSERT_GT(id, 0);
    EXPECT_TRUE(measure->exists);
    measure->values[0] = 7.25;
    ASSERT_TRUE(session().run(measure->updateSql(id)).isCommand());
    const auto back = makeMeasure(c.family);
    ASSERT_EQ(back->load(id), 0);
    EXPECT_EQ(back->values[0], 7.25);
    EXPECT_EQ(database->value(fill("select count(*) from %1_meas", c.prefix)), "1");
}

TEST_P(EveryFamily, ElementsAreThoseOfThePositionOrOfTheWholeBase)
{
    const FamilyCase& c = GetParam();
    insertElement(c, 50, "Я");
    insertElement(c, 51, "А");
    insertElement(c, 52, "Г", PositionSession::otherPosition);
    const auto measure = makeMeasure(c.family);
    EXPECT_EQ(measure->positionId, PositionSession::position);
    EXPECT_EQ(measure->loadElements(false), 0);
    EXPECT_EQ(ids(measure->lists.elements), (QVector<int>{50, 51}));
    EXPECT_EQ(measure->loadElements(true), 0);
    EXPECT_EQ(texts(measure->lists.elements), (QStringList{"А", "Г", "Я"}));
}

TEST_P(EveryFamily, LoadWithoutARowIsNotFound)
{
    const auto measure = makeMeasure(GetParam().family);
    EXPECT_EQ(measure->load(99), 11);
    EXPECT_EQ(measure->load(-1), 11);
    EXPECT_EQ(measure->measureId, -1);
}

TEST_P(EveryFamily, RowOfNullsLoadsAsUnknown)
{
    const FamilyCase& c = GetParam();
    insertElement(c, 40, "Э-1");
    database->exec(fill("insert into %1_meas (%2, element_id) values (5, 40)", c.prefix, c.idColumn));
    const auto measure = makeMeasure(c.family);
    ASSERT_EQ(measure->load(5), 0);
    EXPECT_EQ(measure->cycleId, -1);
    EXPECT_EQ(measure->deviceId, -1);
    EXPECT_EQ(measure->performerId, -1);
    EXPECT_FALSE(measure->date.isValid());
    EXPECT_EQ(measure->values[0], BaseMeasure::noValue);
    EXPECT_EQ(measure->values[1], BaseMeasure::noValue);
}

TEST_P(EveryFamily, MissingFirstValueIsRefused)
{
    const FamilyCase& c = GetParam();
    const auto measure = complete(c);
    measure->values[0] = BaseMeasure::noValue;
    const Statement statement = measure->insertSql();
    EXPECT_TRUE(statement.text().contains("'2021-03-11',inf,")) << statement.text();
    EXPECT_EQ(statement.refusal(), QString("Запрос не отправлен: «inf» не число"));
    EXPECT_FALSE(session().run(statement).isTuples());
    EXPECT_EQ(database->value(fill("select count(*) from %1_meas", c.prefix)), "0");
}

TEST_P(EveryFamily, LoadKeepsIdsThatTheListsLack)
{
    const FamilyCase& c = GetParam();
    const auto measure = complete(c);
    const sql::Result key = session().run(measure->insertSql());
    const auto bare = makeMeasure(c.family);
    ASSERT_EQ(bare->load(key.toInt(0, 0)), 0);
    EXPECT_EQ(bare->elementId, 40);
    EXPECT_EQ(bare->elementName, "");
    EXPECT_EQ(bare->cycleId, 3);
    EXPECT_EQ(bare->cycleIndex, -1);
    EXPECT_EQ(bare->deviceId, 1);
    EXPECT_EQ(bare->performerId, 6);
    EXPECT_TRUE(bare->isComplete());
}

INSTANTIATE_TEST_SUITE_P(Families, EveryFamily, ::testing::ValuesIn(cases));

TEST_F(MeasureTest, MissingSecondValueIsWrittenAsNull)
{
    for (const FamilyKey family : {FamilyKey::Rp, FamilyKey::Tss, FamilyKey::Tsg}) {
        const auto measure = makeMeasure(family);
        measure->elementId = measure->cycleId = measure->deviceId = measure->performerId = 1;
        measure->values[0] = 1.5;
        EXPECT_TRUE(measure->insertSql().text().contains(",NULL,1) RETURNING")) << measure->insertSql().text();
        EXPECT_TRUE(measure->updateSql(2).text().contains(",NULL,1) WHERE")) << measure->updateSql(2).text();
    }
}

TEST_F(MeasureTest, GeologicalWellsHaveNoMeasures)
{
    EXPECT_EQ(makeMeasure(FamilyKey::Igs), nullptr);
    EXPECT_EQ(measureFamily(FamilyKey::Igs), nullptr);
    EXPECT_EQ(measureFamilies().size(), 6);
    for (const MeasureFamily& row : measureFamilies()) {
        EXPECT_EQ(row.measureTable, family(row.family).measures);
        EXPECT_EQ(row.elementTable, family(row.family).elements);
    }
}

TEST_F(MeasureTest, ListTextsAreJoinedAndCyclesGoByTheirStart)
{
    DMMeasure measure;
    ASSERT_EQ(measure.loadCycles(), 0);
    ASSERT_EQ(measure.loadDevices(), 0);
    ASSERT_EQ(measure.loadPerformers(), 0);
    EXPECT_EQ(texts(measure.lists.cycles),
              (QStringList{"1 | 01.09.20 | 30.09.20 | осень", "2 | 10.03.21 | 13.03.21 | весна",
                           "3 | 01.09.21 |  | открыт"}));
    EXPECT_EQ(ids(measure.lists.cycles), (QVector<int>{2, 3, 4}));
    EXPECT_EQ(texts(measure.lists.devices), (QStringList{"A-17 | нивелир", " B 9  | "}));
    EXPECT_EQ(texts(measure.lists.performers), (QStringList{"Иванов И. И. | ИванИИ"}));
}

TEST_F(MeasureTest, CycleRecordsMoveTheirTwoDigitYearsIntoThisCentury)
{
    DMMeasure measure;
    measure.loadCycles();
    ASSERT_EQ(measure.lists.cycleRecords.size(), 3);
    const CycleRecord& first = measure.lists.cycleRecords[0];
    EXPECT_EQ(first.id, 2);
    EXPECT_EQ(first.number, "1");
    EXPECT_EQ(first.first, QDate(2020, 9, 1));
    EXPECT_EQ(first.last, QDate(2020, 9, 30));
    EXPECT_EQ(first.description, "осень");
    EXPECT_FALSE(measure.lists.cycleRecords[2].last.isValid());
}

TEST_F(MeasureTest, YearsOfTheLastCenturyBecomeThisOnesAndALeapDayOf1900IsNoDate)
{
    database->exec("insert into cycles (cycle_id, number, date_start, date_end) values "
                   "(20, 20, '1998-05-01', '1998-05-31'), (21, 21, '2000-02-01', '2000-02-29')");
    DMMeasure measure;
    measure.loadCycles();
    EXPECT_EQ(measure.lists.cycleRecords[0].first, QDate(2098, 5, 1));
    EXPECT_FALSE(measure.lists.cycleRecords[1].last.isValid());
    // Neither holds its own dates; the database is asked and finds them.
    EXPECT_FALSE(measure.lists.cycleRecords[1].holds(QDate(2000, 2, 10)));
    EXPECT_EQ(measure.setDate(writtenMoment(QDate(2000, 2, 10))), 0);
    EXPECT_EQ(measure.cycleId, 21);
    EXPECT_EQ(measure.setDate(writtenMoment(QDate(1998, 5, 31))), 0);
    EXPECT_EQ(measure.cycleId, 20);
}

TEST_F(MeasureTest, DateFindsItsCycleOnBothOfItsEnds)
{
    DMMeasure measure;
    measure.loadCycles();
    // The loaded list answers, not the database.
    database->exec("update cycles set date_start = null, date_end = null");
    for (const int day : {10, 12, 13}) {
        measure.setCycleId(-1);
        EXPECT_EQ(measure.setDate(writtenMoment(QDate(2021, 3, day), QTime(1, 2))), 0);
        EXPECT_EQ(measure.cycleId, 3);
        EXPECT_EQ(measure.cycleIndex, 1);
        EXPECT_EQ(measure.date, writtenMoment(QDate(2021, 3, day), QTime(1, 2)));
    }
}

TEST_F(MeasureTest, DateThatOnlyTheDatabaseKnowsFindsItsCycleOnBothOfItsEnds)
{
    DMMeasure measure;
    measure.loadCycles();
    measure.lists.cycleRecords.clear();
    for (const int day : {10, 12, 13}) {
        measure.setCycleId(-1);
        EXPECT_EQ(measure.setDate(QDateTime(QDate(2021, 3, day), QTime(1, 2))), 0);
        EXPECT_EQ(measure.cycleId, 3);
    }
    EXPECT_EQ(measure.setDate(QDateTime(QDate(2021, 3, 9), QTime(1, 2))), 8);
    EXPECT_EQ(measure.setDate(QDateTime(QDate(2021, 3, 14), QTime(1, 2))), 8);
}

TEST_F(MeasureTest, AMeasureNumberedZeroIsNotFound)
{
    insertElement(cases[0], 40, "Э-1");
    DMMeasure measure;
    measure.elementId = 40;
    measure.cycleId = 3;
    database->exec("insert into dm_meas (meas_dm_id, element_id, cycle_id, meas) overriding system value "
                   "values (0, 40, 3, 1.5)");
    measure.exists = true;
    EXPECT_EQ(measure.findMeasureId(), -1);
    EXPECT_FALSE(measure.exists);
    database->exec("update dm_meas set meas_dm_id = 1");
    EXPECT_EQ(measure.findMeasureId(), 1);
    EXPECT_TRUE(measure.exists);
}

TEST_F(MeasureTest, DateBetweenCyclesHasNone)
{
    DMMeasure measure;
    measure.loadCycles();
    measure.setDate(writtenMoment(QDate(2021, 3, 11)));
    const QDateTime between = writtenMoment(QDate(2021, 5, 1), QTime(3, 0));
    EXPECT_EQ(measure.setDate(between), 8);
    EXPECT_EQ(measure.cycleId, -1);
    EXPECT_EQ(measure.cycleIndex, -1);
    EXPECT_EQ(measure.date, between);
}

TEST_F(MeasureTest, CycleThatOnlyTheDatabaseKnowsIsNotInTheList)
{
    DMMeasure measure;
    measure.loadCycles();
    database->exec(
        "insert into cycles (cycle_id, number, date_start, date_end) values (9, 9, '2022-01-01', '2022-01-31')");
    EXPECT_EQ(measure.setDate(writtenMoment(QDate(2022, 1, 5))), 8);
    measure.loadCycles();
    EXPECT_EQ(measure.setDate(writtenMoment(QDate(2022, 1, 5))), 0);
    EXPECT_EQ(measure.cycleId, 9);
}

TEST_F(MeasureTest, InvalidDateHasNoCycleAndAsksNobody)
{
    DMMeasure measure;
    measure.loadCycles();
    measure.setDate(writtenMoment(QDate(2021, 3, 11)));
    EXPECT_EQ(measure.setDate(QDateTime()), 8);
    EXPECT_EQ(measure.cycleId, -1);
    EXPECT_EQ(measure.cycleIndex, -1);
}

TEST_F(MeasureTest, DateWithoutAConnectionAndRecordsHasNoCycle)
{
    DMMeasure measure;
    database.disconnect();
    EXPECT_EQ(measure.setDate(writtenMoment(QDate(2021, 3, 11))), 8);
    EXPECT_EQ(measure.cycleId, -1);
    EXPECT_EQ(measure.date.date(), QDate(2021, 3, 11));
}

TEST_F(MeasureTest, NameIsLookedForBothWays)
{
    DMMeasure measure;
    measure.lists.elements = {{"Т-1", 1}, {"Х1", 2}, {"№7", 3}};
    EXPECT_EQ(measure.setElementName("T_1"), 0);
    EXPECT_EQ(measure.elementId, 1);
    EXPECT_EQ(measure.elementIndex, 0);
    EXPECT_EQ(measure.elementName, "T_1");
    // The Latin X as pattern takes the Cyrillic Х: as second argument.
    EXPECT_EQ(measure.setElementName("X1"), 0);
    EXPECT_EQ(measure.elementId, 2);
    // Only with the entry as pattern does "№" take any sign: the arguments swapped.
    EXPECT_EQ(measure.setElementName("Б7"), 0);
    EXPECT_EQ(measure.elementId, 3);
}

TEST_F(MeasureTest, FirstMatchInListOrderWins)
{
    DMMeasure measure;
    measure.lists.elements = {{"T 1", 1}, {"Т1", 2}, {"Т-1", 3}};
    measure.setElementName("Т-1");
    EXPECT_EQ(measure.elementId, 1);
}

TEST_F(MeasureTest, UnknownNameLeavesNoElement)
{
    DMMeasure measure;
    measure.lists.elements = {{"Т1", 1}};
    measure.setElementName("Т1");
    EXPECT_EQ(measure.setElementName("Т22"), 7);
    EXPECT_EQ(measure.elementId, -1);
    EXPECT_EQ(measure.elementIndex, -1);
    EXPECT_EQ(measure.elementName, "Т22");
}

TEST_F(MeasureTest, ElementIdIsKeptAlsoWhenTheListLacksIt)
{
    DMMeasure measure;
    measure.lists.elements = {{"Т1", 1}, {"Т2", 2}};
    EXPECT_EQ(measure.setElementId(2), 0);
    EXPECT_EQ(measure.elementIndex, 1);
    EXPECT_EQ(measure.elementName, "Т2");
    EXPECT_EQ(measure.setElementId(5), 11);
    EXPECT_EQ(measure.elementId, 5);
    EXPECT_EQ(measure.elementIndex, -1);
}

TEST_F(MeasureTest, ClearingIdsSucceedsAndLeavesTheRecordIncomplete)
{
    const auto measure = complete(cases[0]);
    EXPECT_TRUE(measure->isComplete());
    EXPECT_EQ(measure->setCycleId(-1), 0);
    EXPECT_EQ(measure->cycleIndex, -1);
    EXPECT_FALSE(measure->isComplete());
    measure->setCycleId(3);
    EXPECT_EQ(measure->setDeviceId(-1), 0);
    EXPECT_FALSE(measure->isComplete());
    measure->setDeviceId(1);
    EXPECT_EQ(measure->setPerformerId(-1), 0);
    EXPECT_FALSE(measure->isComplete());
    measure->setPerformerId(6);
    EXPECT_TRUE(measure->isComplete());
}

TEST_F(MeasureTest, UnknownIdsAreRefusedAndKeepWhatWas)
{
    const auto measure = complete(cases[0]);
    EXPECT_EQ(measure->setCycleId(77), 11);
    EXPECT_EQ(measure->setDeviceId(77), 11);
    EXPECT_EQ(measure->setPerformerId(77), 11);
    EXPECT_EQ(measure->cycleId, 3);
    EXPECT_EQ(measure->deviceId, 1);
    EXPECT_EQ(measure->performerId, 6);
}

TEST_F(MeasureTest, SerialIsComparedWithoutBlanksAround)
{
    DMMeasure measure;
    measure.loadDevices();
    EXPECT_EQ(measure.setDeviceSerial("B 9"), 0);
    EXPECT_EQ(measure.deviceId, 2);
    EXPECT_EQ(measure.deviceIndex, 1);
    EXPECT_EQ(measure.setDeviceSerial(" A-17  "), 0);
    EXPECT_EQ(measure.deviceId, 1);
    EXPECT_EQ(measure.setDeviceSerial("A-18"), 9);
    EXPECT_EQ(measure.deviceId, -1);
    EXPECT_EQ(measure.deviceSerial, "A-18");
    EXPECT_EQ(measure.setDeviceId(1), 0);
    EXPECT_EQ(measure.deviceSerial, "A-17");
}

TEST_F(MeasureTest, ProblemsAreToldInTheirOrder)
{
    DMMeasure measure;
    measure.complete = true;
    measure.setElementName("Т%1");
    measure.setDeviceSerial("S-1");
    EXPECT_EQ(measure.problemText("; "),
              "Имя Т%1 не найдено.; Устройство SN S-1 не найдено.; Не определен цикл. ; Не определен исполнитель. ");
    EXPECT_FALSE(measure.complete);
    measure.elementId = 1;
    measure.performerId = 1;
    EXPECT_EQ(measure.problemText("\n"), "Устройство SN S-1 не найдено.\nНе определен цикл. ");
    measure.deviceId = measure.cycleId = 1;
    EXPECT_EQ(measure.problemText("\n"), "OK");
    EXPECT_TRUE(measure.complete);
}

TEST_F(MeasureTest, MiddleOfACycleIsNoonOfItsUpperMiddleDay)
{
    DMMeasure measure;
    measure.loadCycles();
    EXPECT_FALSE(measure.cycleMiddle().isValid());
    measure.setCycleId(3); // days 10 to 13
    EXPECT_EQ(measure.cycleMiddle(), writtenMoment(QDate(2021, 3, 12), QTime(12, 0)));
    measure.setCycleId(2); // days 1 to 30
    EXPECT_EQ(measure.cycleMiddle(), writtenMoment(QDate(2020, 9, 16), QTime(12, 0)));
    measure.setCycleId(4); // no end
    EXPECT_FALSE(measure.cycleMiddle().isValid());
}

TEST_F(MeasureTest, WithoutAConnectionListsSaySoAndStayAsTheyWere)
{
    DMMeasure measure;
    measure.loadCycles();
    database.disconnect();
    EXPECT_EQ(measure.loadElements(false), 5);
    EXPECT_EQ(measure.loadCycles(), 5);
    EXPECT_EQ(measure.loadDevices(), 5);
    EXPECT_EQ(measure.loadPerformers(), 5);
    EXPECT_EQ(host.console.count("\nНе установлено соединение с базой данных\n"), 4);
    EXPECT_EQ(measure.lists.cycles.size(), 3);
    EXPECT_EQ(measure.findMeasureId(), -1);
    EXPECT_EQ(measure.load(1), 11);
}

TEST_F(MeasureTest, FailedListQueryIsTheSameCodeInSilence)
{
    database->exec("alter table dm_elements rename to hidden");
    DMMeasure measure;
    EXPECT_EQ(measure.loadElements(true), 5);
    database->exec("alter table hidden rename to dm_elements");
    EXPECT_EQ(host.console, "");
}

TEST_F(MeasureTest, WellLoadsItsProfileAndSaysWhetherAllOfItWasRead)
{
    insertElement(cases[1], 40, "ТС1");
    database->exec("insert into ts_meas (meas_ts_id, element_id, t_vozd, meas) values "
                   "(1, 40, -5, '2.00:1.00|1.00:3.50'), (2, 40, null, '1.00:2.00|x'), (3, 40, 1, '')");
    TSMeasure well;
    EXPECT_EQ(well.tVozd(), BaseMeasure::noValue);
    EXPECT_EQ(well.mean, BaseMeasure::noValue);
    EXPECT_EQ(well.validity, 0u);
    ASSERT_EQ(well.load(1), 0);
    EXPECT_EQ(well.tVozd(), -5.0);
    EXPECT_EQ(well.profile, (TemperatureProfile{{2, 1}, {1, 3.5}}));
    EXPECT_TRUE(well.profileRead);
    ASSERT_EQ(well.load(2), 0);
    EXPECT_EQ(well.tVozd(), BaseMeasure::noValue);
    EXPECT_EQ(well.profile, (TemperatureProfile{{1, 2}}));
    EXPECT_FALSE(well.profileRead);
    ASSERT_EQ(well.load(3), 0);
    EXPECT_TRUE(well.profile.isEmpty());
    EXPECT_TRUE(well.profileRead);
    EXPECT_EQ(well.load(-1), 11);
}

// Moscow's clock skips the first midnight and the second half past two.
TEST_F(MeasureTest, DatesAreKeptLoadedAndUpdatedAsWrittenInEveryZone)
{
    database->exec("insert into cycles (cycle_id, number, date_start, date_end) overriding system value "
                   "values (81, 81, '1981-04-01', '1981-04-30'), (91, 91, '2010-03-01', '2010-03-31')");
    auto measure = complete(cases[0]);
    measure->loadCycles();
    EXPECT_EQ(measure->setDate(QDateTime(QDate(2010, 3, 28), QTime(2, 30))), 0);
    EXPECT_TRUE(measure->date.isValid());
    EXPECT_EQ(measure->date, writtenMoment(QDate(2010, 3, 28), QTime(2, 30)));
    const int id = session().run(measure->insertSql()).toInt(0, 0);
    for (const char* day : {"2010-03-28", "1981-04-01", "2019-03-31"}) {
        database->exec(fill("update %1_meas set date = '%2'", cases[0].prefix, day));
        auto back = makeMeasure(cases[0].family, measure->lists);
        ASSERT_EQ(back->load(id), 0);
        ASSERT_TRUE(back->date.isValid()) << day;
        EXPECT_EQ(back->date, writtenMoment(QDate::fromString(day, Qt::ISODate)));
        ASSERT_TRUE(session().run(back->updateSql(id)).isCommand());
        EXPECT_EQ(database->value(fill("select date from %1_meas", cases[0].prefix)), QString(day));
    }
}
