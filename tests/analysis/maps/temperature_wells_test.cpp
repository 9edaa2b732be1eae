// Which wells a map takes and how a log becomes one number.
#include "analysis/maps/map_fixture.h"
#include "analysis/maps/temperature_wells.h"

#include <cmath>

namespace {

class Wells : public MapFixture {
protected:
    static Sampling at(Sampling::Mode mode, double key)
    {
        Sampling sampling;
        sampling.mode = mode;
        sampling.key = key;
        return sampling;
    }
    static Sampling mean(double from, double to, bool toEnd = false)
    {
        Sampling sampling;
        sampling.mode = Sampling::Average;
        sampling.from = from;
        sampling.to = to;
        sampling.toEnd = toEnd;
        return sampling;
    }
    TemperatureWells wells;
};

} // namespace

TEST_F(Wells, AreThoseOfThePositionWithALogInTheCycle)
{
    addSquare();
    addWell(6, "ТС.6", 5, 5, 0, 0, "1.00:-1.00", "exist", 2);
    addWell(7, "ТС.7", 5, 5, 0, 0, "1.00:-1.00", "exist", 1, 1);
    addWell(8, "ТС.8", 5, 5, 0, 0, nullptr);
    ASSERT_TRUE(wells.load(position(), 2));
    EXPECT_EQ(wells.rows.size(), 5u);
}

TEST_F(Wells, OfTheWholeDatabaseLieInsideTheBorder)
{
    addSquare();
    addWell(6, "ТС.6", 60, 40, 0, 0, "1.00:-1.00", "exist", 2);
    MapPlace selection = position();
    selection.byPosition = false;
    selection.border = {{20, 20, 0}, {80, 20, 0}, {80, 80, 0}, {20, 80, 0}};
    ASSERT_TRUE(wells.load(selection, 2));
    ASSERT_EQ(wells.rows.size(), 2u);

    selection.border = {{20, 20, 0}, {80, 80, 0}, {20, 80, 0}};
    ASSERT_TRUE(wells.load(selection, 2));
    ASSERT_EQ(wells.rows.size(), 1u) << "inside the box but outside the polygon";
    EXPECT_EQ(wells.rows[0].name, QStringLiteral("ТС.5"));

    selection.border.clear();
    EXPECT_TRUE(wells.load(selection, 2));
    EXPECT_TRUE(wells.rows.empty());
}

TEST_F(Wells, AreFilteredByTheChosenStates)
{
    addWell(1, "ТС.1", 0, 0, 0, 0, "1.00:-1.00");
    addWell(2, "ТС.2", 0, 0, 0, 0, "1.00:-1.00", "lost");
    MapPlace selection = position();
    wells.load(selection, 2);
    EXPECT_EQ(wells.rows.size(), 2u) << "no chosen state, no filter";
    selection.states = QStringList{QStringLiteral("lost")};
    wells.load(selection, 2);
    ASSERT_EQ(wells.rows.size(), 1u);
    EXPECT_EQ(wells.rows[0].name, QStringLiteral("ТС.2"));
    selection.states = QStringList{QStringLiteral("exist"), QStringLiteral("lost")};
    wells.load(selection, 2);
    EXPECT_EQ(wells.rows.size(), 2u);
}

TEST(StateCondition, JoinsTheStatesByOr)
{
    EXPECT_EQ(stateCondition({}).text(), QString());
    EXPECT_EQ(stateCondition({QStringLiteral("a"), QStringLiteral("%1")}).text(),
              QStringLiteral(" and ( state_id='a'  or  state_id='%1' ) "));
}

TEST_F(Wells, ElevationsCountFromTheGroundMark)
{
    addWell(1, "ТС.1", 0, 0, 100.0, 0.5, "1.00:-1.00|3.00:-2.00");
    wells.load(position(), 2);
    EXPECT_EQ(wells.keys(Sampling::Depth), (std::vector<double>{1.0, 3.0}));
    EXPECT_EQ(wells.keys(Sampling::Elevation), (std::vector<double>{98.5, 96.5})) << "descending";
    EXPECT_EQ(wells.log(0, Sampling::Elevation).at(98.5), -1.0);
}

TEST_F(Wells, TakeTheStoredReadingAtItsKeyAlsoTheDeepest)
{
    addWell(1, "ТС.1", 0, 0, 100.0, 0.5, "1.00:-1.00|3.00:-2.00");
    wells.load(position(), 2);
    wells.sample(at(Sampling::Depth, 3.0));
    EXPECT_TRUE(wells.rows[0].valid);
    EXPECT_EQ(wells.rows[0].value, -2.0);
    wells.sample(at(Sampling::Elevation, 97.5));
    EXPECT_TRUE(wells.rows[0].valid);
    EXPECT_DOUBLE_EQ(wells.rows[0].value, -1.5);
    wells.sample(at(Sampling::Depth, 3.01));
    EXPECT_FALSE(wells.rows[0].valid) << "below the bottom";
    wells.sample(at(Sampling::Depth, 0.99));
    EXPECT_FALSE(wells.rows[0].valid) << "above the first reading";
}

TEST_F(Wells, TheBottomOverridesTheDepth)
{
    addWell(1, "ТС.1", 0, 0, 100.0, 0.5, "1.00:-1.00|3.00:-2.00");
    addWell(2, "ТС.2", 0, 0, 100.0, 0.5, "1.00:-1.00|3.00:nan");
    addWell(3, "ТС.3", 0, 0, 100.0, 0.5, "");
    wells.load(position(), 2);
    Sampling sampling = at(Sampling::Depth, 1.0);
    sampling.bottom = true;
    wells.sample(sampling);
    ASSERT_EQ(wells.rows.size(), 3u);
    for (const WellRow& well : wells.rows) {
        EXPECT_EQ(well.valid, well.name == QStringLiteral("ТС.1")) << well.name;
        EXPECT_TRUE(!well.valid || well.value == -2.0) << well.value;
    }
}

TEST_F(Wells, TheMeanToTheBottomSkipsAMissingReading)
{
    addWell(1, "ТС.1", 0, 0, 100.0, 0.5, "1.00:-1.00|2.00:-3.00|3.00:nan|4.00:-5.00|5.00:-7.00");
    wells.load(position(), 2);
    wells.sample(mean(1.0, 2.0, true));
    EXPECT_TRUE(wells.rows[0].valid);
    EXPECT_DOUBLE_EQ(wells.rows[0].value, (-2.0 + -6.0) / 2.0) << "the interval's end plays no part";
    wells.sample(mean(1.0, 5.0));
    EXPECT_FALSE(wells.rows[0].valid);
    wells.sample(mean(1.0, 2.0));
    EXPECT_TRUE(wells.rows[0].valid);
    EXPECT_DOUBLE_EQ(wells.rows[0].value, -2.0);
}

TEST_F(Wells, ALostServerLeavesNone)
{
    addSquare();
    wells.load(position(), 2);
    loseServer();
    EXPECT_FALSE(wells.load(position(), 2));
    EXPECT_TRUE(wells.rows.empty());
    EXPECT_TRUE(wells.keys(Sampling::Depth).empty());
}

TEST(ValueLabel, HasAPlusOnlyAboveZero)
{
    EXPECT_EQ(valueLabel(1.005), QStringLiteral("+1.00"));
    EXPECT_EQ(valueLabel(0.0), QStringLiteral("0.00"));
    EXPECT_EQ(valueLabel(-2.5), QStringLiteral("-2.50"));
}
