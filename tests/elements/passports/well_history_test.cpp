// The trumpet and the grid of a well's temperatures, on logs whose answers are
// known and on real ones.
#include "elements/passports/well_history.h"

#include "charts/real_series.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

// The files that real_series.h reads lie below TERVA_SOURCE_DIR.

// T = mean + surface * exp(-depth / damping) * cos(phase), a day a month.
DatedLogs year(double mean, double surface, double damping, const QVector<double>& depths)
{
    DatedLogs logs;
    for (int month = 0; month < 12; ++month) {
        DatedLog log{QDate(2021, 1 + month, 15), {}};
        for (const double depth : depths)
            log.log[depth] = mean + surface * std::exp(-depth / damping) * std::cos(2.0 * M_PI * month / 12.0);
        logs.push_back(log);
    }
    return logs;
}

QVector<double> depthsTo(double last, double step)
{
    QVector<double> depths;
    for (int i = 0; i * step <= last + 1e-9; ++i)
        depths.append(i * step);
    return depths;
}

DatedLogs realLogs(const QString& file, const QString& well)
{
    DatedLogs logs;
    for (const WellReading& reading : readingsOf(file, well, 10000))
        logs.push_back({reading.date.date(), reading.profile});
    return logs;
}

} // namespace

TEST(TemperatureAtDepth, IsTheStraightLineWithinTheLog)
{
    const TemperatureLog log = {{1.0, -2.0}, {3.0, -6.0}, {4.0, -5.0}};
    EXPECT_EQ(temperatureAt(log, 1.0), -2.0);
    EXPECT_EQ(temperatureAt(log, 2.0), -4.0);
    EXPECT_EQ(temperatureAt(log, 3.25), -5.75);
    EXPECT_EQ(temperatureAt(log, 4.0), -5.0) << "the last reading too";
    EXPECT_TRUE(std::isnan(temperatureAt(log, 0.99)));
    EXPECT_TRUE(std::isnan(temperatureAt(log, 4.01)));
    EXPECT_TRUE(std::isnan(temperatureAt({}, 1.0)));
}

TEST(Envelope, OfNothingAndOfOneLog)
{
    EXPECT_TRUE(envelopeOf({}).isEmpty());
    const TemperatureEnvelope one = envelopeOf({{QDate(2021, 7, 1), {{0.0, 4.0}, {2.0, -4.0}}}});
    EXPECT_EQ(one.coldest, (QVector<double>{4.0, -4.0}));
    EXPECT_EQ(one.warmest, one.coldest);
    EXPECT_EQ(one.mean, one.coldest);
    EXPECT_EQ(one.thawDepth, 1.0);
    EXPECT_EQ(one.quietDepth, TemperatureEnvelope::none) << "one log tells nothing of an amplitude";
}

TEST(Envelope, TakesEachLogWhereItReaches)
{
    const TemperatureEnvelope envelope = envelopeOf({{QDate(2021, 1, 1), {{1.0, -2.0}, {3.0, -4.0}}},
                                                     {QDate(2021, 7, 1), {{2.0, 1.0}}},
                                                     {QDate(2021, 9, 1), {{1.0, 3.0}, {2.0, 0.5}}}});
    EXPECT_EQ(envelope.depths, (QVector<double>{1.0, 2.0, 3.0}));
    EXPECT_EQ(envelope.counts, (QVector<int>{2, 3, 1}));
    EXPECT_EQ(envelope.coldest, (QVector<double>{-2.0, -3.0, -4.0}));
    EXPECT_EQ(envelope.warmest, (QVector<double>{3.0, 1.0, -4.0}));
    EXPECT_NEAR(envelope.mean[1], (-3.0 + 1.0 + 0.5) / 3.0, 1e-12);
    EXPECT_NEAR(envelope.thawDepth, 2.2, 1e-12) << "between 1.0 at 2 m and -4.0 at 3 m";
}

TEST(Envelope, FindsTheDepthsOfAWaveThatDiesAway)
{
    const double mean = -2.0, surface = 12.0, damping = 2.5;
    const TemperatureEnvelope envelope = envelopeOf(year(mean, surface, damping, depthsTo(20.0, 0.25)));
    EXPECT_NEAR(envelope.mean[0], mean, 1e-9);
    EXPECT_NEAR(envelope.warmest[0], mean + surface, 1e-9);
    EXPECT_NEAR(envelope.coldest[0], mean - surface, 1e-9);
    // mean + surface * exp(-d / damping) = 0 and 2 * surface * exp(-d / damping) = 0.1
    EXPECT_NEAR(envelope.thawDepth, damping * std::log(surface / -mean), 0.02);
    EXPECT_NEAR(envelope.quietDepth, damping * std::log(2.0 * surface / kQuietAmplitude), 0.02);
    const TemperatureEnvelope coarser = envelopeOf(year(mean, surface, damping, depthsTo(20.0, 0.25)), 1.0);
    EXPECT_NEAR(coarser.quietDepth, damping * std::log(2.0 * surface), 0.02);
}

