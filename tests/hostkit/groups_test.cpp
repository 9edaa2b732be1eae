#include "hostkit/groups.h"

#include "base/text.h"
#include "hostkit/model_space.h"
#include "support/element_drawing.h"

#include <gtest/gtest.h>

namespace {

class Groups : public ::testing::Test {
protected:
    static NcDbObjectIdArray points(int count)
    {
        NcDbObjectIdArray ids;
        for (int i = 0; i < count; ++i)
            ids.push_back(appendToModelSpace(std::make_unique<NcDbPoint>(NcGePoint3d(i, 0, 0))));
        return ids;
    }

    ElementDrawing drawing;
};

} // namespace

TEST_F(Groups, AreNamedByTheSecondsInBase36)
{
    const qint64 before = secondsNow();
    const NcDbObjectIdArray ids = points(2);
    EXPECT_FALSE(groupEntities("TERVA_VALS_", ids).isNull());
    const QStringList names = groupNames("TERVA_VALS_");
    ASSERT_EQ(names.size(), 1);
    QStringList possible;
    for (qint64 second = before; second <= secondsNow(); ++second)
        possible << "TERVA_VALS_" + base36(second);
    EXPECT_TRUE(possible.contains(names[0])) << names[0];
    EXPECT_EQ(membersOfGroup(names[0]), ids);
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(Groups, WithinOneSecondAreSoManyGroups)
{
    QVector<NcDbObjectIdArray> members;
    for (int i = 0; i < 5; ++i) {
        members.append(points(i + 1));
        groupEntities("G_", members.last());
    }
    const QStringList names = groupNames("G_");
    ASSERT_EQ(names.size(), 5);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(membersOfGroup(names[i]), members[i]) << i;
    EXPECT_EQ(groupNames("H_"), QStringList());
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(Groups, OfNothingAreNotMade)
{
    EXPECT_TRUE(groupEntities("G_", {}).isNull());
    EXPECT_EQ(groupNames("G_"), QStringList());
    EXPECT_TRUE(membersOfGroup("G_1").empty());
}
