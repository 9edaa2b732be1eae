// What other programs look at first: the order of entities, the first view.
#include <drawing/host_access.h>
#include <dxf/drawing_file.h>

#include <gtest/gtest.h>

namespace {

class FileOrder : public ::testing::Test {
protected:
    NcDbObjectId add(NcDbEntity* entity)
    {
        NcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(ncdbOpenObject(space, drawing.currentSpaceId(), kForWrite), NcStatus::Ok);
        NcDbObjectId id;
        EXPECT_EQ(space->appendNcDbEntity(id, entity), NcStatus::Ok);
        entity->close();
        space->close();
        return id;
    }
    NcDbObjectId addHatch()
    {
        auto* hatch = new NcDbHatch;
        hatch->appendLoop(NcDbHatch::kExternal, {{0, 0}, {4, 0}, {4, 4}}, {0, 0, 0});
        hatch->evaluateHatch();
        return add(hatch);
    }
    void toBottom(NcDbObjectId id)
    {
        NcDbBlockTableRecord* space = nullptr;
        NcDbSortentsTable* order = nullptr;
        ASSERT_EQ(ncdbOpenObject(space, drawing.currentSpaceId(), kForWrite), NcStatus::Ok);
        ASSERT_EQ(space->getSortentsTable(order), NcStatus::Ok);
        EXPECT_EQ(order->moveToBottom({id}), NcStatus::Ok);
        order->close();
        space->close();
    }
    QByteArray entities()
    {
        const QByteArray file = drawingBytes(drawing);
        const int from =
            file.indexOf("\nENTITIES\r\n") < 0 ? file.indexOf("\nENTITIES\n") : file.indexOf("\nENTITIES\r\n");
        return file.mid(from, file.indexOf("ENDSEC", from) - from);
    }
    const NcDbViewportTableRecord& viewOf(NcDbDatabase& database)
    {
        return *HostAccess::objectAs<NcDbViewportTableRecord>(
            HostAccess::recordId(database, database.viewportTableId(), QStringLiteral("*Active")));
    }
    void reread(NcDbDatabase& database)
    {
        HostAccess::beginLoading(database);
        EXPECT_EQ(readDrawingBytes(database, drawingBytes(drawing)), NcStatus::Ok);
        HostAccess::finishLoading(database);
    }

    NcDbDatabase drawing;
};

} // namespace

TEST_F(FileOrder, WhatLiesBelowIsWrittenFirst)
{
    add(new NcDbLine({0, 0, 0}, {10, 0, 0}));
    const NcDbObjectId hatch = addHatch();
    EXPECT_LT(entities().indexOf("LINE"), entities().indexOf("HATCH"));
    toBottom(hatch);
    EXPECT_LT(entities().indexOf("HATCH"), entities().indexOf("AcDbLine"));
    NcDbDatabase read(false);
    reread(read);
    const auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(read.currentSpaceId());
    ASSERT_EQ(HostAccess::entities(*space).size(), 2u);
    EXPECT_NE(HostAccess::objectAs<NcDbHatch>(HostAccess::entities(*space)[0]), nullptr);
}

TEST_F(FileOrder, AViewOfNothingOpensOnAllThatThereIs)
{
    add(new NcDbLine({330000, 5080000, 0}, {330100, 5080040, 0}));
    NcDbDatabase read(false);
    reread(read);
    EXPECT_NEAR(viewOf(read).centerPoint().x, 330050.0, 1e-6);
    EXPECT_NEAR(viewOf(read).centerPoint().y, 5080020.0, 1e-6);
    EXPECT_GE(viewOf(read).width(), 100.0);
    EXPECT_GE(viewOf(read).height(), 40.0);
    EXPECT_LT(viewOf(read).width(), 200.0);
}

TEST_F(FileOrder, AViewOfSomethingStays)
{
    add(new NcDbLine({0, 0, 0}, {10, 0, 0}));
    add(new NcDbLine({330000, 5080000, 0}, {330100, 5080040, 0}));
    NcDbDatabase read(false);
    reread(read);
    EXPECT_EQ(viewOf(read).centerPoint().x, viewOf(drawing).centerPoint().x);
    EXPECT_EQ(viewOf(read).height(), viewOf(drawing).height());
}
