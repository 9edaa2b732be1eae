// The checks that measures pass before they are imported.
#include "exchange/import_fixture.h"
#include "support/statement_relay.h"

#include <cmath>

namespace {

class SettlementCheck : public ImportProject {
protected:
    // The code of a mark of element 1 in a cycle.
    int check(double meas, int cycle = 2, int element = 1, int position = 7)
    {
        DMMeasure mark;
        mark.elementId = element;
        mark.cycleId = cycle;
        mark.meas() = meas;
        StoredCriteria criteria;
        settlementCheck().run(mark, position, criteria);
        text = settlementCheck().text(mark);
        verdict = settlementCheck().verdict(mark);
        EXPECT_EQ(settlementCheck().code(mark), mark.validity);
        return mark.validity;
    }
    void store(const QString& meas, int cycle)
    {
        database()->exec(
            QString("insert into dm_meas (element_id, cycle_id, meas) values (1, %1, %2)").arg(cycle).arg(meas));
    }

    QString text;
    Verdict verdict = Verdict::Error;
};

class ProfileCheck : public ImportProject {
protected:
    TSMeasure check(const TemperatureProfile& profile, int cycle = 2, int element = 1, int position = 7)
    {
        TSMeasure well;
        well.elementId = element;
        well.cycleId = cycle;
        well.profile = profile;
        StoredCriteria criteria;
        profileCheck().run(well, position, criteria);
        EXPECT_EQ(profileCheck().code(well), int(well.validity));
        return well;
    }
    void store(const QString& meas, int cycle)
    {
        database()->exec(
            QString("insert into ts_meas (element_id, cycle_id, meas) values (1, %1, %2)").arg(cycle).arg(meas));
    }
    static QString textOf(quint32 bits)
    {
        TSMeasure well;
        well.validity = bits;
        return profileCheck().text(well);
    }
    static Verdict verdictOf(quint32 bits)
    {
        TSMeasure well;
        well.validity = bits;
        return profileCheck().verdict(well);
    }

    const TemperatureProfile smooth = {{1.0, -1.0}, {2.0, -1.1}, {3.0, -1.2}, {4.0, -1.3}};
};

} // namespace

// --- deformation marks ---------------------------------------------------------

TEST_F(SettlementCheck, AMarkWithoutAnElementOrAPositionIsAnError)
{
    setNorms("10");
    EXPECT_EQ(check(1.0, 2, -1), settlementError);
    EXPECT_EQ(check(1.0, 2, 1, -1), settlementError);
    EXPECT_EQ(text, "Неизвестная ошибка");
    EXPECT_EQ(verdict, Verdict::Error);
}

TEST_F(SettlementCheck, WithoutANormThereIsNoCriterion)
{
    EXPECT_EQ(check(1.0), settlementNoNorm);
    setNorms("null");
    EXPECT_EQ(check(1.0), settlementNoNorm);
    EXPECT_EQ(text, "Не задан критерий");
    EXPECT_EQ(verdict, Verdict::Error);
}

TEST_F(SettlementCheck, WithoutAMarkBeforeThereIsNothingToCompareWith)
{
    setNorms("10");
    store("1.0", 2);
    store("1.0", 3);
    store("null", 1);
    EXPECT_EQ(check(1.0, 2), settlementNoPrevious);
    EXPECT_EQ(check(1.0, -1), settlementNoPrevious);
    EXPECT_EQ(text, "Нет данных сревнения");
    EXPECT_EQ(verdict, Verdict::Error);
}

// The norm is in centimetres, a mark in metres.
TEST_F(SettlementCheck, TheDifferenceIsHeldAgainstTheNorm)
{
    setNorms("10");
    store("100.0", 1);
    EXPECT_EQ(check(100.09), settlementValid);
    EXPECT_EQ(text, "Корректно");
    EXPECT_EQ(verdict, Verdict::Valid);
    EXPECT_EQ(check(99.91), settlementValid);
    EXPECT_EQ(check(100.11), settlementExceeded);
    EXPECT_EQ(check(99.89), settlementExceeded);
    EXPECT_EQ(text, "Превышение значения");
    EXPECT_EQ(verdict, Verdict::Warning);
}

TEST_F(SettlementCheck, TheLatestCycleBeforeIsTaken)
{
    setNorms("10");
    store("100.0", 1);
    store("200.0", 2);
    EXPECT_EQ(check(200.0, 3), settlementValid);
    EXPECT_EQ(check(100.0, 2), settlementValid);
}

TEST_F(SettlementCheck, AMissingValueIsAnError)
{
    setNorms("10");
    store("100.0", 1);
    EXPECT_EQ(check(BaseMeasure::noValue), settlementError);
}

