// The line at epoch milliseconds, its quality, and the forecast of a mark.
#include "analysis/forecast/forecast_table.h"

#include "base/dates.h"

#include <QFile>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

constexpr double kDay = 86400000.0;

// The same line by the centred formulas in numbers of 64 bits of mantissa.
long double reference(const std::map<double, double>& samples, double at)
{
    long double t = 0.0L, y = 0.0L, tt = 0.0L, ty = 0.0L;
    for (const auto& [time, value] : samples) {
        t += static_cast<long double>(time) / samples.size();
        y += static_cast<long double>(value) / samples.size();
    }
    for (const auto& [time, value] : samples) {
        tt += (time - t) * (time - t);
        ty += (time - t) * (value - y);
    }
    return y + ty / tt * (at - t);
}

MarkMeasures markOf(const QVector<QPair<QDate, double>>& measures)
{
    MarkMeasures mark;
    mark.name = QStringLiteral("ДМ.1");
    int cycle = 0;
    for (const auto& [date, value] : measures)
        mark.add(++cycle, date, value);
    return mark;
}

// Ten millimetres a year down, one cycle a year.
MarkMeasures sinking()
{
    return markOf({{{2020, 1, 1}, 100.03}, {{2021, 1, 1}, 100.02}, {{2022, 1, 1}, 100.01}, {{2023, 1, 1}, 100.0}});
}

} // namespace

TEST(PolynomialFit, AgreesWithTheReferenceToANanometre)
{
    std::mt19937 random(20);
    std::uniform_real_distribution<double> noise(-0.02, 0.02), slope(-0.5, 0.5), level(-50.0, 3000.0);
    for (int set = 0; set < 200; ++set) {
        std::map<double, double> samples;
        const double start = abscissaOf(QDate(1995 + set % 30, 3, 5)), rate = slope(random) / (365.0 * kDay),
                     height = level(random);
        for (int i = 0; i < 3 + set % 40; ++i)
            samples[start + (17.0 + 90.0 * i) * kDay] = height + rate * 90.0 * i * kDay + noise(random);
        PolynomialFit fit;
        fit.setSamples(samples);
        const std::vector<double> line = fit.fit(1);
        for (double at : {start, start + 4000.0 * kDay, abscissaOf(QDate(2040, 1, 1))})
            EXPECT_NEAR(valueAt(line, at), double(reference(samples, at)), 1e-9) << set;
    }
}

TEST(PolynomialFit, APlainLineIsFoundWithItsCoefficients)
{
    PolynomialFit fit;
    fit.setSamples({{0.0, 1.0}, {1.0, 3.0}, {2.0, 5.0}});
    const std::vector<double> line = fit.fit(1);
    ASSERT_EQ(line.size(), 2u);
    EXPECT_NEAR(line[0], 1.0, 1e-14);
    EXPECT_NEAR(line[1], 2.0, 1e-14);
    EXPECT_NEAR(fit.meanSquaredError(line), 0.0, 1e-28);
    EXPECT_NEAR(fit.meanSquaredError({0.0, 2.0}), 1.0, 1e-14) << "one off everywhere";
}

TEST(PolynomialFit, HigherAndLowerDegrees)
{
    PolynomialFit fit;
    fit.setSamples({{-1.0, 6.0}, {0.0, 3.0}, {1.0, 2.0}, {3.0, 6.0}}); // 3 - 2x + x²
    const std::vector<double> parabola = fit.fit(2);
    ASSERT_EQ(parabola.size(), 3u);
    EXPECT_NEAR(parabola[0], 3.0, 1e-13);
    EXPECT_NEAR(parabola[1], -2.0, 1e-13);
    EXPECT_NEAR(parabola[2], 1.0, 1e-13);
    EXPECT_NEAR(fit.fit(0).at(0), 4.25, 1e-14) << "the mean";
    EXPECT_EQ(fit.fit(-3).size(), 1u);
}

TEST(PolynomialFit, SamplesThatTellTooLittle)
{
    PolynomialFit none;
    EXPECT_EQ(none.fit(1), (std::vector<double>{0.0, 0.0}));
    EXPECT_EQ(none.meanSquaredError({1.0}), 0.0);
    PolynomialFit one;
    one.setSamples({{1.7e12, 5.0}});
    EXPECT_EQ(valueAt(one.fit(1), 1.8e12), 5.0) << "level, through the one sample";
    PolynomialFit two;
    two.setSamples({{1.0, 1.0}, {2.0, 2.0}});
    EXPECT_NEAR(valueAt(two.fit(2), 3.0), 3.0, 1e-12) << "the square gets no part";
}

TEST(LineQuality, StudentBoundsAreThoseOfTheTables)
{
    const std::map<int, double> table{{1, 12.706}, {2, 4.303}, {3, 3.182},  {4, 2.776},  {5, 2.571},
                                      {8, 2.306},  {9, 2.262}, {30, 2.042}, {120, 1.980}};
    for (const auto& [freedom, bound] : table)
        EXPECT_NEAR(studentBound95(freedom), bound, 5e-4) << freedom;
}

