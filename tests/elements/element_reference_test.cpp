// The record and its block reference in the drawing.
#include "elements/block_definitions.h"
#include "elements/element_block.h"
#include "elements/element_layers.h"
#include "hostkit/model_space.h"
#include "session/project_session.h"
#include "support/element_drawing.h"
#include "support/scripted_prompts.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

const StateColors colors = {{"exist", 5}, {"lost", 1}, {"old", 1}};
constexpr double quarterTurn = 1.5707963267948966;

class ElementReference : public ::testing::Test {
protected:
    ElementBlock sample(int kind)
    {
        ElementBlock element(kind, colors);
        for (QString& text : element.attributes)
            text = "текст";
        element.setAttribute("name", "Э-1");
        element.setAttribute("element_id", "42");
        element.x = 100;
        element.y = 200;
        element.z = 30;
        element.scale = 0.5;
        element.blockRotation = 1.25;
        element.setState("lost");
        for (auto it = element.dynProps.begin(); it != element.dynProps.end(); ++it)
            *it = element.allowedValues.contains(it.key()) ? element.allowedValues[it.key()].last() : "2.5";
        return element;
    }
    NcDbObjectId insert(const ElementBlock& element)
    {
        EXPECT_TRUE(element.insertBlock());
        return drawing.references().value(drawing.references().size() - 1);
    }
    QStringList layers()
    {
        QStringList names;
        auto* table = HostAccess::objectAs<NcDbLayerTable>(drawing.database().layerTableId());
        for (const NcDbObjectId& id : HostAccess::records(*table))
            names.append(HostAccess::objectAs<NcDbLayerTableRecord>(id)->getName());
        return names;
    }

    ElementDrawing drawing;
    ScriptedPrompts host;
};

class EveryBlock : public ElementReference, public ::testing::WithParamInterface<int> { };

} // namespace

TEST_P(EveryBlock, InsertPlacesTheBlockWithAllItsTexts)
{
    drawing.addKind(GetParam());
    const ElementBlock element = sample(GetParam());
    const NcDbObjectId id = insert(element);
    const NcDbBlockReference& reference = ElementDrawing::reference(id);
    EXPECT_EQ(reference.position(), NcGePoint3d(100, 200, 30));
    EXPECT_EQ(reference.colorIndex(), 1);
    EXPECT_EQ(reference.layer(), kinds()[size_t(GetParam())].layer);
    EXPECT_NEAR(reference.rotation(), 1.25, 1e-12);
    EXPECT_NEAR(reference.scaleFactors().sx, 0.5, 1e-12);
    EXPECT_NEAR(reference.scaleFactors().sy, 0.5, 1e-12);
    EXPECT_EQ(ElementDrawing::attributes(id), element.attributes);
    for (auto it = element.dynProps.begin(); it != element.dynProps.end(); ++it)
        EXPECT_EQ(ElementDrawing::dynProp(id, it.key()), it.value()) << it.key();
    EXPECT_EQ(ElementDrawing::dynProp(id, "Чужое"), "3");
    EXPECT_EQ(drawing.faults(), QStringList());
    EXPECT_EQ(host.console, "");
}

TEST_F(ElementReference, AttributesLookAsTheirDefinitions)
{
    drawing.addKind(0);
    auto* table = HostAccess::objectAs<NcDbBlockTable>(drawing.database().blockTableId());
    NcDbObjectId block;
    ASSERT_TRUE(isOk(table->getAt(kinds()[0].blockName, block)));
    int color = 30;
    QMap<QString, int> colors;
    for (const NcDbObjectId& id : HostAccess::entities(*HostAccess::objectAs<NcDbBlockTableRecord>(block))) {
        const Opened<NcDbAttributeDefinition> field(id, kForWrite);
        if (!field)
            continue;
        field->setColorIndex(color);
        field->setLayer("0");
        colors.insert(field->tag(), color++);
    }
    ASSERT_GT(colors.size(), 1);
    const NcDbObjectId id = insert(sample(0));
    QMap<QString, int> met;
    for (const NcDbObjectId& attribute : HostAccess::attributes(ElementDrawing::reference(id))) {
        const auto* found = HostAccess::objectAs<NcDbAttribute>(attribute);
        met.insert(found->tag(), found->colorIndex());
        EXPECT_EQ(found->layer(), "0") << "not on the block's own";
    }
    EXPECT_EQ(met, colors);
}