TEST_F(SettlementCheck, AnUncheckedMarkIsUnknown)
{
    EXPECT_EQ(settlementCheck().text(DMMeasure()), "Неизвестно");
    EXPECT_EQ(settlementCheck().verdict(DMMeasure()), Verdict::Error);
}

TEST_F(SettlementCheck, AFailedStatementCountsAsNoMarkBefore)
{
    setNorms("10");
    store("100.0", 1);
    database()->exec("alter table dm_meas rename to dm_meas_away");
    EXPECT_EQ(check(100.0), settlementNoPrevious);
    database()->exec("alter table dm_meas_away rename to dm_meas");
    EXPECT_EQ(check(100.0), settlementValid);
}

// --- thermal wells ------------------------------------------------------------------

TEST_F(ProfileCheck, TheTextNamesTheBitsInTheirOrder)
{
    EXPECT_EQ(textOf(0), "Неизвестно");
    EXPECT_EQ(textOf(1), "Данные валидны");
    EXPECT_EQ(textOf(64), "Неизвестная ошибка");
    EXPECT_EQ(textOf(64 | 1), "Неизвестная ошибка");
    EXPECT_EQ(textOf(127 - 64),
              "Не задан критерий\nНе заданы данные сравнения\nВыбросы данных\nВысокая скорость "
              "изменения\nПревышение изменения ср.взвеш.\nДанные валидны");
    EXPECT_EQ(textOf(64 | 16 | 2), "Неизвестная ошибка\nНе задан критерий\nВыбросы данных");
}

TEST_F(ProfileCheck, OnlyTheBitOfValidityAloneIsValid)
{
    EXPECT_EQ(verdictOf(1), Verdict::Valid);
    EXPECT_EQ(verdictOf(1 | 2), Verdict::Warning);
    for (const quint32 bits : {2u, 4u, 8u, 14u})
        EXPECT_EQ(verdictOf(bits), Verdict::Warning) << bits;
    for (const quint32 bits : {0u, 16u, 32u, 64u, 34u})
        EXPECT_EQ(verdictOf(bits), Verdict::Error) << bits;
}

TEST_F(ProfileCheck, AWellWithoutAnElementOrAPositionIsAnErrorAndKeepsItsProfile)
{
    setNorms("null", "1", "4");
    for (const TSMeasure& well : {check(smooth, 2, -1), check(smooth, 2, 1, -1)}) {
        EXPECT_EQ(well.validity, quint32(profileError));
        EXPECT_EQ(well.profile, smooth);
        EXPECT_FALSE(well.validated);
    }
}

TEST_F(ProfileCheck, WithoutDepthsThereIsNoCriterionAndNoTest)
{
    const TemperatureProfile wild = {{1.0, 5.0}, {2.0, -50.0}, {3.0, 5.0}};
    EXPECT_EQ(check(wild).validity, quint32(profileNoNorm));
    setNorms("null", "null", "4");
    EXPECT_EQ(check(wild).validity, quint32(profileNoNorm));
    EXPECT_TRUE(check(wild).validated);
    EXPECT_TRUE(std::isinf(check(wild).depthTo));
}

TEST_F(ProfileCheck, EitherDepthMissingAloneIsNoCriterion)
{
    setNorms("null", "1", "null");
    EXPECT_EQ(check(smooth).validity, quint32(profileNoNorm));
    database()->exec("update positions_attributes set temperature_deep_min = null, temperature_deep_max = 4");
    EXPECT_EQ(check(smooth).validity, quint32(profileNoNorm));
    database()->exec("update positions_attributes set temperature_deep_min = 1");
    EXPECT_EQ(check(smooth).validity, quint32(profileNoPrevious)) << "both are there";
}

TEST_F(ProfileCheck, TheFirstMeasureOfASmoothWellLacksOnlyItsComparison)
{
    setNorms("null", "1", "4");
    const TSMeasure well = check(smooth);
    EXPECT_EQ(well.validity, quint32(profileNoPrevious));
    EXPECT_NEAR(well.mean, -1.15, 1e-12);
    EXPECT_TRUE(std::isinf(well.previousMean));
    EXPECT_EQ(well.depthFrom, 1.0);
    EXPECT_EQ(well.depthTo, 4.0);
}

TEST_F(ProfileCheck, ATextBeforeThatIsEmptyOrBrokenIsNoComparison)
{
    setNorms("null", "1", "4");
    store("''", 1);
    EXPECT_EQ(check(smooth).validity, quint32(profileNoPrevious));
    database()->exec("update ts_meas set meas = '1.00:-1.00|junk'");
    const TSMeasure well = check(smooth);
    EXPECT_EQ(well.validity, quint32(profileNoPrevious));
    EXPECT_NEAR(well.mean, -1.15, 1e-12);
    EXPECT_TRUE(std::isinf(well.previousMean));
}

