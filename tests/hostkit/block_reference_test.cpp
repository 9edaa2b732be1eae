// Names of references, and the list of what stands in model space.
#include "hostkit/block_reference.h"
#include "hostkit/model_space.h"

#include <drawing/host_access.h>

#include <gtest/gtest.h>

namespace {

class BlockReferences : public ::testing::Test {
protected:
    BlockReferences()
    {
        ncdbHostApplicationServices()->setWorkingDatabase(&drawing);
        auto record = std::make_unique<NcDbBlockTableRecord>();
        auto* table = HostAccess::objectAs<NcDbBlockTable>(drawing.blockTableId());
        definition = HostAccess::addRecord(*table, std::move(record), "Знак");
        line = appendToModelSpace(std::make_unique<NcDbLine>(NcGePoint3d(), NcGePoint3d(1, 0, 0)));
        block = appendToModelSpace(std::make_unique<NcDbBlockReference>(NcGePoint3d(), definition));
    }
    ~BlockReferences() override { ncdbHostApplicationServices()->setWorkingDatabase(nullptr); }

    NcDbDatabase drawing;
    NcDbObjectId definition, line, block;
};

} // namespace

TEST_F(BlockReferences, GoByTheirDefinitionsName)
{
    EXPECT_EQ(definitionNameOf(block), "Знак");
    EXPECT_EQ(definitionNameOf(line), QString());
    EXPECT_EQ(definitionNameOf(NcDbObjectId()), QString());
    EXPECT_TRUE(isBlockReference(block));
    EXPECT_FALSE(isBlockReference(line));
}

TEST_F(BlockReferences, AndAllElseAreListedInTheOrderOfCreation)
{
    EXPECT_EQ(*entitiesOfModelSpace(), (NcDbObjectIdArray{line, block}));
    Opened<NcDbEntity>(line, kForWrite)->erase();
    EXPECT_EQ(*entitiesOfModelSpace(), NcDbObjectIdArray{block});
    EXPECT_EQ(HostAccess::openObjectCount(), 0);
    const Opened<NcDbBlockTableRecord> held = openModelSpace(kForWrite);
    EXPECT_FALSE(entitiesOfModelSpace());
}
