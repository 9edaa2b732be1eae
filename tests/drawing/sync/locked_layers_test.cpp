// Both synchronisations with the layers of the families locked.
#include "hostkit/layers.h"
#include "sync_fixture.h"

namespace {

class LockedDrawing : public EveryFamily {
protected:
    const QString& layer() const { return kinds()[size_t(firstKind())].layer; }
    bool isLocked()
    {
        const NcDbObjectId id = HostAccess::recordId(drawing.database(), drawing.database().layerTableId(), layer());
        return HostAccess::objectAs<NcDbLayerTableRecord>(id)->isLocked();
    }
};

} // namespace

TEST_P(LockedDrawing, HasOneBlockARowHoweverOftenItIsBrought)
{
    addRow(family(), 31, "М1");
    for (int run = 0; run < 3; ++run) {
        toDrawing(family().mask);
        setLayerLocked(layer(), true);
        ASSERT_EQ(drawing.references().size(), 1) << run;
        EXPECT_EQ(ElementDrawing::reference(drawing.references()[0]).layer(), layer()) << run;
    }
    EXPECT_TRUE(isLocked());
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(LockedDrawing, HasABlockOfAnotherKindReplaced)
{
    if (firstKind() == lastKind())
        GTEST_SKIP() << "a family of one kind";
    addRow(family(), 31, "М1");
    addBlock(lastKind(), 31, "М1");
    setLayerLocked(layer(), true);
    toDrawing(family().mask);
    toDrawing(family().mask);
    ASSERT_EQ(drawing.references().size(), 1);
    EXPECT_EQ(ElementBlock(drawing.references()[0]).kind, firstKind());
    EXPECT_TRUE(isLocked());
}

TEST_P(LockedDrawing, SaysWhatItCannotChange)
{
    addRow(family(), 31, "М1");
    const NcDbObjectId id = addBlock(firstKind(), 31, "М1", 5, 6);
    const Opened<NcDbBlockReference> held(id, kForRead);
    toDrawing(family().mask);
    EXPECT_TRUE(
        host.console.endsWith("\nОшибка: блок " + kinds()[size_t(firstKind())].blockName + " с ID=31 не изменен\n"))
        << host.console;
}

INSTANTIATE_TEST_SUITE_P(Families, LockedDrawing, allFamilyKeys, familyName<::testing::TestParamInfo<FamilyKey>>);
