// How far marks have moved between two cycles, or from a cycle to a forecast.
#include "analysis/maps/deformation_marks.h"
#include "analysis/maps/map_fixture.h"
#include "support/statement_relay.h"

#include <cmath>

namespace {

class Marks : public MapFixture {
protected:
    static Epochs toForecast(int forecast)
    {
        Epochs epochs = cycles();
        epochs.forecast = forecast;
        return epochs;
    }
    void addMoved(int id, const char* name, double x, const char* base, const char* current)
    {
        addMark(id, name, x, 0);
        addElevation(id, 1, base);
        addElevation(id, 2, current);
    }
    DeformationMarks marks;
};

std::vector<DeformationRow> at(const std::vector<geometry::Point3>& places)
{
    std::vector<DeformationRow> rows;
    for (const geometry::Point3& place : places) {
        DeformationRow row;
        row.x = place.x;
        row.y = place.y;
        rows.push_back(row);
    }
    return rows;
}

} // namespace

TEST_F(Marks, MoveInMillimetresWithTheirSign)
{
    addMoved(1, "М1", 0, "100", "99.9875");
    addMoved(2, "М2", 10, "50.5", "50.502");
    ASSERT_EQ(marks.load(position(), cycles()), Loaded::All);
    ASSERT_EQ(marks.rows.size(), 2u);
    EXPECT_EQ(marks.rows[0].name, QStringLiteral("М1"));
    EXPECT_EQ(marks.rows[0].element_id, 1);
    EXPECT_EQ(marks.rows[0].base, 100.0);
    EXPECT_EQ(marks.rows[0].current, 99.9875);
    EXPECT_NEAR(marks.rows[0].movement, -12.5, 1e-9) << "a settlement is negative";
    EXPECT_NEAR(marks.rows[1].movement, 2.0, 1e-9);
    EXPECT_TRUE(marks.rows[0].valid && marks.rows[1].valid);
}

TEST_F(Marks, MeasuredInOneCycleHaveNoMovement)
{
    addMark(1, "М1", 0, 0);
    addElevation(1, 1, "100");
    addMark(2, "М2", 10, 0);
    addElevation(2, 2, "100");
    addMark(3, "М3", 20, 0);
    addMoved(4, "М4", 30, "100", "NULL");
    ASSERT_EQ(marks.load(position(), cycles()), Loaded::All);
    ASSERT_EQ(marks.rows.size(), 4u) << "a mark without measures is listed";
    for (const DeformationRow& row : marks.rows) {
        EXPECT_FALSE(row.valid) << row.name.toStdString();
        EXPECT_EQ(row.movement, DeformationRow::none) << row.name.toStdString();
    }
    EXPECT_EQ(marks.rows[0].base, 100.0);
    EXPECT_EQ(marks.rows[0].current, DeformationRow::none);
    EXPECT_EQ(marks.rows[1].base, DeformationRow::none);
    EXPECT_EQ(marks.rows[1].current, 100.0);
    EXPECT_TRUE(marks.repeated().isEmpty());
}

TEST_F(Marks, MeasuredTwiceInOneCycleAreNamedAndHaveNoMovement)
{
    addMoved(1, "М1", 0, "100", "99.99");
    addElevation(1, 2, "99.98");
    addMoved(2, "М2", 10, "100", "99.99");
    ASSERT_EQ(marks.load(position(), cycles()), Loaded::All);
    EXPECT_FALSE(marks.rows[0].valid);
    EXPECT_EQ(marks.rows[0].current, DeformationRow::none);
    EXPECT_TRUE(marks.rows[1].valid);
    EXPECT_EQ(marks.repeated(), QStringList{QStringLiteral("М1")});
}

TEST_F(Marks, MoveToAForecastWhereItHasThem)
{
    addMoved(1, "М1", 0, "100", "99.99");
    addMoved(2, "М2", 10, "100", "99.99");
    addForecast(5, "Прогноз 2026");
    addForecastElevation(1, 5, 99.9);
    ASSERT_EQ(marks.load(position(), toForecast(5)), Loaded::All);
    EXPECT_NEAR(marks.rows[0].movement, -100.0, 1e-9);
    EXPECT_FALSE(marks.rows[1].valid) << "the forecast has only one of them";
    EXPECT_EQ(marks.rows[1].base, 100.0);
}

