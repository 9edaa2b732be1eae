#include "hostkit/model_space.h"

#include "hostkit/console.h"
#include "hostkit/layers.h"
#include "support/element_drawing.h"
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

namespace {

class ModelSpace : public ::testing::Test {
protected:
    // A reference to the definition with these attributes.
    NcDbObjectId place(const QString& block, const TextMap& texts)
    {
        const NcDbObjectId definition =
            HostAccess::recordId(drawing.database(), drawing.database().blockTableId(), block);
        const NcDbObjectId id = appendToModelSpace(std::make_unique<NcDbBlockReference>(NcGePoint3d(), definition));
        const Opened<NcDbBlockReference> reference(id, kForWrite);
        for (auto it = texts.begin(); it != texts.end(); ++it) {
            const Made<NcDbAttribute> attribute(new NcDbAttribute);
            attribute->setTag(it.key());
            attribute->setTextString(it.value());
            reference->appendAttribute(attribute.get());
        }
        return id;
    }

    ElementDrawing drawing;
    ScriptedPrompts host;
};

} // namespace

TEST_F(ModelSpace, AppendedEntityIsClosedAndHasAnId)
{
    const NcDbObjectId id = appendToModelSpace(std::make_unique<NcDbPoint>(NcGePoint3d(1, 2, 3)));
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(HostAccess::objectAs<NcDbPoint>(id)->position(), NcGePoint3d(1, 2, 3));
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(ModelSpace, SpaceThatIsHeldElsewhereTakesNothing)
{
    const Opened<NcDbBlockTableRecord> held = openModelSpace(kForWrite);
    ASSERT_TRUE(held);
    EXPECT_TRUE(appendToModelSpace(std::make_unique<NcDbPoint>()).isNull());
}

TEST_F(ModelSpace, FindsTheFirstReferenceOfTheExactBlockTagAndText)
{
    drawing.addKind(2);
    drawing.addKind(3);
    place("ggs_def", {{"element_id", "7"}});
    place("ts_def", {{"element_id", "8"}, {"name", "7"}});
    const NcDbObjectId first = place("ts_def", {{"name", "x"}, {"element_id", "7"}});
    const NcDbObjectId second = place("ts_def", {{"element_id", "7"}});
    EXPECT_EQ(findBlockReference("ts_def", "element_id", "7"), first);
    EXPECT_TRUE(findBlockReference("ts_def", "element_id", "07").isNull());
    EXPECT_TRUE(findBlockReference("ts_def", "ELEMENT_ID", "7").isNull());
    EXPECT_TRUE(findBlockReference("TS_DEF", "element_id", "7").isNull());
    EXPECT_TRUE(findBlockReference("no_def", "element_id", "7").isNull());
    const Opened<NcDbBlockReference> reference(first, kForWrite);
    reference->erase();
    EXPECT_EQ(findBlockReference("ts_def", "element_id", "7"), second);
}

TEST_F(ModelSpace, PlainBlockOfTheNameIsFoundToo)
{
    ElementDrawing::addDefinition(drawing.database(), "ts_def", {"element_id"});
    const NcDbObjectId plain = place("ts_def", {{"element_id", "7"}});
    EXPECT_EQ(findBlockReference("ts_def", "element_id", "7"), plain);
}

TEST_F(ModelSpace, ReferenceWithoutTheAttributeIsNeverFound)
{
    ElementDrawing::addDefinition(drawing.database(), "ts_def", {});
    place("ts_def", {});
    EXPECT_TRUE(findBlockReference("ts_def", "element_id", "").isNull());
}

TEST_F(ModelSpace, LayersAreMadeOnceAndKeepTheirColour)
{
    EXPECT_TRUE(ensureLayer("L", 7));
    EXPECT_TRUE(ensureLayer("L", 3));
    const NcDbObjectId id = HostAccess::recordId(drawing.database(), drawing.database().layerTableId(), "L");
    EXPECT_EQ(HostAccess::objectAs<NcDbLayerTableRecord>(id)->color().colorIndex(), 7);
    EXPECT_FALSE(setLayerLocked("M", true));
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(ModelSpace, ConsoleTakesTextsAsTheyAre)
{
    say("100% %s %d €№ \n");
    EXPECT_EQ(host.console, "100% %s %d €№ \n");
}
