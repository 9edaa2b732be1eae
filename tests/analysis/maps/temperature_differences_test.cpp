// How a well's temperature has changed between two cycles.
#include "analysis/maps/map_fixture.h"
#include "analysis/maps/temperature_differences.h"
#include "support/statement_relay.h"

namespace {

class Differences : public MapFixture {
protected:
    static Sampling at(double depth)
    {
        Sampling sampling;
        sampling.key = depth;
        return sampling;
    }
    // A well with a log of each cycle; nullptr: none.
    void addPair(int id, const char* name, const char* base, const char* current)
    {
        addWell(id, name, 10.0 * id, 0, 100, 0.5, current);
        if (base)
            addLog(id, 1, base);
    }
    const DifferenceRow& sampled(const Sampling& sampling)
    {
        wells.sample(sampling);
        return wells.rows.at(0);
    }
    TemperatureDifferences wells;
};

} // namespace

TEST_F(Differences, AreCurrentLessBase)
{
    addPair(1, "ТС.1", "1.00:-2.00|3.00:-3.00", "1.00:-1.50|2.00:-2.00|3.00:-3.50");
    ASSERT_EQ(wells.load(position(), cycles()), Loaded::All);
    const DifferenceRow& row = sampled(at(1.0));
    EXPECT_TRUE(row.valid);
    EXPECT_EQ(row.base, -2.0);
    EXPECT_EQ(row.difference, 0.5) << "it has become warmer";
    EXPECT_DOUBLE_EQ(sampled(at(2.0)).base, -2.5) << "between two readings";
    EXPECT_DOUBLE_EQ(sampled(at(2.0)).difference, 0.5);
    EXPECT_EQ(sampled(at(3.0)).difference, -0.5) << "the deepest readings";
}

TEST_F(Differences, NeedANumberOnBothSides)
{
    addPair(1, "ТС.1", nullptr, "1.00:-1.00");
    addPair(2, "ТС.2", "1.00:-1.00", nullptr);
    addPair(3, "ТС.3", nullptr, nullptr);
    addPair(4, "ТС.4", "1.00:inf", "1.00:-1.00");
    addPair(5, "ТС.5", "1.00:-1.00", "2.00:-1.00");
    ASSERT_EQ(wells.load(position(), cycles()), Loaded::All);
    ASSERT_EQ(wells.rows.size(), 5u) << "a well without a log is listed";
    wells.sample(at(1.0));
    for (const DifferenceRow& row : wells.rows)
        EXPECT_FALSE(row.valid) << row.name.toStdString();
}

TEST_F(Differences, AreTakenByElevationMeanAndBottomToo)
{
    addPair(1, "ТС.1", "1.00:-2.00|3.00:-3.00", "1.00:-1.00|2.00:-1.00");
    wells.load(position(), cycles());
    Sampling sampling = at(98.5);
    sampling.mode = Sampling::Elevation;
    EXPECT_EQ(sampled(sampling).difference, 1.0) << "98.5 is a metre below the ground mark";
    sampling = Sampling();
    sampling.mode = Sampling::Average;
    sampling.from = 1.0;
    sampling.to = 2.0;
    EXPECT_DOUBLE_EQ(sampled(sampling).difference, 1.25);
    sampling = at(1.0);
    sampling.bottom = true;
    EXPECT_EQ(sampled(sampling).base, -3.0);
    EXPECT_EQ(sampled(sampling).difference, 2.0) << "each log has a bottom of its own";
}

TEST_F(Differences, JoinTheKeysOfBothCycles)
{
    addPair(1, "ТС.1", "1.00:-2.00|3.00:-3.00", "2.00:-1.00");
    addPair(2, "ТС.2", nullptr, "0.50:-1.00");
    wells.load(position(), cycles());
    EXPECT_EQ(wells.keys(Sampling::Depth), (std::vector<double>{0.5, 1.0, 2.0, 3.0}));
    EXPECT_EQ(wells.keys(Sampling::Elevation), (std::vector<double>{99.0, 98.5, 97.5, 96.5}));
}

TEST_F(Differences, CellsSayWhatLiesBetweenAndWhatIsMissing)
{
    addPair(1, "ТС.1", "1.00:-2.00|3.00:-3.00", "1.50:-1.00|2.00:-1.50|4.00:0.00");
    wells.load(position(), cycles());
    EXPECT_EQ(wells.cell(0, Sampling::Depth, 1.0), QStringLiteral("-2.00/--"));
    EXPECT_EQ(wells.cell(0, Sampling::Depth, 1.5), QStringLiteral("~-2.25/-1.00"));
    EXPECT_EQ(wells.cell(0, Sampling::Depth, 3.0), QStringLiteral("-3.00/~-0.75"));
    EXPECT_EQ(wells.cell(0, Sampling::Depth, 2.5), QStringLiteral("~-2.75/~-1.13"));
    EXPECT_EQ(wells.cell(0, Sampling::Depth, 4.0), QStringLiteral("--/0.00"));
    EXPECT_EQ(wells.cell(0, Sampling::Depth, 9.0), QStringLiteral("--/--"));
    EXPECT_EQ(wells.cell(0, Sampling::Elevation, 97.5), QStringLiteral("~-2.50/-1.50"));
}

