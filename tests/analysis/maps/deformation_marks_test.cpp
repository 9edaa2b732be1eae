// How far marks have moved between two cycles, or from a cycle to a forecast.
#include "analysis/maps/deformation_marks.h"
#include "analysis/maps/map_fixture.h"
#include "support/statement_relay.h"

#include <cmath>

namespace {

class Marks : public MapFixture {
protected:
    static MapPlace position(int id = 1)
    {
        MapPlace place;
        place.positionId = id;
        return place;
    }
    static Epochs cycles()
    {
        Epochs epochs;
        epochs.base = 1;
        epochs.current = 2;
        return epochs;
    }
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

TEST_F(Marks, AreReadMarkByMarkAndNoneIsLeftOfARefusal)
{
    addMoved(4, "М4", 0, "100", "99.99");
    StatementRelay relay;
    session().sqlPort = relay.port();
    ASSERT_TRUE(session().connection.open(session().buildConnInfo()));
    relay.cutAfter(-1);
    marks.load(position(), cycles());
    marks.load(position(), toForecast(5));
    const QString listed = "select element_id,element_name,x,y,z,h from dm_elements where position_id = 1";
    const QString base = "select meas from dm_meas where element_id = 4 and cycle_id = 1";
    EXPECT_EQ(relay.texts(),
              (QStringList{listed, base, "select meas from dm_meas where element_id = 4 and cycle_id = 2", listed, base,
                           "select meas from dm_predictions_data where element_id = 4 and prediction_id = 5"}));
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
