// Locked layers are opened for a change of the module and locked again.
#include "hostkit/layers.h"
#include "hostkit/model_space.h"
#include "support/element_drawing.h"

#include <gtest/gtest.h>

namespace {

class LockedLayers : public ::testing::Test {
protected:
    LockedLayers() { ensureLayer("L", 3); }
    NcDbLayerTableRecord& layer(const QString& name = "L")
    {
        const NcDbObjectId id = HostAccess::recordId(drawing.database(), drawing.database().layerTableId(), name);
        return *HostAccess::objectAs<NcDbLayerTableRecord>(id);
    }
    static std::unique_ptr<NcDbCircle> circle()
    {
        auto made = std::make_unique<NcDbCircle>(NcGePoint3d(), NcGeVector3d(0, 0, 1), 1.0);
        made->setLayer("L");
        return made;
    }

    ElementDrawing drawing;
};

} // namespace

TEST_F(LockedLayers, AreLockedAgainAtTheEndOfTheScope)
{
    setLayerLocked("L", true);
    {
        const LayerUnlock outer("L");
        EXPECT_TRUE(outer);
        EXPECT_FALSE(layer().isLocked());
        {
            const LayerUnlock inner("L");
            EXPECT_TRUE(inner);
        }
        EXPECT_FALSE(layer().isLocked()) << "an inner scope leaves it to the outer one";
    }
    EXPECT_TRUE(layer().isLocked());
}

TEST_F(LockedLayers, OthersStayUnlocked)
{
    {
        const LayerUnlock unlock("L");
        EXPECT_TRUE(unlock);
    }
    EXPECT_FALSE(layer().isLocked());
    EXPECT_FALSE(LayerUnlock("нет"));
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(LockedLayers, TakeANewEntity)
{
    auto fresh = circle();
    setLayerLocked("L", true);
    const NcDbObjectId id = appendToModelSpace(std::move(fresh));
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(layerOf(id), "L");
    EXPECT_TRUE(layer().isLocked());
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(LockedLayers, TakeNothingWhileTheLayerIsHeldElsewhere)
{
    auto fresh = circle();
    setLayerLocked("L", true);
    {
        const Opened<NcDbLayerTableRecord> held(layer().objectId(), kForRead);
        EXPECT_TRUE(appendToModelSpace(std::move(fresh)).isNull());
    }
    EXPECT_TRUE(layer().isLocked());
    EXPECT_EQ(HostAccess::openObjectCount(), 0);
}

TEST_F(LockedLayers, GiveTheirEntitiesUp)
{
    const NcDbObjectId id = appendToModelSpace(circle());
    setLayerLocked("L", true);
    EXPECT_TRUE(eraseEntity(id));
    EXPECT_TRUE(id.isErased());
    EXPECT_TRUE(layer().isLocked());
    EXPECT_FALSE(eraseEntity(id)) << "it is gone already";
    EXPECT_FALSE(eraseEntity({}));
}

TEST_F(LockedLayers, AnEntityThatIsHeldElsewhereStays)
{
    const NcDbObjectId id = appendToModelSpace(circle());
    const Opened<NcDbEntity> held(id, kForRead);
    EXPECT_FALSE(eraseEntity(id));
    EXPECT_FALSE(id.isErased());
}

TEST_F(LockedLayers, OfTheDrawingsCurrentLayerToo)
{
    EXPECT_EQ(currentLayer(), "0");
    drawing.database().setClayer(layer().objectId());
    EXPECT_EQ(currentLayer(), "L");
    setLayerLocked("L", true);
    auto point = std::make_unique<NcDbPoint>(NcGePoint3d(1, 2, 3));
    point->setDatabaseDefaults(&drawing.database());
    const NcDbObjectId id = appendToCurrentSpace(std::move(point));
    EXPECT_EQ(layerOf(id), "L");
    EXPECT_TRUE(layer().isLocked());
}