TEST_F(ProfileCheck, AMeanThatCannotBeComputedIsNoComparison)
{
    setNorms("null", "1", "4");
    store("'9.00:-1.00|10.00:-1.00'", 1);
    EXPECT_EQ(check(smooth).validity, quint32(profileNoPrevious));
    database()->exec("update ts_meas set meas = '1.00:-1.00|4.00:-1.30'");
    EXPECT_EQ(check({}).validity, quint32(profileNoPrevious));
}

TEST_F(ProfileCheck, TheMeanMayChangeByOneDegree)
{
    setNorms("null", "1", "4");
    store("'1.00:-2.14|4.00:-2.14'", 1);
    TSMeasure well = check(smooth);
    EXPECT_EQ(well.validity, quint32(profileValid));
    EXPECT_TRUE(well.validated);
    EXPECT_NEAR(well.previousMean, -2.14, 1e-12);
    database()->exec("update ts_meas set meas = '1.00:-2.16|4.00:-2.16'");
    well = check(smooth);
    EXPECT_EQ(well.validity, quint32(profileMeanChanged));
}

TEST_F(ProfileCheck, AFailedStatementLeavesTheComparisonOut)
{
    setNorms("null", "1", "4");
    database()->exec("alter table ts_meas rename to ts_meas_away");
    const TSMeasure well = check(smooth);
    database()->exec("alter table ts_meas_away rename to ts_meas");
    EXPECT_EQ(well.validity, quint32(profileValid));
    EXPECT_TRUE(std::isinf(well.mean));
}

TEST_F(ProfileCheck, AReadingOffTheLineOfItsNeighboursIsAnOutlier)
{
    setNorms("null", "10", "40");
    // Steps of ten metres, so that no gradient is too great.
    const TSMeasure well = check({{10, -1.0}, {20, -0.75}, {30, -1.0}, {40, -1.15}});
    EXPECT_EQ(well.validity, quint32(profileNoPrevious | profileOutliers));
    EXPECT_EQ(well.outliers, TemperatureLog({{20, -0.75}}));
    EXPECT_TRUE(well.gradients.empty());
}

TEST_F(ProfileCheck, AnOutlierIsSoughtBetweenUnevenDepths)
{
    setNorms("null", "0", "100");
    const TSMeasure well = check({{0, 0.0}, {10, 0.0}, {40, 4.0}});
    EXPECT_EQ(well.outliers, TemperatureLog({{10, 0.0}})) << "a quarter of the way up is 1.0";
}

TEST_F(ProfileCheck, ASteepStepIsAGradientAtItsLowerEnd)
{
    setNorms("null", "1", "4");
    const TSMeasure well = check({{1, -1.0}, {2, -1.19}, {3, -1.41}, {4, -1.6}});
    EXPECT_EQ(well.validity, quint32(profileNoPrevious | profileGradient));
    EXPECT_EQ(well.gradients, TemperatureLog({{3, -1.41}}));
}

TEST_F(ProfileCheck, EachCriterionTestsOnlyTheStepsFullyInside)
{
    setNorms("null", "2", "3");
    const TemperatureProfile wild = {{1, 9.0}, {2, -1.0}, {3, -1.1}, {4, 9.0}};
    EXPECT_EQ(check(wild).validity, quint32(profileNoPrevious));
    database()->exec("update positions_attributes set temperature_deep_min = -100, temperature_deep_max = 100");
    const TSMeasure well = check(wild);
    EXPECT_EQ(well.validity, quint32(profileNoPrevious | profileOutliers | profileGradient));
    EXPECT_EQ(well.outliers.size(), 2u);
    EXPECT_EQ(well.gradients, TemperatureLog({{2, -1.0}, {4, 9.0}}));
}

TEST_F(ProfileCheck, StepsThatEndAtTheBoundsAreInside)
{
    setNorms("null", "1", "3");
    const TSMeasure well = check({{1, -1.0}, {2, -2.0}, {3, -1.0}, {4, -1.0}});
    EXPECT_EQ(well.outliers, TemperatureLog({{2, -2.0}}));
    EXPECT_EQ(well.gradients, TemperatureLog({{2, -2.0}, {3, -1.0}}));
    database()->exec("update positions_attributes set temperature_deep_min = 1.01, temperature_deep_max = 2.99");
    EXPECT_EQ(check({{1, -1.0}, {2, -2.0}, {3, -1.0}}).validity, quint32(profileNoPrevious));
}

