// What a map's form keeps and what it says of its points.
#include "analysis/maps/kept_number.h"
#include "analysis/maps/left_out_points.h"
#include "analysis/maps/point_remarks.h"

#include <gtest/gtest.h>

namespace {

MapPoint point(const char* name, double x, double y, double value)
{
    MapPoint made;
    made.name = QString::fromUtf8(name);
    made.x = x;
    made.y = y;
    made.value = value;
    made.valid = true;
    return made;
}

} // namespace

TEST(KeptNumber, StartsAtTheExactKeyAndShowsTwoDecimals)
{
    KeptNumber number;
    number.startAt(98.4567, {98.4567, 96.0});
    EXPECT_EQ(number.value(), 98.4567);
    EXPECT_EQ(number.shown(), 98.46);
    number.set(97.0);
    EXPECT_EQ(number.value(), 97.0);
    number.set(98.46);
    EXPECT_EQ(number.value(), 98.4567) << "what is shown of the start means the start";
}

TEST(KeptNumber, WhatTheUserSetStaysWhileItIsReached)
{
    KeptNumber number;
    number.startAt(1.0, {1.0, 3.0});
    number.startAt(0.5, {0.5, 4.0});
    EXPECT_EQ(number.value(), 0.5) << "nothing was set";
    number.set(2.5);
    number.startAt(1.0, {1.0, 3.0});
    EXPECT_EQ(number.value(), 2.5);
    number.startAt(5.0, {5.0, 9.0});
    EXPECT_EQ(number.value(), 5.0);
    number.startAt(98.0, {98.0, 2.5});
    EXPECT_EQ(number.value(), 2.5) << "the order of the keys does not matter, their ends belong to them";
    number.startAt(0.0, {});
    EXPECT_EQ(number.value(), 2.5);
}

TEST(KeptNumber, TheUserMaySetWhatNoKeyReaches)
{
    KeptNumber number;
    number.startAt(1.0, {1.0, 3.0});
    number.set(50.0);
    EXPECT_EQ(number.value(), 50.0);
    number.startAt(1.0, {1.0, 3.0});
    EXPECT_EQ(number.value(), 1.0);
}

TEST(LeftOutPoints, AreKnownByNameAndPlace)
{
    LeftOutPoints left;
    left.note(point("ТС.1", 1, 2, -1.0), false);
    EXPECT_TRUE(left.contains(point("ТС.1", 1, 2, -7.0))) << "another depth";
    EXPECT_FALSE(left.contains(point("ТС.1", 1, 3, -1.0)));
    EXPECT_FALSE(left.contains(point("ТС.2", 1, 2, -1.0)));
    left.note(point("ТС.1", 1, 2, -7.0), true);
    EXPECT_FALSE(left.contains(point("ТС.1", 1, 2, -1.0)));
}

TEST(PointRemarks, ThreePointsAtThreePlacesAreSilent)
{
    const PointRemarks remarks = remarksOn({point("а", 0, 0, 1), point("б", 9, 0, 1), point("в", 0, 9, 2)}, {0, 1, 2});
    EXPECT_EQ(remarks.text, QString());
    EXPECT_TRUE(remarks.marked.empty());
}

TEST(PointRemarks, FewPointsAreNamedAndMarked)
{
    const std::vector<MapPoint> points = {point("а", 0, 0, 1), point("б", 9, 0, 1), point("в", 0, 9, 2)};
    PointRemarks remarks = remarksOn(points, {0, 2});
    EXPECT_EQ(remarks.text, QStringLiteral("Выбрано меньше трёх точек: а, в."));
    EXPECT_EQ(remarks.marked, (std::set<size_t>{0, 2}));
    remarks = remarksOn(points, {});
    EXPECT_EQ(remarks.text, QStringLiteral("Не выбрано ни одной точки со значением."));
    EXPECT_TRUE(remarks.marked.empty());
}

TEST(PointRemarks, PointsAtOnePlaceWithOtherValuesAreNamedAndMarked)
{
    const std::vector<MapPoint> points = {point("а", 0, 0, 1), point("б", 9, 0, 1), point("в", 0, 0, 1),
                                          point("г", 9, 0, 4), point("д", 9, 1, 5), point("е", 9, 0, 6)};
    PointRemarks remarks = remarksOn(points, {0, 1, 2, 3, 4, 5});
    EXPECT_EQ(remarks.text, QStringLiteral("В одном месте с разными значениями (карта возьмёт первое): б, г, е."));
    EXPECT_EQ(remarks.marked, (std::set<size_t>{1, 3, 5}));
    remarks = remarksOn(points, {0, 1, 2, 4});
    EXPECT_EQ(remarks.text, QString()) << "one value at one place is no matter, and who is not used is not meant";
}

TEST(PointRemarks, OfManyPlacesTheFirstFiveAreNamed)
{
    std::vector<MapPoint> points;
    std::vector<size_t> used;
    for (int i = 0; i < 14; ++i) {
        used.push_back(points.size());
        points.push_back(point(i % 2 ? "б" : "а", i / 2, 0, i));
    }
    const PointRemarks remarks = remarksOn(points, used);
    EXPECT_TRUE(remarks.text.endsWith(QStringLiteral(": а, б; а, б; а, б; а, б; а, б; и ещё мест: 2.")))
        << remarks.text.toStdString();
    EXPECT_EQ(remarks.marked.size(), 14u);
}
