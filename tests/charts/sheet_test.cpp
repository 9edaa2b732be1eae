// Every chart on real measurements and on edge cases, as pictures: kept where
// TERVA_CHART_SHEET says, for docs/charts and for looking at. Of each picture
// the record is asked whether anything covers anything.
#include "charts/picture_rules.h"
#include "charts/real_series.h"
#include "charts/sample_charts.h"
#include "support/message_count.h"

#include <gtest/gtest.h>

namespace {

class Sheet : public ::testing::TestWithParam<SampleChart> { };

TEST_P(Sheet, NothingIsCutOffAndTheKeyCoversNoData)
{
    const SampleChart& sample = GetParam();
    const MessageCount messages;
    const DrawnChart drawn = sample.draw();
    EXPECT_EQ(messages.texts(), QStringList());
    ASSERT_FALSE(drawn.picture.isNull());
    const QString folder = qEnvironmentVariable("TERVA_CHART_SHEET");
    if (!folder.isEmpty()) {
        EXPECT_TRUE(drawn.picture.save(QDir(folder).filePath(QString::fromUtf8(sample.name) + ".png")));
    }
    EXPECT_EQ(drawn.record.white, sample.white);
    expectInsidePicture(drawn.record);
    expectKeyFreeOfData(drawn.record);
    expectTickLabelsApart(drawn.record);
    if (sample.labelsApart)
        expectLabelsApart(drawn.record);
}

INSTANTIATE_TEST_SUITE_P(Charts, Sheet, ::testing::ValuesIn(sampleCharts()), [](const auto& info) {
    return QString::fromUtf8(info.param.name).replace('-', '_').toStdString();
});

} // namespace