TEST(LineQuality, FourMeasuresByHand)
{
    // y = 1.9 + 0.8 x; differences -0.1, 0.1, 0.1, -0.1 of x = 1..4... by hand: Sxx 5, Sxy 4, Syy 3.24
    PolynomialFit fit;
    fit.setSamples({{1.0, 2.6}, {2.0, 3.6}, {3.0, 4.4}, {4.0, 5.0}});
    const LineQuality quality = qualityOf(fit, fit.fit(1));
    EXPECT_EQ(quality.samples, 4);
    EXPECT_NEAR(quality.determination, 1.0 - 0.04 / 3.24, 1e-12);
    EXPECT_NEAR(quality.standardError, std::sqrt(0.04 / 2.0), 1e-12);
    // t of two degrees of freedom is 4.302653, √(1 + 1/4 + 2.5²/5) is √2.5
    EXPECT_NEAR(quality.halfBand(5.0), std::sqrt(0.02) * 4.302653 * std::sqrt(2.5), 1e-6);
}

TEST(LineQuality, LevelMeasuresHaveNoDetermination)
{
    PolynomialFit fit;
    fit.setSamples({{1.0, 2.0}, {2.0, 2.0}, {3.0, 2.0}});
    EXPECT_TRUE(std::isinf(qualityOf(fit, fit.fit(1)).determination));
}

TEST(MarkForecast, ThreeMeasuresGiveOneAndTwoDoNot)
{
    const MarkMeasures mark = sinking();
    EXPECT_TRUE(forecastOf(mark, {1, 2, 3}, {2024, 1, 1}).exists());
    const MarkForecast two = forecastOf(mark, {1, 2}, {2024, 1, 1});
    EXPECT_FALSE(two.exists());
    EXPECT_EQ(forecastCells(mark, two, {1, 2}),
              (QStringList{"ДМ.1", "100.0300", "100.0200", "--", "--", "--", "--", "", "", "2", "--", "--"}));
    EXPECT_EQ(forecastText(two), "--");
    EXPECT_FALSE(forecastOf(mark, {}, {2024, 1, 1}).exists());
}

TEST(MarkForecast, ByHand)
{
    // Days 0, 10, 20: through 1.000, 1.002, 1.001 goes 1.0005 + 0.00005 a day.
    const MarkMeasures mark = markOf({{{2023, 3, 1}, 1.0}, {{2023, 3, 11}, 1.002}, {{2023, 3, 21}, 1.001}});
    const MarkForecast forecast = forecastOf(mark, {1, 2, 3}, {2023, 3, 31});
    EXPECT_NEAR(forecast.value, 1.002, 1e-12);
    EXPECT_NEAR(forecast.base, 1.0, 1e-15);
    EXPECT_NEAR(forecast.deformation, 0.002, 1e-12);
    EXPECT_NEAR(forecast.deviation, std::sqrt((0.25e-6 + 1e-6 + 0.25e-6) / 3.0), 1e-12);
    EXPECT_EQ(forecastCells(mark, forecast, {1, 2, 3}),
              (QStringList{"ДМ.1", "1.0000", "1.0020", "1.0010", "1.0000", "0.7071", "1.0020", "2.0000", "", "", "3",
                           "0.2500", "1.2247"}));
}

TEST(MarkForecast, ADeformationThatRoundsToNothingKeepsItsSign)
{
    const MarkMeasures mark = markOf({{{2020, 1, 1}, 1.0}, {{2021, 1, 1}, 1.0}, {{2022, 1, 1}, 0.99999999}});
    const MarkForecast forecast = forecastOf(mark, {1, 2, 3}, {2023, 1, 1});
    EXPECT_LT(forecast.deformation, -1e-9);
    const QString shown = forecastCells(mark, forecast, {1, 2, 3})[columnOf(ForecastColumn::Deformation, 3)];
    EXPECT_EQ(shown, "-0.0000");
    EXPECT_EQ(shown.toDouble(), 0.0);
}

TEST(MarkForecast, MeasuresOnOneDateCountOnceAndTheLaterCycleStays)
{
    const QDate same(2021, 5, 5);
    const MarkMeasures mark = markOf({{same, 1.0}, {same, 2.0}, {{2022, 5, 5}, 3.0}, {{2023, 5, 5}, 4.0}});
    EXPECT_FALSE(forecastOf(mark, {1, 2, 3}, {2024, 1, 1}).exists());
    const MarkForecast forecast = forecastOf(mark, {1, 2, 3, 4}, {2024, 1, 1});
    EXPECT_EQ(forecast.samples.size(), 3);
    EXPECT_EQ(forecast.samples.value(same), 2.0);
    EXPECT_EQ(forecast.base, 1.0) << "of the first cycle, though its sample was replaced";
}

TEST(MarkForecast, TheBaseIsTheEarliestMeasureWhereTheFirstCycleHasNone)
{
    MarkMeasures mark;
    mark.add(1, {2020, 1, 1}, 9.5);
    for (int year = 1; year <= 3; ++year)
        mark.add(2 + year, {2020 + year, 1, 1}, 9.0);
    EXPECT_EQ(forecastOf(mark, {3, 4, 5}, {2024, 1, 1}).base, 9.0);
    EXPECT_EQ(forecastOf(mark, {2, 3, 4, 5}, {2024, 1, 1}).base, 9.5);
}