TEST(Envelope, SaysNoDepthThatItDoesNotReach)
{
    const TemperatureEnvelope shallow = envelopeOf(year(-2.0, 12.0, 2.5, depthsTo(5.0, 0.25)));
    EXPECT_TRUE(std::isfinite(shallow.thawDepth));
    EXPECT_EQ(shallow.quietDepth, TemperatureEnvelope::none) << "still moving at the bottom";
    const TemperatureEnvelope frozen = envelopeOf(year(-20.0, 12.0, 2.5, depthsTo(20.0, 0.25)));
    EXPECT_EQ(frozen.thawDepth, TemperatureEnvelope::none) << "never thaws";
    const TemperatureEnvelope thawed = envelopeOf(year(20.0, 12.0, 2.5, depthsTo(20.0, 0.25)));
    EXPECT_EQ(thawed.thawDepth, TemperatureEnvelope::none) << "thawed to the bottom";
    const TemperatureEnvelope still = envelopeOf(year(-3.0, 0.01, 2.5, depthsTo(20.0, 0.25)));
    EXPECT_EQ(still.quietDepth, 0.0) << "quiet from the top";
}

TEST(Envelope, AThawedLayerBelowFrozenGroundIsNotTheActiveOne)
{
    const TemperatureEnvelope talik =
        envelopeOf({{QDate(2021, 7, 1), {{0.0, 2.0}, {1.0, -2.0}, {5.0, 1.0}, {9.0, -1.0}}}});
    EXPECT_EQ(talik.thawDepth, 0.5);
}

TEST(Grid, HasATimeADayAndADepthAReading)
{
    const TemperatureGrid grid = gridOf({{QDate(2021, 1, 1), {{1.0, -2.0}, {3.0, -4.0}}},
                                         {QDate(2021, 1, 1), {{1.0, -1.0}, {3.0, -3.0}}},
                                         {QDate(2021, 1, 3), {{2.0, 5.0}}}});
    EXPECT_EQ(grid.depths, (QVector<double>{1.0, 2.0, 3.0}));
    ASSERT_EQ(grid.times.size(), 2);
    EXPECT_EQ(grid.times[1] - grid.times[0], 2 * 86400000.0);
    EXPECT_EQ(grid.at(0, 0), -1.0) << "of two logs of a day the last one";
    EXPECT_EQ(grid.at(0, 1), -2.0);
    EXPECT_TRUE(std::isnan(grid.at(1, 0)));
    EXPECT_EQ(grid.at(1, 1), 5.0);
}

TEST(RealWells, ALoggersYearInIceMovesAtTheTopAlone)
{
    const DatedLogs logs = realLogs("jarvis-logger/terva.csv", "JA");
    ASSERT_GT(logs.size(), 300u);
    const TemperatureEnvelope envelope = envelopeOf(logs, 1.0);
    ASSERT_EQ(envelope.depths.size(), 13);
    EXPECT_GT(envelope.warmest[0] - envelope.coldest[0], 1.0);
    for (int i = 0; i < envelope.depths.size(); ++i) {
        EXPECT_LE(envelope.coldest[i], envelope.mean[i]);
        EXPECT_LE(envelope.mean[i], envelope.warmest[i]);
    }
    const TemperatureGrid grid = gridOf(logs);
    EXPECT_EQ(grid.depths.size(), 13);
    EXPECT_LE(size_t(grid.times.size()), logs.size());
    EXPECT_FALSE(isothermOf(grid, -0.5).times.isEmpty());
}

TEST(RealWells, FrozenSoilOfYakutskHasTwoDepths)
{
    const TemperatureEnvelope envelope = envelopeOf(realLogs("yakutsk/terva.csv", "Якутск"));
    EXPECT_EQ(envelope.depths, (QVector<double>{0.8, 3.2}));
    EXPECT_LT(envelope.warmest[0], 0.0) << "Januaries";
    EXPECT_EQ(envelope.thawDepth, TemperatureEnvelope::none);
    EXPECT_EQ(envelope.quietDepth, TemperatureEnvelope::none);
}