TEST_F(ProfileCheck, TwoDepthsHaveNoOutlier)
{
    setNorms("null", "1", "4");
    EXPECT_TRUE(check({{1, 0.0}, {4, 0.5}}).outliers.empty());
    EXPECT_TRUE(check({{1, 0.0}}).outliers.empty());
    EXPECT_EQ(check({{1, 0.0}, {4, 0.5}}).validity, quint32(profileNoPrevious));
}

TEST_F(ProfileCheck, OfEqualDepthsTheLastCounts)
{
    setNorms("null", "1", "4");
    EXPECT_TRUE(check({{1, -1.0}, {2, 50.0}, {2, -1.1}, {3, -1.2}}).outliers.empty());
}

TEST_F(ProfileCheck, ASecondCheckForgetsTheFirst)
{
    setNorms("null", "1", "4");
    TSMeasure well = check({{1, 0.0}, {2, 9.0}, {3, 0.0}});
    ASSERT_FALSE(well.outliers.empty());
    well.profile = smooth;
    StoredCriteria criteria;
    profileCheck().run(well, 7, criteria);
    EXPECT_EQ(well.validity, quint32(profileNoPrevious));
    EXPECT_TRUE(well.outliers.empty() && well.gradients.empty());
}

TEST_F(ProfileCheck, AnswersAreKeptUntilForgotten)
{
    StoredCriteria criteria;
    EXPECT_FALSE(criteria.norms(7).found);
    setNorms("5", "1", "4");
    EXPECT_FALSE(criteria.norms(7).found);
    criteria.forget();
    EXPECT_TRUE(criteria.norms(7).found);
    EXPECT_EQ(criteria.norms(7).settlement, 5.0);

    const char* const statement = "select meas from ts_meas where element_id = %1 and cycle_id = %2";
    EXPECT_EQ(criteria.previous(statement, 1, 1).state, PreviousMeasure::None);
    store("'1.00:-1.00'", 1);
    EXPECT_EQ(criteria.previous(statement, 1, 1).state, PreviousMeasure::None);
    EXPECT_EQ(criteria.previous(statement, 2, 1).state, PreviousMeasure::None) << "another well";
    criteria.forget();
    EXPECT_EQ(criteria.previous(statement, 1, 1).state, PreviousMeasure::Found);
    EXPECT_EQ(criteria.previous(statement, 1, 1).text, "1.00:-1.00");
    EXPECT_EQ(criteria.previous("select nothing", 9, 9).state, PreviousMeasure::Failed);
}

// What is asked for many at once is what would be asked one by one.
TEST_F(SettlementCheck, ReadsAheadWhatItWouldAskForOneByOne)
{
    store("100.25", 1);
    database()->exec("insert into dm_meas (element_id, cycle_id, meas) values (2, 1, null), (3, 1, 7), (3, 2, 8)");
    QVector<MeasureKey> keys;
    for (int element = 1; element <= 4; ++element) {
        for (int cycle : {-1, 1, 2, 3})
            keys.append({element, cycle});
    }
    for (const MeasureCheck* check : {&settlementCheck(), &profileCheck()}) {
        StoredCriteria ahead;
        ahead.readAhead(check->previous, keys);
        StoredCriteria single;
        std::vector<PreviousMeasure> expected;
        for (const MeasureKey& key : keys)
            expected.push_back(single.previous(check->previous, key.first, key.second));
        const StatementRelay relay;
        session().sqlPort = relay.port();
        ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
        const int before = relay.statements();
        for (int i = 0; i < keys.size(); ++i) {
            const PreviousMeasure got = ahead.previous(check->previous, keys[i].first, keys[i].second);
            EXPECT_EQ(got.state, expected[size_t(i)].state) << keys[i].first << " " << keys[i].second;
            EXPECT_EQ(got.text, expected[size_t(i)].text);
        }
        EXPECT_EQ(relay.statements(), before) << "nothing is asked again";
        session().connection.finish();
        session().sqlPort = TestServer::port();
        session().connection.open(session().buildConnInfo());
    }
}

TEST_F(SettlementCheck, AChangeOfAllRowsAsksOnceForAllOfThem)
{
    setNorms("10");
    MeasureTable marks(*importFamily(FamilyKey::Dm));
    read(marks, FamilyKey::Dm,
         {markHeader, "Т-1;05.02.2021;100;SN-1", "Т-2;05.02.2021;100;SN-1", "Т-1;05.03.2021;100;SN-1"});
    const StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    const int before = relay.statements();
    marks.givePerformer(1);
    EXPECT_EQ(relay.statements() - before, 2) << "the position's norms, and the marks before";
}