TEST_F(Differences, AreOfThePositionOrInsideTheBorderWithTheChosenStates)
{
    addPair(1, "ТС.1", "1.00:-2.00", "1.00:-1.00");
    addWell(2, "ТС.2", 60, 40, 0, 0, "1.00:-1.00", "lost");
    addWell(3, "ТС.3", 60, 40, 0, 0, "1.00:-1.00", "exist", 2);
    addWell(4, "ТС.4", 75, 25, 0, 0, "1.00:-1.00", "exist", 2);
    wells.load(position(), cycles());
    EXPECT_EQ(wells.rows.size(), 2u);
    MapPlace place = position();
    place.states = QStringList{QStringLiteral("lost")};
    wells.load(place, cycles());
    ASSERT_EQ(wells.rows.size(), 1u);
    EXPECT_EQ(wells.rows[0].name, QStringLiteral("ТС.2"));
    place = position();
    place.byPosition = false;
    EXPECT_EQ(wells.load(place, cycles()), Loaded::All);
    EXPECT_TRUE(wells.rows.empty()) << "without a border there is nothing inside";
    place.border = {{20, 20, 0}, {80, 80, 0}, {20, 80, 0}};
    wells.load(place, cycles());
    EXPECT_TRUE(wells.rows.empty()) << "inside the box but outside the polygon";
    place.border = {{20, 20, 0}, {80, 20, 0}, {80, 80, 0}, {20, 80, 0}};
    wells.load(place, cycles());
    EXPECT_EQ(wells.rows.size(), 3u);
}

TEST_F(Differences, OfTwoLogsInOneCycleTheFirstCountsAndTheWellIsNamed)
{
    addPair(1, "ТС.1", "1.00:-2.00", "1.00:-1.00");
    addPair(2, "ТС.2", "1.00:-2.00", "1.00:-1.00");
    addLog(2, 1, "1.00:-7.00");
    database.exec("update ts_meas set meas = meas where element_id = 2 and meas = '1.00:-2.00'");
    ASSERT_EQ(wells.load(position(), cycles()), Loaded::All);
    ASSERT_EQ(wells.rows.size(), 2u);
    EXPECT_EQ(wells.repeated(), QStringList{QStringLiteral("ТС.2")});
    wells.sample(at(1.0));
    EXPECT_EQ(wells.rows[1].base, -2.0) << "the one that was written first, wherever its row lies";
    EXPECT_EQ(repeatedNote(wells.repeated(), QStringLiteral("взят первый замер")),
              QStringLiteral("Измерены в одном цикле несколько раз (взят первый замер): ТС.2."));
    EXPECT_EQ(repeatedNote({}, QStringLiteral("взят первый замер")), QString());
}

TEST_F(Differences, AreReadTogether)
{
    addPair(7, "ТС.7", "1.00:-2.00", "1.00:-1.00");
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    relay.cutAfter(-1);
    wells.load(position(), cycles());
    MapPlace place;
    place.byPosition = false;
    place.border = {{0, 0, 0}, {80.125, 0, 0}, {80, 80, 0}};
    wells.load(place, cycles());
    const QString logs = QStringLiteral("select wanted.element_id, found.* from unnest(array[7]) as wanted "
                                        "(element_id), lateral (select meas, meas_ts_id from ts_meas where "
                                        "element_id=wanted.element_id and cycle_id=%1) as found");
    EXPECT_EQ(relay.texts(),
              (QStringList{"select element_id,element_name,x,y,z,h from ts_elements where position_id = 1 ",
                           logs.arg(1), logs.arg(2),
                           "select element_id,element_name,x,y,z,h from ts_elements where  x between 0.00 and 80.13 "
                           "and y between 0.00 and 80.00",
                           logs.arg(1), logs.arg(2)}));
    session().connection.finish();
}

TEST_F(Differences, WhateverStatementIsRefusedNoWellIsLeft)
{
    addPair(1, "ТС.1", "1.00:-2.00", "1.00:-1.00");
    addPair(2, "ТС.2", "1.00:-2.00", "1.00:-1.00");
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    for (int n = 1; n <= 3; ++n) {
        ASSERT_EQ(wells.load(position(), cycles()), Loaded::All);
        relay.refuse(n);
        EXPECT_EQ(wells.load(position(), cycles()), Loaded::Refused) << n;
        EXPECT_TRUE(relay.hasRefused()) << n;
        EXPECT_TRUE(wells.rows.empty() && wells.keys(Sampling::Depth).empty()) << n;
    }
    session().connection.finish();
}

TEST_F(Differences, ReadingCanBeStopped)
{
    addPair(1, "ТС.1", "1.00:-2.00", "1.00:-1.00");
    addPair(2, "ТС.2", "1.00:-2.00", "1.00:-1.00");
    QStringList steps;
    const auto until = [&steps](int last) {
        return [&steps, last](int done, int total) {
            steps << QStringLiteral("%1/%2").arg(done).arg(total);
            return done < last;
        };
    };
    EXPECT_EQ(wells.load(position(), cycles(), until(9)), Loaded::All);
    EXPECT_EQ(steps, (QStringList{"1/2", "2/2"}));
    EXPECT_EQ(wells.load(position(), cycles(), until(1)), Loaded::Stopped);
    EXPECT_TRUE(wells.rows.empty());
}

TEST(DifferenceLabels, HaveAPlusFromZeroOn)
{
    EXPECT_EQ(baseLabel(0.0), QStringLiteral("+0.00"));
    EXPECT_EQ(baseLabel(1.5), QStringLiteral("+1.50"));
    EXPECT_EQ(baseLabel(-1.5), QStringLiteral("-1.50"));
    EXPECT_EQ(differenceLabel(0.0), QStringLiteral("d+0.00"));
    EXPECT_EQ(differenceLabel(2.0), QStringLiteral("d+2.00"));
    EXPECT_EQ(differenceLabel(-0.5), QStringLiteral("d-0.50"));
}
