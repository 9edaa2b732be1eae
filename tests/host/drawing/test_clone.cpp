#include "drawing_fixture.h"

namespace {

// A block file's drawing: a dynamic block that holds another block, on layers of its own.
class Clone : public DrawingTest {
protected:
    void SetUp() override
    {
        DrawingTest::SetUp();
        ncdbHostApplicationServices()->setWorkingDatabase(&file);
        {
            NcDbLayerTable* table = nullptr;
            ASSERT_EQ(file.getSymbolTable(table, kForWrite), NcStatus::Ok);
            auto* layer = new NcDbLayerTableRecord;
            layer->setName(QStringLiteral("Знаки"));
            layer->setColor(NcCmColor::fromIndex(3));
            table->add(layer_, layer);
            layer->close();
            table->close();
        }
        inner = addBlockTo(file, QStringLiteral("inner"));
        circle = add(new NcDbCircle({}, NcGeVector3d::kZAxis, 1), inner);
        outer = addBlockTo(file, QStringLiteral("dm_def"));
        auto* drawn = new NcDbLine({}, {1, 0, 0});
        EXPECT_EQ(drawn->setLayer(QStringLiteral("Знаки")), NcStatus::Ok);
        line = add(drawn, outer);
        nested = add(new NcDbBlockReference({}, inner), outer);
        tag = addTag(outer, QStringLiteral("name"));
        auto definition = std::make_unique<DynamicDefinition>();
        definition->parameters = {{QStringLiteral("p"), 40, QStringLiteral("0"), {}}};
        DynamicBinding binding;
        binding.kind = DynamicBinding::Rotate;
        binding.entity = line.handle();
        binding.parameter = QStringLiteral("p");
        definition->bindings = {binding};
        HostAccess::dynamic(*HostAccess::objectAs<NcDbBlockTableRecord>(outer)) = std::move(definition);
        ncdbHostApplicationServices()->setWorkingDatabase(&drawing);
    }
    NcStatus clone(const NcDbObjectIdArray& ids,
                   NcDbDatabase::DuplicateRecords duplicates = NcDbDatabase::kIgnoreDuplicates)
    {
        return drawing.wblockCloneObjects(ids, drawing.blockTableId(), mapping, duplicates);
    }

