// The lists that forms read from the session.
#include "session_fixture.h"

namespace {

class ReferenceLists : public SessionTest {
protected:
    void SetUp() override
    {
        SessionTest::SetUp();
        ASSERT_TRUE(session_.connect());
        database_.exec("insert into cycles (cycle_id, number, date_start, date_end, description) values "
                       "(5, 1, '2020-03-01', '2020-03-09', 'весна'), (2, 3, '2022-03-01', null, null), "
                       "(9, 2, '2021-12-31', '2022-01-02', 'зима')");
    }
};

TEST_F(ReferenceLists, LevelMapsFollowTheBuiltIns)
{
    database_.exec("insert into levelmaps (levelmap_id, levelmap_name) values (4, 'Своя')");
    session_.reloadLevelMaps();
    EXPECT_EQ(session_.levelMaps.size(), 4);
    EXPECT_EQ(session_.levelMaps.value(4), QString("Своя"));
    EXPECT_EQ(session_.levelMaps.value(-3), QString("Карта температур"));
    session_.connected = false;
    session_.reloadLevelMaps();
    EXPECT_EQ(session_.levelMaps.keys(), (QList<int>{-3, -2, -1})) << "no question without a connection";
}

TEST_F(ReferenceLists, CyclesStandByTheirStart)
{
    ASSERT_TRUE(session_.reloadCycles());
    EXPECT_EQ(session_.cycleOrder, (QVector<int>{5, 9, 2}));
    EXPECT_EQ(session_.cycles.value(5), (QStringList{"1", "01.03.20", "09.03.20", "весна"}));
    EXPECT_EQ(session_.cycles.value(2), (QStringList{"3", "01.03.22", "", ""}));
    EXPECT_EQ(session_.cycles.keys(), (QList<int>{2, 5, 9}));
}

TEST_F(ReferenceLists, AnEmptyCycleListIsAGoodAnswer)
{
    session_.reloadCycles();
    database_.exec("delete from cycles");
    EXPECT_TRUE(session_.reloadCycles());
    EXPECT_TRUE(session_.cycles.isEmpty());
    EXPECT_TRUE(session_.cycleOrder.isEmpty());
}

TEST_F(ReferenceLists, AFailedCycleQueryKeepsTheLists)
{
    session_.reloadCycles();
    database_.exec("alter table cycles rename to cycles_away");
    EXPECT_FALSE(session_.reloadCycles());
    EXPECT_EQ(session_.cycleOrder, (QVector<int>{5, 9, 2}));
    EXPECT_EQ(console_.text(), QString());
}

TEST_F(ReferenceLists, CyclesNeedAConnectionAndSaySo)
{
    session_.sqlPass = "wrong";
    endConnections(database_);
    EXPECT_FALSE(session_.reloadCycles());
    EXPECT_EQ(console_.text(), QString("Ошибка соединения с базой данных"));
}

TEST_F(ReferenceLists, PredictionsNameTheirCyclesAndCountTheirElements)
{
    makeHierarchy();
    database_.exec("insert into dm_elements (element_id, type_id, element_name, position_id, x, y) "
                   "values (1, 'dm', 'ДМ.1', 1, 0, 0);"
                   "insert into dm_predictions (prediction_id, name, prediction_date, begin_cycle_id, end_cycle_id) "
                   "values (8, 'Поздний', '2030-01-01', 5, 9), (3, 'Ранний', '2025-06-01', 2, null);"
                   "insert into dm_predictions_data (element_id, prediction_id, meas) values (1, 8, 1), (1, 8, 2)");
    session_.reloadCycles();
    session_.reloadPredictions();
    EXPECT_EQ(session_.predictionOrder, (QVector<int>{3, 8}));
    EXPECT_EQ(session_.predictions.value(8), (QStringList{"2030-01-01", "Поздний", "Цикл 1", "Цикл 2", "2"}));
    EXPECT_EQ(session_.predictions.value(3), (QStringList{"2025-06-01", "Ранний", "Цикл 3", "Цикл ", "0"}));

    database_.exec("delete from dm_predictions where prediction_id = 8");
    session_.reloadPredictions();
    EXPECT_EQ(session_.predictions.keys(), QList<int>{3});
    EXPECT_EQ(session_.predictionOrder, QVector<int>{3});
}

TEST_F(ReferenceLists, AFailedPredictionQueryIsTold)
{
    database_.exec("insert into dm_predictions (prediction_id, name) values (8, 'П')");
    session_.reloadPredictions();
    database_.exec("drop table dm_predictions_data");
    session_.reloadPredictions();
    EXPECT_TRUE(console_.text().startsWith("Ошибка запроса списка прогнозов 'ERROR:")) << console_.text();
    EXPECT_TRUE(console_.text().contains("dm_predictions_data"));
    EXPECT_TRUE(console_.text().endsWith("'"));
    EXPECT_EQ(session_.predictionOrder, QVector<int>{8});
}

TEST_F(ReferenceLists, StatesHaveNotesAndColours)
{
    database_.exec("insert into states (state_id, note, colorindex) values ('lost', 'Утрачен', 1), ('a', null, null)");
    ASSERT_TRUE(session_.reloadStates());
    EXPECT_EQ(session_.states.value("lost"), QString("Утрачен"));
    EXPECT_EQ(session_.stateColors.value("lost"), 1);
    EXPECT_EQ(session_.states.value("a"), QString());
    EXPECT_EQ(session_.stateColors.value("a", -5), 0);
    EXPECT_EQ(session_.states.keys(), (QStringList{"a", "exist", "lost"}));
    database_.exec("delete from states where state_id <> 'exist'");
    ASSERT_TRUE(session_.reloadStates());
    EXPECT_EQ(session_.states.keys(), QStringList{"exist"});
    database_.exec("alter table states rename to states_away");
    EXPECT_FALSE(session_.reloadStates());
    EXPECT_EQ(session_.states.keys(), QStringList{"exist"});
}

TEST_F(ReferenceLists, CycleRangeTakesBothEndsWhicheverComesFirst)
{
    session_.reloadCycles(); // 5, 9, 2
    EXPECT_EQ(session_.cycleRange(-1, -1), QVector<int>());
    EXPECT_EQ(session_.cycleRange(-1, 9), QVector<int>{9});
    EXPECT_EQ(session_.cycleRange(77, -1), QVector<int>{77}) << "the other need not be known";
    EXPECT_EQ(session_.cycleRange(5, 2), (QVector<int>{5, 9, 2}));
    EXPECT_EQ(session_.cycleRange(2, 9), (QVector<int>{9, 2}));
    EXPECT_EQ(session_.cycleRange(9, 9), QVector<int>{9});
    EXPECT_EQ(session_.cycleRange(77, 9), QVector<int>{9});
    EXPECT_EQ(session_.cycleRange(5, 77), QVector<int>{5});
    EXPECT_EQ(session_.cycleRange(77, 78), QVector<int>());
}

TEST_F(ReferenceLists, EntriesJoinTheirTexts)
{
    session_.reloadCycles();
    const QVector<ComboEntry> cycles = session_.cycleEntries(" - ");
    ASSERT_EQ(cycles.size(), 3);
    EXPECT_EQ(cycles[0].text, QString("1 - 01.03.20 - 09.03.20 - весна"));
    EXPECT_EQ(cycles[0].data.toInt(), 5);
    EXPECT_EQ(cycles[2].data.toInt(), 2);

    database_.exec("insert into dm_predictions (prediction_id, name, prediction_date) values (8, 'П', '2030-01-01')");
    session_.reloadPredictions();
    ASSERT_EQ(session_.predictionEntries("; ").size(), 1);
    EXPECT_EQ(session_.predictionEntries("; ")[0].text, QString("2030-01-01; П"));
    EXPECT_EQ(session_.predictionEntries("; ")[0].data.toInt(), 8);

    EXPECT_TRUE(session_.stateEntries().isEmpty());
    session_.reloadStates();
    ASSERT_EQ(session_.stateEntries().size(), 1);
    EXPECT_EQ(session_.stateEntries()[0].text, QString("Существующий"));
    EXPECT_EQ(session_.stateEntries()[0].data.toString(), QString("exist"));
}

TEST_F(ReferenceLists, PositionsOfEachScope)
{
    makeHierarchy();
    database_.exec("insert into objects (object_id, project_id, object, appearence) values (30, 7, 'О2', 2);"
                   "insert into subobjects (subobject_id, object_id, subobject, appearence) values "
                   "(40, 3, 'П2', 2), (41, 30, 'П3', 3);"
                   "insert into positions (position_id, subobject_id, position, appearence) values "
                   "(10, 40, 'В', 3), (11, 41, 'Г', 4);");
    const auto sorted = [this](int scope, int id) {
        QVector<int> positions = session_.positionsOf(scope, id);
        std::sort(positions.begin(), positions.end());
        return positions;
    };
    EXPECT_EQ(sorted(3, 123), QVector<int>{123});
    EXPECT_EQ(sorted(2, 4), (QVector<int>{1, 2}));
    EXPECT_EQ(sorted(1, 3), (QVector<int>{1, 2, 10}));
    EXPECT_EQ(sorted(0, 7), (QVector<int>{1, 2, 10, 11}));
    EXPECT_EQ(sorted(0, 8), QVector<int>());
    EXPECT_EQ(sorted(4, 7), QVector<int>());
    EXPECT_EQ(sorted(-1, 7), QVector<int>());
}

} // namespace