TEST_P(EveryBlock, WhatWasInsertedReadsBack)
{
    drawing.addKind(GetParam());
    const ElementBlock element = sample(GetParam());
    const ElementBlock back(insert(element), colors);
    EXPECT_EQ(back.kind, GetParam());
    EXPECT_EQ(back.blockName, element.blockName);
    EXPECT_EQ(back.group, element.group);
    EXPECT_EQ(back.attributes, element.attributes);
    EXPECT_EQ(back.dynProps, element.dynProps);
    EXPECT_EQ(back.allowedValues, element.allowedValues);
    EXPECT_EQ(back.x, 100);
    EXPECT_EQ(back.y, 200);
    EXPECT_EQ(back.z, 30);
    EXPECT_NEAR(back.scale, 0.5, 1e-12);
    EXPECT_NEAR(back.blockRotation, 1.25, 1e-12);
    EXPECT_EQ(back.colorIndex, 1);
    EXPECT_EQ(back.stateId, "lost"); // the first of the two in key order
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(EveryBlock, ApplyBringsThePresentBlockUpToDate)
{
    drawing.addKind(GetParam());
    const NcDbObjectId id = insert(ElementBlock(GetParam(), colors));
    const ElementBlock element = sample(GetParam());
    ASSERT_TRUE(element.applyToBlock(id));
    const ElementBlock back(id, colors);
    EXPECT_EQ(back.attributes, element.attributes);
    EXPECT_EQ(back.dynProps, element.dynProps);
    EXPECT_EQ(back.x, 100);
    EXPECT_EQ(back.z, 30);
    EXPECT_NEAR(back.scale, 0.5, 1e-12);
    EXPECT_NEAR(back.blockRotation, 1.25, 1e-12);
    EXPECT_EQ(back.colorIndex, 1);
    EXPECT_EQ(drawing.references().size(), 1);
    EXPECT_EQ(drawing.faults(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryBlock,
                         ::testing::Values(0, 2, 3, 5, 8, 9, 10, 11, 12, 13, 14, 15, 17, 18, 19, 20, 21));

TEST_F(ElementReference, InsertMakesTheLayers)
{
    drawing.addKind(0);
    EXPECT_FALSE(layers().contains("GMN_GEO"));
    insert(sample(0));
    for (const QString& layer : elementLayers())
        EXPECT_TRUE(layers().contains(layer)) << layer;
}

TEST_F(ElementReference, LayersAreMadeInOrderWithColourSevenAndOnlyWhereTheyLack)
{
    const QStringList before = layers();
    ensureLayers();
    EXPECT_EQ(layers().mid(before.size()), elementLayers());
    auto* table = HostAccess::objectAs<NcDbLayerTable>(drawing.database().layerTableId());
    for (const NcDbObjectId& id : HostAccess::records(*table))
        EXPECT_EQ(HostAccess::objectAs<NcDbLayerTableRecord>(id)->color().colorIndex(), 7);
    ensureLayers();
    EXPECT_EQ(layers().size(), before.size() + 7);
}

TEST_F(ElementReference, MissingDefinitionIsSaidAndNothingIsInserted)
{
    EXPECT_FALSE(sample(0).insertBlock());
    EXPECT_EQ(host.console, "\n Block dm_def not found in current AcDbDatabase\n");
    EXPECT_TRUE(drawing.references().isEmpty());
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(ElementReference, TagThatTheRecordLacksGetsAnEmptyText)
{
    ElementDrawing::addDefinition(drawing.database(), "dm_def", {"name", "element_id", "extra"});
    const NcDbObjectId id = insert(sample(0));
    EXPECT_EQ(ElementDrawing::attributes(id), (TextMap{{"name", "Э-1"}, {"element_id", "42"}, {"extra", ""}}));
}

TEST_F(ElementReference, DefinitionWithoutTheIdInsertsButIsNeverFound)
{
    ElementDrawing::addDefinition(drawing.database(), "dm_def", {"name"});
    insert(sample(0));
    EXPECT_TRUE(findBlockReference("dm_def", "element_id", "42").isNull());
    EXPECT_FALSE(findBlockReference("dm_def", "name", "Э-1").isNull());
}

TEST_F(ElementReference, ConstantAttributeIsNotCopied)
{
    drawing.addKind(0);
    const NcDbObjectId block = HostAccess::recordId(drawing.database(), drawing.database().blockTableId(), "dm_def");
    auto constant = std::make_unique<NcDbAttributeDefinition>();
    constant->setTag("fixed");
    constant->setConstant(true);
    HostAccess::addEntity(*HostAccess::objectAs<NcDbBlockTableRecord>(block), std::move(constant));
    EXPECT_FALSE(ElementDrawing::attributes(insert(sample(0))).contains("fixed"));
}

TEST_F(ElementReference, AttributesTakePlaceLengthAndVisibilityOfTheDefinition)
{
    drawing.addKind(0);
    ElementBlock element = sample(0);
    element.scale = 2;
    element.blockRotation = 0;
    const NcDbObjectId id = insert(element);
    int seen = 0;
    for (const NcDbObjectId& attributeId : HostAccess::attributes(ElementDrawing::reference(id))) {
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>(attributeId);
        EXPECT_EQ(attribute->fieldLength(), 25);
        EXPECT_EQ(attribute->isInvisible(), attribute->tag() == "element_id");
        EXPECT_NEAR(attribute->height(), 2.0, 1e-9); // 1.0 in the definition
        EXPECT_NEAR(attribute->position().x, 104.0, 1e-9);
        ++seen;
    }
    EXPECT_EQ(seen, 2);
}

TEST_F(ElementReference, FreshElementHasTheDefaultColour)
{
    drawing.addKind(2);
    const NcDbObjectId id = insert(ElementBlock(2, colors));
    EXPECT_EQ(ElementDrawing::reference(id).colorIndex(), 5);
}

TEST_F(ElementReference, TextThatIsNotAllowedLeavesTheProperty)
{
    drawing.addKind(0);
    ElementBlock element = sample(0);
    element.dynProps["Видимость1"] = "Выноска скрыта"; // one letter short of the block's own
    element.dynProps["Отраженное состояние1"] = "2";
    const NcDbObjectId id = insert(element);
    EXPECT_EQ(ElementDrawing::dynProp(id, "Видимость1"), "Выноска видна");
    EXPECT_EQ(ElementDrawing::dynProp(id, "Отраженное состояние1"), "0");
}

TEST_F(ElementReference, PropertiesOfAllTypesAreWritten)
{
    ElementDrawing::addDefinition(drawing.database(), "dm_def", {"name", "element_id"},
                                  {{"Длина полки", 90, "1", {}},
                                   {"Положение1 X", 70, "1", {}},
                                   {"Положение1 Y", 40, "1", {}},
                                   {"Угол1", 1, "a", {}},
                                   {"Отраженное состояние1", 70, "0", {}}});
    ElementBlock element = sample(0);
    element.dynProps["Длина полки"] = "70000";
    element.dynProps["Положение1 X"] = "-7";
    element.dynProps["Положение1 Y"] = "0.125";
    element.dynProps["Угол1"] = "text";
    element.dynProps["Отраженное состояние1"] = "1"; // list-valued, but the block has no list
    const NcDbObjectId id = insert(element);
    const ElementBlock back(id, colors);
    EXPECT_EQ(back.dynProps["Длина полки"], "70000");
    EXPECT_EQ(back.dynProps["Положение1 X"], "-7");
    EXPECT_EQ(back.dynProps["Положение1 Y"], "0.125");
    EXPECT_EQ(back.dynProps["Угол1"], "text");
    EXPECT_EQ(back.dynProps["Отраженное состояние1"], "1");
}

TEST_F(ElementReference, RealPropertiesAreReadWithSixDigits)
{
    drawing.addKind(0);
    ElementBlock element = sample(0);
    element.dynProps["Длина полки"] = "12.3456789";
    element.dynProps["Положение1 X"] = "1234567.8";
    element.dynProps["Положение1 Y"] = "0.00001";
    const ElementBlock back(insert(element), colors);
    EXPECT_EQ(back.dynProps["Длина полки"], "12.3457");
    EXPECT_EQ(back.dynProps["Положение1 X"], "1.23457e+06");
    EXPECT_EQ(back.dynProps["Положение1 Y"], "1e-05");
}

TEST_F(ElementReference, ColourWithoutAStateReadsAsExist)
{
    drawing.addKind(0);
    ElementBlock element = sample(0);
    element.colorIndex = 77;
    const ElementBlock back(insert(element), colors);
    EXPECT_EQ(back.colorIndex, 77);
    EXPECT_EQ(back.stateId, "exist");
}

TEST_F(ElementReference, PlainBlockOfTheNameHasNoKind)
{
    ElementDrawing::addDefinition(drawing.database(), "dm_def", {"name", "element_id"});
    const ElementBlock back(insert(sample(0)), colors);
    EXPECT_EQ(back.kind, noKind);
    EXPECT_TRUE(back.attributes.isEmpty());
    EXPECT_TRUE(back.dynProps.isEmpty());
}

TEST_F(ElementReference, DynamicBlockOutsideTheRegistryHasNoKind)
{
    ElementDrawing::addDefinition(drawing.database(), "chair", {"name"}, {{"Width", 40, "1", {}}});
    ElementBlock element = sample(0);
    element.blockName = "chair";
    EXPECT_EQ(ElementBlock(insert(element), colors).kind, noKind);
}

TEST_F(ElementReference, OtherEntitiesAndNullIdsHaveNoKind)
{
    EXPECT_EQ(ElementBlock(NcDbObjectId(), colors).kind, noKind);
    const NcDbObjectId point = appendToModelSpace(std::make_unique<NcDbPoint>());
    EXPECT_EQ(ElementBlock(point, colors).kind, noKind);
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(ElementReference, MarkerBlockHasAKindItsOwnAttributesAndNoFamily)
{
    ElementDrawing::addDefinition(drawing.database(), "pk_def", {"Z", "ELEMENT_ID", "name"}, {{"a", 40, "1", {}}});
    ElementBlock element(16, colors);
    element.setAttribute("Z", "7");
    const ElementBlock back(insert(element), colors);
    EXPECT_EQ(back.kind, 16);
    EXPECT_EQ(back.attributes, (TextMap{{"Z", "7"}, {"ELEMENT_ID", "0"}}));
    EXPECT_EQ(back.family(), nullptr);
    EXPECT_EQ(back.group, "0");
}

TEST_F(ElementReference, PileHasAKindAndEmptyMaps)
{
    ElementDrawing::addDefinition(drawing.database(), "sv_def", {"element_id"}, {{"sv_type", 40, "1", {}}});
    ElementBlock element(6, colors);
    const ElementBlock back(insert(element), colors);
    EXPECT_EQ(back.kind, 6);
    EXPECT_TRUE(back.attributes.isEmpty());
    EXPECT_TRUE(back.dynProps.isEmpty());
}

TEST_F(ElementReference, ApplyLeavesAttributesThatTheRecordLacks)
{
    ElementDrawing::addDefinition(drawing.database(), "dm_def", {"name", "extra"}, {{"Угол1", 40, "0", {}}});
    const NcDbObjectId id = insert(sample(0));
    {
        const auto* attribute =
            HostAccess::objectAs<NcDbAttribute>(HostAccess::attributes(ElementDrawing::reference(id))[1]);
        ASSERT_EQ(attribute->tag(), "extra");
        const Opened<NcDbAttribute> opened(attribute->objectId(), kForWrite);
        opened->setTextString("рукой");
    }
    sample(0).applyToBlock(id);
    EXPECT_EQ(ElementDrawing::attributes(id).value("extra"), "рукой");
}

TEST_F(ElementReference, ApplyToNothingFails)
{
    EXPECT_FALSE(sample(0).applyToBlock(NcDbObjectId()));
    drawing.addKind(0);
    const NcDbObjectId id = insert(sample(0));
    {
        const Opened<NcDbBlockReference> reference(id, kForWrite);
        reference->erase();
    }
    EXPECT_FALSE(sample(0).applyToBlock(id));
}

TEST_F(ElementReference, TransformationsKeepAttributesInStep)
{
    drawing.addKind(0);
    ElementBlock element = sample(0);
    element.scale = 1;
    element.blockRotation = 0;
    const NcDbObjectId id = insert(element);
    element.scale = 3;
    element.blockRotation = quarterTurn;
    element.x = 0;
    element.y = 0;
    element.z = 0;
    element.applyToBlock(id);
    const auto* first = HostAccess::objectAs<NcDbAttribute>(HostAccess::attributes(ElementDrawing::reference(id))[0]);
    // (2, 0) in the definition, tripled and turned.
    EXPECT_NEAR(first->position().x, 0.0, 1e-9);
    EXPECT_NEAR(first->position().y, 6.0, 1e-9);
    EXPECT_NEAR(first->rotation(), quarterTurn, 1e-9);
    EXPECT_NEAR(first->height(), 3.0, 1e-9);
}

TEST_F(ElementReference, PresentScaleOfZeroIsLeftAlone)
{
    drawing.addKind(0);
    const NcDbObjectId id = insert(sample(0));
    {
        const Opened<NcDbBlockReference> reference(id, kForWrite);
        reference->setScaleFactors({0, 0, 0});
    }
    ElementBlock element = sample(0);
    element.blockRotation = 0.5;
    element.applyScaleAndRotation(id);
    EXPECT_EQ(ElementDrawing::reference(id).scaleFactors().sx, 0.0);
    EXPECT_EQ(ElementDrawing::reference(id).position(), NcGePoint3d(100, 200, 30));
}

TEST_F(ElementReference, ScaleOfZeroInTheRecordIsAppliedAndCannotBeUndone)
{
    drawing.addKind(0);
    const NcDbObjectId id = insert(sample(0));
    ElementBlock element = sample(0);
    element.scale = 0;
    element.applyScaleAndRotation(id);
    EXPECT_EQ(ElementDrawing::reference(id).scaleFactors().sx, 0.0);
    element.scale = 1;
    element.applyScaleAndRotation(id);
    EXPECT_EQ(ElementDrawing::reference(id).scaleFactors().sx, 0.0);
    EXPECT_EQ(ElementDrawing::reference(id).position(), NcGePoint3d(100, 200, 30));
}

TEST_F(ElementReference, PointDoesNotCreepOverManyTurns)
{
    drawing.addKind(0);
    ElementBlock element = sample(0);
    element.x = 512345.6789;
    element.y = 7654321.1234;
    const NcDbObjectId id = insert(element);
    for (int turn = 0; turn < 200; ++turn) {
        element.blockRotation = 0.1 * (turn % 60);
        element.scale = 0.5 + 0.01 * (turn % 7);
        element.applyScaleAndRotation(id);
    }
    EXPECT_EQ(ElementDrawing::reference(id).position(), NcGePoint3d(512345.6789, 7654321.1234, 30));
}

TEST_F(ElementReference, ReplaceInheritsScaleAndRotationFromTheDrawing)
{
    drawing.addKind(0);
    drawing.addKind(12);
    const NcDbObjectId old = insert(sample(0));
    ElementBlock element(12, colors);
    element.setAttribute("element_id", "42");
    element.x = 1;
    element.scale = 9;
    element.blockRotation = 3;
    ASSERT_TRUE(element.replaceBlock(old));
    EXPECT_TRUE(old.isErased());
    ASSERT_EQ(drawing.references().size(), 1);
    const ElementBlock back(drawing.references()[0], colors);
    EXPECT_EQ(back.kind, 12);
    EXPECT_EQ(back.x, 1);
    EXPECT_NEAR(back.scale, 0.5, 1e-12);
    EXPECT_NEAR(back.blockRotation, 1.25, 1e-12);
    EXPECT_NEAR(element.scale, 0.5, 1e-12);
    EXPECT_NEAR(element.blockRotation, 1.25, 1e-12);
}

TEST_F(ElementReference, ReplaceOfNothingInsertsUnturned)
{
    drawing.addKind(0);
    ElementBlock element = sample(0);
    ASSERT_TRUE(element.replaceBlock(NcDbObjectId()));
    EXPECT_EQ(element.scale, 1.0);
    EXPECT_EQ(element.blockRotation, 0.0);
    EXPECT_EQ(ElementDrawing::reference(drawing.references()[0]).rotation(), 0.0);
}

namespace {

// Block files in a folder of their own.
class BlockDefinitions : public ElementReference {
protected:
    BlockDefinitions() : moduleDir_(session().moduleDir)
    {
        session().moduleDir = folder.path() + "/";
        QDir(folder.path()).mkdir("blocks");
    }
    ~BlockDefinitions() override { session().moduleDir = moduleDir_; }

    QString path(const QString& stem) const { return folder.path() + "/blocks/" + stem + ".dwg"; }
    void write(int kind)
    {
        NcDbDatabase file;
        ElementDrawing::addKind(file, kind);
        ASSERT_TRUE(isOk(file.saveAs(path(kinds()[size_t(kind)].typeId))));
    }
    bool has(const QString& block)
    {
        return !HostAccess::recordId(drawing.database(), drawing.database().blockTableId(), block).isNull();
    }

    QTemporaryDir folder;

private:
    QString moduleDir_;
};

QStringList stemsInOrder()
{
    return {"dm",  "dm_gl", "dm_pv", "dm_t", "ggs",   "pk",     "rp_gl", "rp_gr", "rp_st", "rp_vr",
            "skv", "sv",    "ts",    "tsg",  "tsg_g", "tsg_vs", "tss_h", "tss_p", "tt"};
}

} // namespace

TEST_F(BlockDefinitions, AllNineteenAreLoadedInTheOrderOfTheirNames)
{
    QString expected;
    for (int kind = 0; kind < kindCount; ++kind) {
        if (!kinds()[size_t(kind)].blockName.isEmpty())
            write(kind);
    }
    // Names end in "_def", so "dm_def" stands before "dm_gl_def".
    for (const QString& stem : stemsInOrder())
        expected += "Загрузка " + path(stem) + " завершена\n";
    EXPECT_TRUE(ensureBlockDefinitions());
    EXPECT_EQ(host.console, expected);
    for (const Kind& kind : kinds())
        EXPECT_TRUE(kind.blockName.isEmpty() || has(kind.blockName)) << kind.blockName;
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(BlockDefinitions, WhatTheDrawingHasIsNotLoadedAgain)
{
    drawing.addAllKinds();
    EXPECT_TRUE(ensureBlockDefinitions());
    EXPECT_EQ(host.console, "");
}

TEST_F(BlockDefinitions, MissingFilesAreReportedAndPassedOver)
{
    write(2);
    EXPECT_TRUE(ensureBlockDefinitions());
    EXPECT_TRUE(has("ts_def"));
    EXPECT_FALSE(has("dm_def"));
    EXPECT_TRUE(
        host.console.startsWith("Неизвестные формат файла " + path("dm") + "\nОшибка загрузки " + path("dm") + " \n"));
    EXPECT_TRUE(host.console.contains("Загрузка " + path("ts") + " завершена\n"));
    EXPECT_EQ(host.console.count("Неизвестные формат файла "), 18);
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_F(BlockDefinitions, FileThatIsNoDrawingIsReported)
{
    drawing.addAllKinds();
    NcDbDatabase empty;
    ncdbHostApplicationServices()->setWorkingDatabase(&empty);
    QFile broken(path("dm"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("это не чертёж");
    broken.close();
    EXPECT_TRUE(ensureBlockDefinitions());
    EXPECT_TRUE(host.console.startsWith("Неизвестные формат файла " + path("dm") + "\n"));
    ncdbHostApplicationServices()->setWorkingDatabase(&drawing.database());
}

TEST_F(BlockDefinitions, LoadedBlockInsertsAsADynamicOne)
{
    write(0);
    ensureBlockDefinitions();
    const ElementBlock element = sample(0);
    const ElementBlock back(insert(element), colors);
    EXPECT_EQ(back.kind, 0);
    EXPECT_EQ(back.dynProps, element.dynProps);
}

TEST_F(BlockDefinitions, PathIsTurnedToForwardSlashes)
{
    session().moduleDir = "C:\\Terva\\";
    ensureBlockDefinitions();
    EXPECT_TRUE(host.console.contains("C:/Terva/blocks/dm.dwg"));
    EXPECT_FALSE(host.console.contains('\\'));
}