TEST(MarkForecast, WhatIsNoMeasureTakesNoPart)
{
    MarkMeasures mark = sinking();
    mark.add(5, {2024, 1, 1}, std::nan(""));
    mark.add(6, {2024, 1, 1}, HUGE_VAL);
    mark.add(7, QDate(), 50.0);
    const MarkForecast forecast = forecastOf(mark, {1, 2, 3, 4, 5, 6, 7}, {2024, 1, 1});
    EXPECT_EQ(forecast.samples.size(), 4);
    EXPECT_EQ(forecastCells(mark, forecast, {5, 7}).mid(1, 2), (QStringList{"--", "50.0000"})) << "shown all the same";
}

TEST(MarkForecast, AMarkMeasuredTwiceInACycleCountsTheLaterAndSaysSo)
{
    MarkMeasures mark = sinking();
    mark.add(2, {2021, 6, 1}, 100.5);
    mark.add(2, {2021, 7, 1}, 100.6);
    EXPECT_EQ(mark.repeated, QVector<int>{2});
    EXPECT_EQ(mark.values.value(2), 100.6);
}

namespace {

// The marks of a file of measures; each epoch is a cycle.
QMap<QString, MarkMeasures> marksOf(const char* name)
{
    QFile file(QStringLiteral(TERVA_SOURCE_DIR "/tests/data/settlement/") + QString::fromUtf8(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QMap<QString, MarkMeasures> marks;
    file.readLine(); // titles
    while (!file.atEnd()) {
        const QStringList cells = QString::fromUtf8(file.readLine()).trimmed().replace(',', '.').split(';');
        MarkMeasures& mark = marks[cells[0]];
        mark.add(mark.values.size(), dateFrom(cells[1], "dd.MM.yyyy"), cells[2].toDouble());
    }
    return marks;
}

std::map<double, double> samplesOf(const MarkForecast& forecast)
{
    std::map<double, double> samples;
    for (auto sample = forecast.samples.begin(); sample != forecast.samples.end(); ++sample)
        samples[abscissaOf(sample.key())] = sample.value();
    return samples;
}

} // namespace

// Of 135 bolts in walls 58 were levelled on three days or more; the others were so on one or two.
TEST(MarkForecast, BoltsOfFourDecades)
{
    const QMap<QString, MarkMeasures> bolts = marksOf("amsterdam-readings.csv");
    ASSERT_EQ(bolts.size(), 135);
    int forecasts = 0;
    for (const MarkMeasures& bolt : bolts) {
        const MarkForecast forecast = forecastOf(bolt, bolt.values.keys().toVector(), {2025, 1, 1});
        EXPECT_EQ(forecast.exists(), forecast.samples.size() >= 3);
        if (!forecast.exists()) {
            EXPECT_EQ(forecastText(forecast), "--");
            continue;
        }
        ++forecasts;
        EXPECT_NEAR(forecast.value, double(reference(samplesOf(forecast), abscissaOf({2025, 1, 1}))), 1e-9);
    }
    EXPECT_EQ(forecasts, 58);
}

TEST(MarkForecast, NineStationsOfTenYears)
{
    const QMap<QString, MarkMeasures> stations = marksOf("gnss-vertical.csv");
    ASSERT_EQ(stations.size(), 9);
    for (const MarkMeasures& station : stations) {
        const MarkForecast forecast = forecastOf(station, station.values.keys().toVector(), {2025, 1, 1});
        ASSERT_TRUE(forecast.exists());
        const std::map<double, double> samples = samplesOf(forecast);
        EXPECT_GT(samples.size(), 10u);
        EXPECT_NEAR(forecast.value, double(reference(samples, abscissaOf({2025, 1, 1}))), 1e-9);
        EXPECT_LT(forecast.deviation, 0.02) << "two centimetres";
        EXPECT_GE(forecast.quality.determination, 0.0);
        EXPECT_LE(forecast.quality.determination, 1.0);
    }
}

TEST(MarkForecast, ColumnsStandAsTold)
{
    EXPECT_EQ(forecastTitles({"1", "5"}),
              (QStringList{"Имя", "Цикл 1", "Цикл 5", "Исх.Отметка\nм", "СКО \n мм", "Прогноз\n м", "Деформация\n мм",
                           "Измерения", "Тренд", "Число\nэпох", "r²", "Станд. ошибка\nмм"}));
    EXPECT_EQ(columnOf(ForecastColumn::Base, 2), 3);
    EXPECT_EQ(columnOf(ForecastColumn::Trend, 2), 8);
    EXPECT_EQ(defaultForecastName({2027, 3, 9}), "Прогноз на дату 09-03-2027");
    EXPECT_EQ(forecastCsv({{"ДМ.1", "1.0020"}}, {2027, 3, 9}, "00000"),
              "Имя;Дата;Отметка;SN прибора\nДМ.1;09.03.2027;1.0020;00000\n");
}
