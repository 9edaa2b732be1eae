// Combo boxes over the session's lists.
#include "formkit/choices.h"

#include "session/project_session.h"

#include <QComboBox>
#include <gtest/gtest.h>

namespace {

class Combos : public ::testing::Test {
protected:
    void TearDown() override
    {
        session().cycles.clear();
        session().cycleOrder.clear();
        session().predictions.clear();
        session().predictionOrder.clear();
        session().states.clear();
    }
    QComboBox combo_;
};

TEST_F(Combos, CyclesStandInTheirOrderBehindWhatIsThere)
{
    session().cycles = {{1, {"7", "a", "b", "c"}}, {2, {"3", "d", "e", ""}}};
    session().cycleOrder = {2, 1};
    combo_.addItem("нет");
    fillCycleCombo(&combo_, "|");
    ASSERT_EQ(combo_.count(), 3);
    EXPECT_EQ(combo_.itemText(1), QString("3|d|e|"));
    EXPECT_EQ(combo_.itemData(1).toInt(), 2);
    EXPECT_EQ(combo_.itemText(2), QString("7|a|b|c"));
    EXPECT_EQ(combo_.findData(1), 2);
}

TEST_F(Combos, PredictionsShowDateAndName)
{
    session().predictions = {{4, {"2030-01-01", "П", "Цикл 1", "Цикл 2", "5"}}};
    session().predictionOrder = {4};
    fillPredictionCombo(&combo_, " ");
    ASSERT_EQ(combo_.count(), 1);
    EXPECT_EQ(combo_.itemText(0), QString("2030-01-01 П"));
    EXPECT_EQ(combo_.itemData(0).toInt(), 4);
}

TEST_F(Combos, StatesStandInKeyOrder)
{
    fillStateCombo(&combo_);
    EXPECT_EQ(combo_.count(), 0);
    session().states = {{"b", "Бэ"}, {"a", "Я"}};
    fillStateCombo(&combo_);
    ASSERT_EQ(combo_.count(), 2);
    EXPECT_EQ(combo_.itemText(0), QString("Я"));
    EXPECT_EQ(combo_.itemData(1).toString(), QString("b"));
}

} // namespace
