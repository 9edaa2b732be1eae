// Both synchronisations with the layers of the families locked, frozen, or not there at all; rows of no number.
#include "hostkit/layers.h"
#include "sync_fixture.h"

#include <cmath>

namespace {

class LockedDrawing : public EveryFamily {
protected:
    const QString& layer() const { return kinds()[size_t(firstKind())].layer; }
    NcDbLayerTableRecord* layerRecord()
    {
        const NcDbObjectId id = HostAccess::recordId(drawing.database(), drawing.database().layerTableId(), layer());
        return HostAccess::objectAs<NcDbLayerTableRecord>(id);
    }
    bool isLocked() { return layerRecord()->isLocked(); }
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

TEST_P(LockedDrawing, WithAFrozenLayerIsWorkedOnLikeAnyOther)
{
    addRow(family(), 31, "М1");
    EXPECT_EQ(layerRecord(), nullptr) << "a drawing without layers gets them";
    toDrawing(family().mask);
    ASSERT_NE(layerRecord(), nullptr);
    Opened<NcDbLayerTableRecord>(layerRecord()->objectId(), kForWrite)->setIsFrozen(true);
    database->exec("update " + family().elements + " set x = 150 where element_id = 31");
    toDrawing(family().mask);
    ASSERT_EQ(drawing.references().size(), 1);
    EXPECT_EQ(ElementDrawing::reference(drawing.references()[0]).position().x, 150);
    database->exec("update " + family().elements + " set x = 100 where element_id = 31");
    toDatabase("Drawing");
    EXPECT_EQ(cell(family(), 31, "x"), "150");
    EXPECT_TRUE(layerRecord()->isFrozen());
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(LockedDrawing, NoNumberOfARowIsDrawn)
{
    addRow(family(), 31, "М1");
    for (const char* number : {"NaN", "Infinity", "-Infinity"}) {
        database->exec(fill("update %1 set x = '%2', block_rotation = '%2', scale = '%2'", family().elements, number));
        toDrawing(family().mask);
        EXPECT_TRUE(host.console.contains("место элемента М1 с ID=31 в базе данных не число")) << number;
        for (const NcDbObjectId& id : entities()) {
            if (const auto* circle = HostAccess::objectAs<NcDbCircle>(id)) {
                EXPECT_TRUE(std::isfinite(circle->center().x)) << number;
            }
        }
        for (const NcDbObjectId& id : drawing.references()) {
            const NcDbBlockReference& block = ElementDrawing::reference(id);
            EXPECT_TRUE(std::isfinite(block.position().x)) << number;
            EXPECT_TRUE(std::isfinite(block.rotation())) << number;
            EXPECT_TRUE(std::isfinite(block.scaleFactors().sx)) << number;
        }
        EXPECT_EQ(drawing.faults(), QStringList()) << number;
    }
}

INSTANTIATE_TEST_SUITE_P(Families, LockedDrawing, allFamilyKeys, familyName<::testing::TestParamInfo<FamilyKey>>);