TEST_F(Marks, OfTheWholeDatabaseLieInsideTheBorder)
{
    addMark(1, "М1", 60, 40);
    addMark(2, "М2", 75, 25, "exist", 2);
    addMark(3, "М3", 40, 60, "lost", 2);
    MapPlace place;
    place.byPosition = false;
    place.border = {{20, 20, 0}, {80, 20, 0}, {80, 80, 0}};
    marks.load(place, cycles());
    EXPECT_EQ(marks.rows.size(), 2u) << "М3 lies in the box alone";
    place.border = {{20, 20, 0}, {80, 20, 0}, {80, 80, 0}, {20, 80, 0}};
    place.states = QStringList{QStringLiteral("lost")};
    marks.load(place, cycles());
    ASSERT_EQ(marks.rows.size(), 1u);
    EXPECT_EQ(marks.rows[0].name, QStringLiteral("М3"));
    marks.load(position(2), cycles());
    EXPECT_EQ(marks.rows.size(), 2u);
}

TEST_F(Marks, AreReadTogetherAndNoneIsLeftOfARefusal)
{
    addMoved(4, "М4", 0, "100", "99.99");
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    relay.cutAfter(-1);
    marks.load(position(), cycles());
    marks.load(position(), toForecast(5));
    const QString listed = "select element_id,element_name,x,y,z,h from dm_elements where position_id = 1";
    const QString read = "select wanted.element_id, found.* from unnest(array[4]) as wanted (element_id), lateral "
                         "(select meas from %1 where element_id = wanted.element_id and %2) as found";
    const QString base = read.arg("dm_meas", "cycle_id = 1");
    EXPECT_EQ(relay.texts(),
              (QStringList{listed, base, read.arg("dm_meas", "cycle_id = 2"), listed, base,
                           read.arg("dm_predictions_data", "prediction_id = 5")}));
    for (int n = 1; n <= 3; ++n) {
        ASSERT_EQ(marks.load(position(), cycles()), Loaded::All);
        relay.refuse(n);
        EXPECT_EQ(marks.load(position(), cycles()), Loaded::Refused) << n;
        EXPECT_TRUE(marks.rows.empty()) << n;
    }
    EXPECT_EQ(marks.load(position(), cycles(), [](int, int) { return false; }), Loaded::Stopped);
    EXPECT_TRUE(marks.rows.empty());
    session().connection.finish();
}

// Every sixth mark lacks its base, every seventh has a second one, every eighth moves to no number.
TEST_F(Marks, OfALargePlaceAreReadInFewStatementsAsTheyAreOneByOne)
{
    database.exec(
        "insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
        "overriding system value select 5000 - i, 'dm', 'М' || i, 'exist', 1, i, 0, 0, 0 "
        "from generate_series(1, 2300) i;"
        "insert into dm_meas (element_id, cycle_id, date, meas) "
        "select 5000 - i, 1, date '2022-01-01', 100 + i from generate_series(1, 2300) i where i % 6 <> 0 union all "
        "select 5000 - i, 1, date '2022-01-02', 200 + i from generate_series(1, 2300) i where i % 7 = 0 union all "
        "select 5000 - i, 2, date '2023-01-01', nullif(100 + i + i * 0.0001, 100 + i / 8 * 8 * 1.0001) "
        "from generate_series(1, 2300) i");
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    relay.cutAfter(-1);
    QVector<int> steps;
    const auto noted = [&steps](int done, int total) {
        EXPECT_EQ(total, 2300);
        steps << done;
        return true;
    };
    ASSERT_EQ(marks.load(position(), cycles(), noted), Loaded::All);
    EXPECT_EQ(relay.statements(), 7) << "the marks, and three times both cycles";
    ASSERT_EQ(steps.size(), 2300) << "told after every mark";
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
    ASSERT_EQ(marks.rows.size(), 2300u);
    QStringList repeated;
    for (const DeformationRow& row : marks.rows) {
        const int i = 5000 - row.element_id;
        ASSERT_EQ(row.name, QStringLiteral("М%1").arg(i));
        const bool twice = i % 7 == 0 && i % 6 != 0;
        const double base = i % 6 != 0 && !twice ? 100.0 + i : i % 7 == 0 && !twice ? 200.0 + i : DeformationRow::none;
        EXPECT_EQ(row.base, base) << i;
        EXPECT_EQ(row.valid, std::isfinite(base) && i % 8 != 0) << i;
        if (row.valid && i % 7 != 0) {
            EXPECT_NEAR(row.movement, i * 0.1, 1e-6) << i;
        }
        if (twice)
            repeated << row.name;
    }
    EXPECT_EQ(marks.repeated(), repeated);
    relay.refuse(6);
    EXPECT_EQ(marks.load(position(), cycles()), Loaded::Refused) << "in the third part";
    EXPECT_TRUE(marks.rows.empty());
    relay.cutAfter(-1);
    EXPECT_EQ(marks.load(position(), cycles(), [](int done, int) { return done < 1500; }), Loaded::Stopped);
    EXPECT_TRUE(marks.rows.empty());
    EXPECT_EQ(relay.statements(), 5) << "nothing is asked for after the stop";
    session().connection.finish();
}