    NcDbDatabase file;
    NcDbIdMapping mapping;
    NcDbObjectId inner, outer, circle, line, nested, tag, layer_;
};

TEST_F(Clone, BringsBlocksWithAllTheyReferTo)
{
    EXPECT_EQ(clone({outer}), NcStatus::Ok);
    const NcDbObjectId copy = mapping.cloneOf(outer);
    EXPECT_EQ(copy, blockNamed(QStringLiteral("dm_def")));
    EXPECT_EQ(copy.database(), &drawing);
    EXPECT_EQ(mapping.cloneOf(inner), blockNamed(QStringLiteral("inner")));
    EXPECT_EQ(read<NcDbBlockReference>(mapping.cloneOf(nested)).blockTableRecord(), mapping.cloneOf(inner));
    EXPECT_EQ(read<NcDbAttributeDefinition>(mapping.cloneOf(tag)).tag(), QStringLiteral("name"));
    const NcDbObjectId layer = HostAccess::recordId(drawing, drawing.layerTableId(), QStringLiteral("Знаки"));
    ASSERT_TRUE(layer.isValid());
    EXPECT_EQ(read<NcDbLayerTableRecord>(layer).color().colorIndex(), 3);
    EXPECT_TRUE(mapping.cloneOf(layer_) == layer);
    EXPECT_TRUE(mapping.cloneOf(modelSpace()).isNull());
    EXPECT_TRUE(audit(file).empty());
}

TEST_F(Clone, RulesOfADynamicBlockFollowTheirEntities)
{
    clone({outer, inner});
    const auto& definition = HostAccess::dynamic(read<NcDbBlockTableRecord>(mapping.cloneOf(outer)));
    ASSERT_TRUE(definition);
    ASSERT_EQ(definition->bindings.size(), 1u);
    EXPECT_EQ(definition->bindings[0].entity, mapping.cloneOf(line).handle());
}

TEST_F(Clone, ABlockOfTheNameIsLeftAsItIs)
{
    const NcDbObjectId mine = addBlock(QStringLiteral("DM_DEF"));
    EXPECT_EQ(clone({outer}), NcStatus::Ok);
    EXPECT_EQ(mapping.cloneOf(outer), mine);
    EXPECT_TRUE(HostAccess::entities(read<NcDbBlockTableRecord>(mine)).empty());
    EXPECT_TRUE(blockNamed(QStringLiteral("inner")).isNull()) << "nothing of it is needed";
}

TEST_F(Clone, ABlockOfTheNameIsReplacedWhenAsked)
{
    const NcDbObjectId mine = addBlock(QStringLiteral("dm_def"));
    const NcDbObjectId old = add(new NcDbPoint, mine);
    const NcDbObjectId placed = add(new NcDbBlockReference({}, mine));
    EXPECT_EQ(clone({outer}, NcDbDatabase::kReplaceDuplicates), NcStatus::Ok);
    EXPECT_EQ(mapping.cloneOf(outer), mine);
    EXPECT_TRUE(old.isErased());
    EXPECT_EQ(evaluatedEntities(read<NcDbBlockReference>(placed)).size(), 3u);
    EXPECT_TRUE(NcDbDynBlockReference(placed).isDynamicBlock());
}

TEST_F(Clone, CloningTwiceBringsNothingNew)
{
    clone({outer, inner});
    const size_t count = HostAccess::data(drawing).objects.size();
    NcDbIdMapping second;
    EXPECT_EQ(
        drawing.wblockCloneObjects({outer, inner}, drawing.blockTableId(), second, NcDbDatabase::kIgnoreDuplicates),
        NcStatus::Ok);
    EXPECT_EQ(HostAccess::data(drawing).objects.size(), count);
}

TEST_F(Clone, ReferencesBringTheirAttributesAndAreFound)
{
    ncdbHostApplicationServices()->setWorkingDatabase(&file);
    const NcDbObjectId space = HostAccess::data(file).modelSpace;
    const NcDbObjectId placed = add(new NcDbBlockReference({5, 5, 0}, outer), space);
    addAttribute(placed, QStringLiteral("name"), QStringLiteral("ДМ-9"));
    ncdbHostApplicationServices()->setWorkingDatabase(&drawing);
    EXPECT_EQ(drawing.wblockCloneObjects({placed}, modelSpace(), mapping, NcDbDatabase::kIgnoreDuplicates),
              NcStatus::Ok);
    EXPECT_EQ(drawing.findBlockReferences(QStringLiteral("dm_def"), QStringLiteral("name"), QStringLiteral("ДМ-9")),
              NcDbObjectIdArray{mapping.cloneOf(placed)});
}

TEST_F(Clone, HandlesOfTheOtherDrawingAreLeftBehind)
{
    NcObjectData& data = HostAccess::data(*HostAccess::object(line));
    data.foreignGroups = {{330, QStringLiteral("1F")}, {39, QStringLiteral("0.5")}};
    data.xdata = {{QStringLiteral("APP"), {{1000, QStringLiteral("t")}, {1005, QStringLiteral("1F")}}}};
    clone({outer});
    const NcObjectData& copy = HostAccess::data(*HostAccess::object(mapping.cloneOf(line)));
    EXPECT_EQ(copy.foreignGroups, (DxfGroups{{39, QStringLiteral("0.5")}}));
    EXPECT_EQ(copy.xdata[0].second.size(), 1u);
}

TEST_F(Clone, WhatDoesNotFitChangesNothing)
{
    const size_t count = HostAccess::data(drawing).objects.size();
    EXPECT_EQ(clone({outer, line}), NcStatus::InvalidInput) << "an entity is no block";
    EXPECT_EQ(clone({NcDbObjectId()}), NcStatus::InvalidInput);
    EXPECT_EQ(drawing.wblockCloneObjects({outer}, file.blockTableId(), mapping, NcDbDatabase::kIgnoreDuplicates),
              NcStatus::InvalidInput)
        << "the owner is the other drawing's";
    EXPECT_EQ(drawing.wblockCloneObjects({outer}, NcDbObjectId(), mapping, NcDbDatabase::kIgnoreDuplicates),
              NcStatus::InvalidInput);
    EXPECT_EQ(HostAccess::data(drawing).objects.size(), count);
}

TEST_F(Clone, DrawOrderGoesAlong)
{
    ncdbHostApplicationServices()->setWorkingDatabase(&file);
    change<NcDbBlockTableRecord>(outer, [&](NcDbBlockTableRecord& record) {
        NcDbSortentsTable* order = nullptr;
        ASSERT_EQ(record.getSortentsTable(order), NcStatus::Ok);
        EXPECT_EQ(order->moveToBottom({tag}), NcStatus::Ok);
        order->close();
    });
    clone({outer});
    const auto& copy = read<NcDbBlockTableRecord>(mapping.cloneOf(outer));
    EXPECT_EQ(read<NcDbSortentsTable>(HostAccess::sortents(copy)).getFullDrawOrder().front(), mapping.cloneOf(tag));
}

} // namespace
