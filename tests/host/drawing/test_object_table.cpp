// Looking objects up, and the selection that is looked through once.
#include <drawing/application.h>
#include <drawing/host_access.h>
#include <drawing/undo.h>

#include <gtest/gtest.h>

namespace {

constexpr quint64 kFarHandle = Q_UINT64_C(0xFFFFFFFFFF);

TEST(ObjectTableTest, ObjectsAreFoundByHandlesNearAndFar)
{
    ObjectTable table;
    NcDbObject* near = new NcDbPoint;
    NcDbObject* edge = new NcDbPoint;
    NcDbObject* far = new NcDbPoint;
    table.put(kFarHandle, std::unique_ptr<NcDbObject>(far));
    table.put(512, std::unique_ptr<NcDbObject>(edge));
    table.put(1, std::unique_ptr<NcDbObject>(near));
    EXPECT_EQ(table.find(1), near);
    EXPECT_EQ(table.find(512), edge);
    EXPECT_EQ(table.find(kFarHandle), far);
    for (const quint64 handle : {quint64(0), quint64(2), quint64(511), quint64(513), quint64(1u << 26), kFarHandle - 1})
        EXPECT_EQ(table.find(handle), nullptr) << handle;
    std::vector<quint64> order;
    for (const auto& entry : table)
        order.push_back(entry.first);
    EXPECT_EQ(order, (std::vector<quint64>{1, 512, kFarHandle}));
}

TEST(ObjectTableTest, WhatIsTakenOrReplacedIsGivenBack)
{
    ObjectTable table;
    NcDbObject* first = new NcDbPoint;
    NcDbObject* second = new NcDbPoint;
    table.put(7, std::unique_ptr<NcDbObject>(first));
    const std::unique_ptr<NcDbObject> replaced = table.put(7, std::unique_ptr<NcDbObject>(second));
    EXPECT_EQ(replaced.get(), first);
    EXPECT_EQ(table.find(7), second);
    const std::unique_ptr<NcDbObject> taken = table.take(7);
    EXPECT_EQ(taken.get(), second);
    EXPECT_EQ(table.find(7), nullptr);
    EXPECT_EQ(table.take(7), nullptr);
    EXPECT_EQ(table.size(), 0u);
}

TEST(ObjectTableTest, AHandleThatChangesIsFoundByItsNewNameAlone)
{
    NcDbDatabase drawing;
    auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(drawing.currentSpaceId());
    const NcDbObjectId id = HostAccess::addEntity(*space, std::make_unique<NcDbPoint>());
    NcDbObject* point = HostAccess::object(id);
    ASSERT_TRUE(HostAccess::setHandle(*point, kFarHandle));
    EXPECT_EQ(HostAccess::object(id), nullptr);
    EXPECT_EQ(HostAccess::object({&drawing, kFarHandle}), point);
}

class ImpliedSelection : public ::testing::Test {
protected:
    void SetUp() override
    {
        closeAllDocuments();
        openStartDocument();
        drawing = ncdbHostApplicationServices()->workingDatabase();
        keepJournal(*drawing);
        NcDbBlockTableRecord* space = nullptr;
        ncdbOpenObject(space, drawing->currentSpaceId(), kForWrite);
        for (int i = 0; i < 5; ++i) {
            auto* point = new NcDbPoint({double(i), 0, 0});
            NcDbObjectId id;
            space->appendNcDbEntity(id, point);
            point->close();
            points.push_back(id);
        }
        space->close();
        journalOf(*drawing)->closeStep(QStringLiteral("POINTS"));
    }
    void TearDown() override { closeAllDocuments(); }

    static NcDbObjectIdArray selected()
    {
        NcSelectionSet set;
        ncedSSGet(QStringLiteral("_I"), {}, set);
        return set.ids;
    }
    static void erase(NcDbObjectId id)
    {
        NcDbEntity* entity = nullptr;
        ncdbOpenObject(entity, id, kForWrite);
        entity->erase();
        entity->close();
    }

    NcDbDatabase* drawing = nullptr;
    NcDbObjectIdArray points;
};

TEST_F(ImpliedSelection, WhatIsErasedLaterIsLeftOutAndComesBackWithUndo)
{
    setPickfirst(points);
    EXPECT_EQ(selected(), points);
    EXPECT_EQ(selected(), points) << "also when it was looked through before";
    erase(points[1]);
    journalOf(*drawing)->closeStep(QStringLiteral("ERASE"));
    EXPECT_EQ(selected(), (NcDbObjectIdArray{points[0], points[2], points[3], points[4]}));
    journalOf(*drawing)->undo();
    EXPECT_EQ(selected(), points);
    EXPECT_FALSE(journalOf(*drawing)->redo().isNull());
    EXPECT_EQ(selected().size(), 4u);
}

TEST_F(ImpliedSelection, AnotherSelectionIsLookedThroughAnew)
{
    setPickfirst({points[0]});
    EXPECT_EQ(selected().size(), 1u);
    setPickfirst({points[1], drawing->layerTableId(), NcDbObjectId()});
    EXPECT_EQ(selected(), NcDbObjectIdArray{points[1]}) << "a table is no entity";
    NcSelectionSet set;
    EXPECT_NE(ncedSSGet(QStringLiteral("_I"), {{0, QStringLiteral("CIRCLE")}}, set), kPromptNormal);
}

TEST_F(ImpliedSelection, WhatLeavesWithItsDrawingIsLeftOut)
{
    auto other = std::make_unique<NcDbDatabase>();
    auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(other->currentSpaceId());
    const NcDbObjectId foreign = HostAccess::addEntity(*space, std::make_unique<NcDbPoint>());
    setPickfirst({points[0], foreign});
    EXPECT_EQ(selected().size(), 2u);
    other.reset();
    EXPECT_EQ(selected(), NcDbObjectIdArray{points[0]});
}

} // namespace
