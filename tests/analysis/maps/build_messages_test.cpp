// What is told of a build that made no map, or not the map asked for.
#include "analysis/maps/build_messages.h"

#include <gtest/gtest.h>

namespace {

using contour::BuildResult;
using contour::BuildStatus;

BuildResult resultOf(BuildStatus status, std::vector<int> without = {})
{
    BuildResult result;
    result.status = status;
    result.without = std::move(without);
    return result;
}

TEST(BuildMessage, nothingToTell)
{
    EXPECT_TRUE(buildMessage(resultOf(BuildStatus::Done)).isEmpty());
    EXPECT_TRUE(buildMessage(resultOf(BuildStatus::Cancelled)).isEmpty());
}

TEST(BuildMessage, whatWasNotLoaded)
{
    EXPECT_EQ(buildMessage(resultOf(BuildStatus::NoPoints)), QStringLiteral("Не загружены точки!"));
    EXPECT_EQ(buildMessage(resultOf(BuildStatus::NoBounds)), QStringLiteral("Не загружены границы!"));
}

TEST(BuildMessage, noMapNamesThePoints)
{
    EXPECT_EQ(buildMessage(resultOf(BuildStatus::FewPoints)),
              QStringLiteral("Карта не построена: нет ни одной точки."));
    EXPECT_EQ(buildMessage(resultOf(BuildStatus::FewPoints, {0, 2}), {"ТС-1", "ТС-2", "ТС-3"}),
              QStringLiteral("Карта не построена: нужно не меньше трёх точек, есть только ТС-1, ТС-3."));
    EXPECT_EQ(buildMessage(resultOf(BuildStatus::NoTriangle, {0, 1, 2}), {"ТС-1"}),
              QStringLiteral("Карта не построена: точки лежат на одной прямой или в одном месте: ТС-1, № 2, № 3."));
}

TEST(BuildMessage, longListsAreCut)
{
    BuildResult result = resultOf(BuildStatus::Done);
    for (int i = 0; i < 13; ++i)
        result.leftOut.push_back(i);
    EXPECT_EQ(buildMessage(result),
              QStringLiteral("Не учтены точки в одном месте с введёнными раньше: "
                             "№ 1, № 2, № 3, № 4, № 5, № 6, № 7, № 8, № 9, № 10 и ещё 3."));
}

TEST(BuildMessage, tenNamesAreTheWholeList)
{
    EXPECT_EQ(pointNames({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, {}),
              QStringLiteral("№ 1, № 2, № 3, № 4, № 5, № 6, № 7, № 8, № 9, № 10"));
}

TEST(BuildMessage, refusedGridAndPointsLeftOutAreTwoLines)
{
    BuildResult result = resultOf(BuildStatus::Done);
    result.gridRefused = true;
    result.leftOut = {4};
    EXPECT_EQ(buildMessage(result),
              QStringLiteral("Сетка IDW не построена: граница слишком узкая. Карта построена по точкам без сетки.\n"
                             "Не учтены точки в одном месте с введёнными раньше: № 5."));
}

} // namespace
