// Drawings spoilt on purpose, each in one way.
#include "drawing_fixture.h"

#include <algorithm>

namespace {

class Audit : public DrawingTest {
protected:
    void SetUp() override
    {
        DrawingTest::SetUp();
        checkSoundness = false;
        block = addBlock(QStringLiteral("b"));
        addTag(block, QStringLiteral("t"));
        line = add(new NcDbLine);
        reference = insert(block, QStringLiteral("t"), QStringLiteral("v"));
        ASSERT_TRUE(audit(drawing).empty());
    }
    template <class T>
    T& raw(NcDbObjectId id)
    {
        return *HostAccess::objectAs<T>(id);
    }
    void expectOnly(AuditFinding::Rule rule)
    {
        const std::vector<AuditFinding> findings = audit(drawing);
        EXPECT_FALSE(findings.empty());
        for (const AuditFinding& finding : findings)
            EXPECT_EQ(finding.rule, rule) << finding.text.toStdString();
    }
    bool names(AuditFinding::Rule rule)
    {
        const std::vector<AuditFinding> findings = audit(drawing);
        return std::any_of(findings.begin(), findings.end(), [&](const AuditFinding& finding) {
            return finding.rule == rule && !finding.text.isEmpty();
        });
    }
    NcDbObjectId missing() { return NcDbObjectId(&drawing, 0xABCDEF); }

    NcDbObjectId block, line, reference;
};

TEST_F(Audit, WrongHandles)
{
    HostAccess::data(drawing).handleSeed = 1;
    expectOnly(AuditFinding::WrongHandle);
}

TEST_F(Audit, MissingTables)
{
    HostAccess::data(drawing).currentSpace = missing();
    expectOnly(AuditFinding::MissingTable);
}

TEST_F(Audit, DoubledAndEmptyNames)
{
    auto& table = raw<NcDbSymbolTable>(drawing.layerTableId());
    const NcDbObjectId id = HostAccess::addRecord(table, std::make_unique<NcDbLayerTableRecord>(), QStringLiteral("0"));
    expectOnly(AuditFinding::DoubledName);
    HostAccess::setName(raw<NcDbLayerTableRecord>(id), QString());
    expectOnly(AuditFinding::EmptyName);
}

TEST_F(Audit, RecordsThatAreNotThere)
{
    HostAccess::records(raw<NcDbSymbolTable>(drawing.ucsTableId())).push_back(missing());
    expectOnly(AuditFinding::MissingRecord);
}

TEST_F(Audit, DanglingAndDoubledMembers)
{
    HostAccess::entities(raw<NcDbBlockTableRecord>(modelSpace())).push_back(missing());
    expectOnly(AuditFinding::MissingEntity);
    HostAccess::entities(raw<NcDbBlockTableRecord>(modelSpace())).back() = line;
    expectOnly(AuditFinding::MissingEntity);
}

TEST_F(Audit, EntitiesThatNobodyLists)
{
    HostAccess::entities(raw<NcDbBlockTableRecord>(modelSpace()))
        .erase(HostAccess::entities(raw<NcDbBlockTableRecord>(modelSpace())).begin());
    expectOnly(AuditFinding::MissingOwner);
}

TEST_F(Audit, MissingLayers)
{
    HostAccess::layer(raw<NcDbLine>(line)) = QStringLiteral("нет");
    expectOnly(AuditFinding::MissingLayer);
}

TEST_F(Audit, MissingBlocks)
{
    HostAccess::definition(raw<NcDbBlockReference>(reference)) = missing();
    HostAccess::touch(raw<NcDbBlockReference>(reference));
    expectOnly(AuditFinding::MissingBlock);
}

TEST_F(Audit, ErasedBlocksInUse)
{
    erase(block);
    EXPECT_TRUE(names(AuditFinding::MissingBlock));
}

TEST_F(Audit, BlocksInThemselves)
{
    const NcDbObjectId other = addBlock(QStringLiteral("c"));
    add(new NcDbBlockReference({}, block), other);
    EXPECT_TRUE(audit(drawing).empty());
    add(new NcDbBlockReference({}, other), block);
    expectOnly(AuditFinding::BlockInItself);
}

TEST_F(Audit, AttributesWithoutDefinition)
{
    addAttribute(reference, QStringLiteral("чужой"), QString());
    expectOnly(AuditFinding::AttributeWithoutDefinition);
}

TEST_F(Audit, UnknownDynamicValues)
{
    HostAccess::dynamicValues(raw<NcDbBlockReference>(reference))
        .emplace_back(QStringLiteral("p"), QStringLiteral("1"));
    expectOnly(AuditFinding::DynamicProperty);
}

TEST_F(Audit, RulesOfNothing)
{
    auto definition = std::make_unique<DynamicDefinition>();
    definition->parameters = {{QStringLiteral("p"), 40, QStringLiteral("0"), {}}};
    DynamicBinding binding;
    binding.parameter = QStringLiteral("p");
    binding.entity = line.handle();
    definition->bindings = {binding};
    HostAccess::dynamic(raw<NcDbBlockTableRecord>(block)) = std::move(definition);
    expectOnly(AuditFinding::DynamicProperty);
}

TEST_F(Audit, EmptyGroupsAndMissingMembers)
{
    auto group = std::make_unique<NcDbGroup>();
    NcDbGroup& kept = *group;
    HostAccess::adopt(drawing, std::move(group), HostAccess::data(drawing).groupDictionary);
    expectOnly(AuditFinding::EmptyGroup);
    HostAccess::members(kept) = {line};
    EXPECT_TRUE(audit(drawing).empty());
    HostAccess::members(kept) = {line, missing()};
    expectOnly(AuditFinding::MissingGroupMember);
}

TEST_F(Audit, DrawOrdersOfOtherBlocks)
{
    auto order = std::make_unique<NcDbSortentsTable>();
    HostAccess::block(*order) = block;
    HostAccess::order(*order) = {line};
    HostAccess::adopt(drawing, std::move(order), block);
    expectOnly(AuditFinding::DrawOrder);
}

TEST_F(Audit, NumbersThatAreNone)
{
    HostAccess::end(raw<NcDbLine>(line)).x = std::nan("");
    expectOnly(AuditFinding::BadNumber);
}

TEST_F(Audit, EmptyHatches)
{
    add(new NcDbHatch);
    expectOnly(AuditFinding::EmptyHatch);
}

TEST_F(Audit, AStaleIndex)
{
    HostAccess::data(drawing).index.clear();
    expectOnly(AuditFinding::StaleIndex);
}

TEST_F(Audit, ErasedObjectsAreNobodysConcern)
{
    const NcDbObjectId hatch = add(new NcDbHatch);
    erase(hatch);
    EXPECT_TRUE(audit(drawing).empty());
}

} // namespace
