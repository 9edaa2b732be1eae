// Blocks of elements on layers that are locked, and what the drawing refuses.
#include "elements/element_block.h"
#include "elements/element_layers.h"
#include "hostkit/layers.h"
#include "hostkit/model_space.h"
#include "support/element_drawing.h"
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

namespace {

class ElementLayers : public ::testing::Test {
protected:
    ElementLayers()
    {
        drawing.addKind(0);
        ensureLayers();
        ensureLayer("ЧУЖОЙ", 3);
    }
    static ElementBlock mark(double x = 0)
    {
        ElementBlock element(0, StateColors());
        element.setAttribute("element_id", "42");
        element.setAttribute("name", "М");
        element.x = x;
        return element;
    }
    NcDbObjectId inserted()
    {
        EXPECT_TRUE(mark().insertBlock());
        return drawing.references().last();
    }
    NcDbLayerTableRecord& layer(const QString& name)
    {
        const NcDbObjectId id = HostAccess::recordId(drawing.database(), drawing.database().layerTableId(), name);
        return *HostAccess::objectAs<NcDbLayerTableRecord>(id);
    }

    ElementDrawing drawing;
    ScriptedPrompts host;
    const QString own = "GMN_DM";
};

} // namespace

TEST_F(ElementLayers, ALockedLayerTakesANewBlockAndIsLockedAgain)
{
    setLayerLocked(own, true);
    const NcDbObjectId id = inserted();
    EXPECT_EQ(ElementDrawing::reference(id).layer(), own);
    EXPECT_EQ(ElementDrawing::attributes(id).value("element_id"), "42");
    EXPECT_TRUE(layer(own).isLocked());
    EXPECT_EQ(host.console, "");
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(ElementLayers, ABlockGoesFromOneLockedLayerToAnother)
{
    const NcDbObjectId id = inserted();
    HostAccess::layer(*HostAccess::objectAs<NcDbEntity>(id)) = "ЧУЖОЙ";
    setLayerLocked(own, true);
    setLayerLocked("ЧУЖОЙ", true);
    EXPECT_TRUE(mark(50).applyToBlock(id));
    EXPECT_EQ(ElementDrawing::reference(id).layer(), own);
    EXPECT_EQ(ElementDrawing::reference(id).position().x, 50);
    EXPECT_TRUE(layer(own).isLocked());
    EXPECT_TRUE(layer("ЧУЖОЙ").isLocked());
    EXPECT_EQ(host.console, "");
}

TEST_F(ElementLayers, ABlockOnALockedLayerIsReplacedByOne)
{
    const NcDbObjectId old = inserted();
    setLayerLocked(own, true);
    EXPECT_TRUE(mark(50).replaceBlock(old));
    EXPECT_TRUE(old.isErased());
    ASSERT_EQ(drawing.references().size(), 1);
    EXPECT_EQ(ElementDrawing::reference(drawing.references()[0]).position().x, 50);
    EXPECT_TRUE(layer(own).isLocked());
}

TEST_F(ElementLayers, ABlockThatCannotBeErasedGetsNoSecondBesideIt)
{
    const NcDbObjectId old = inserted();
    setLayerLocked(own, true);
    const Opened<NcDbLayerTableRecord> held(layer(own).objectId(), kForRead);
    EXPECT_FALSE(mark(50).replaceBlock(old));
    EXPECT_EQ(drawing.references(), QVector<NcDbObjectId>{old});
    EXPECT_EQ(host.console, "\nОшибка: прежний блок с ID=42 не удален, блок dm_def не вставлен\n");
}

TEST_F(ElementLayers, ABlockThatIsGoneIsReplacedAllTheSame)
{
    const NcDbObjectId old = inserted();
    ASSERT_TRUE(eraseEntity(old));
    ElementBlock element = mark(50);
    element.scale = 3;
    EXPECT_TRUE(element.replaceBlock(old));
    ASSERT_EQ(drawing.references().size(), 1);
    EXPECT_EQ(ElementDrawing::reference(drawing.references()[0]).scaleFactors().sx, 1);
}

TEST_F(ElementLayers, WhatTheDrawingDoesNotTakeIsTold)
{
    {
        const Opened<NcDbBlockTableRecord> held = openModelSpace(kForRead);
        EXPECT_FALSE(mark().insertBlock());
    }
    EXPECT_EQ(host.console, "\nОшибка: блок dm_def с ID=42 не добавлен в чертеж\n");
    const NcDbObjectId id = inserted();
    HostAccess::layer(*HostAccess::objectAs<NcDbEntity>(id)) = "ЧУЖОЙ";
    host.console.clear();
    setLayerLocked(own, true);
    const Opened<NcDbLayerTableRecord> held(layer(own).objectId(), kForRead);
    EXPECT_TRUE(mark(50).applyToBlock(id));
    EXPECT_EQ(host.console, "\nОшибка: блок dm_def с ID=42 остался на прежнем слое\n");
    EXPECT_EQ(ElementDrawing::reference(id).position().x, 50);
}

TEST_F(ElementLayers, AttributesTakeTheLooksOfTheirDefinitions)
{
    auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(
        HostAccess::recordId(drawing.database(), drawing.database().blockTableId(), "dm_def"));
    for (const NcDbObjectId& id : HostAccess::entities(*block)) {
        if (auto* field = HostAccess::objectAs<NcDbAttributeDefinition>(id)) {
            const Opened<NcDbAttributeDefinition> opened(id, kForWrite);
            opened->setColorIndex(4);
            opened->setLinetype("DASHED");
            opened->setLayer("ЧУЖОЙ");
            ASSERT_FALSE(field->isConstant());
        }
    }
    const NcDbObjectIdArray attributes = HostAccess::attributes(ElementDrawing::reference(inserted()));
    ASSERT_EQ(attributes.size(), 2U);
    for (const NcDbObjectId& id : attributes) {
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
        EXPECT_EQ(attribute->colorIndex(), 4) << attribute->tag();
        EXPECT_EQ(attribute->linetype(), "DASHED") << attribute->tag();
        EXPECT_EQ(attribute->layer(), "ЧУЖОЙ") << attribute->tag();
    }
}