TEST(DegenerateMarks, LieNearerThanATenthOfAMetre)
{
    EXPECT_EQ(DEGENERATE_DISTANCE, 0.1);
    EXPECT_EQ(degenerateMarks(at({{0, 0, 0}, {0.09, 0, 0}, {5, 5, 0}})), (std::set<size_t>{0, 1}));
    EXPECT_TRUE(degenerateMarks(at({{0, 0, 0}, {0.1, 0, 0}, {0, 0.1, 0}})).empty());
    EXPECT_TRUE(degenerateMarks(at({{485650.0, 123308.0, 0}, {485650.1, 123308.0, 0}})).empty())
        << "where doubles are coarse too";
    EXPECT_EQ(degenerateMarks(at({{485650.0, 123308.0, 0}, {485650.09, 123308.0, 0}})).size(), 2u);
    EXPECT_EQ(degenerateMarks(at({{-0.05, -0.05, 0}, {0.01, 0.01, 0}})).size(), 2u) << "on both sides of the axes";
    EXPECT_TRUE(degenerateMarks(at({{7, 7, 0}})).empty());
    EXPECT_TRUE(degenerateMarks({}).empty());
    EXPECT_EQ(degenerateMarks(at({{1, 1, 0}, {1, 1, 0}, {1, 1, 0}})).size(), 3u) << "at one place";
}

TEST(DegenerateMarks, WithoutAPlaceAreNone)
{
    EXPECT_TRUE(degenerateMarks(at({{NAN, 0, 0}, {NAN, 0, 0}, {INFINITY, 0, 0}, {INFINITY, 0, 0}})).empty());
}

TEST(EpochTitles, TakeTheNumberWithTheBlankBehindIt)
{
    EXPECT_EQ(cycleColumn(QStringLiteral("3 - 01.07.23 - 31.07.23 - Лето")), QStringLiteral("Цикл 3  (м)"));
    EXPECT_EQ(cycleColumn(QStringLiteral("Нулевой")), QStringLiteral("Цикл Нулевой (м)"));
    EXPECT_EQ(cycleColumn(QString()), QStringLiteral("Цикл  (м)"));
    EXPECT_EQ(forecastColumn(QStringLiteral("Зима")), QStringLiteral("Прогноз \n Зима"));
    EXPECT_EQ(forecastColumn(std::nullopt), QStringLiteral("Прогноз"));
}

TEST_F(Marks, AForecastIsNamedByTheSessionsList)
{
    EXPECT_FALSE(forecastName(5));
    addForecast(5, "Прогноз 2026");
    EXPECT_EQ(forecastName(5).value_or(QString()), QStringLiteral("Прогноз 2026"));
}
