// References with dynamic properties and tables, which a file holds as blocks.
#include "audited.h"

#include <drawing/host_access.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class ReferenceFile : public ::testing::Test {
protected:
    void SetUp() override
    {
        auto& table = *HostAccess::objectAs<NcDbBlockTable>(drawing.blockTableId());
        definition = HostAccess::addRecord(table, std::make_unique<NcDbBlockTableRecord>(), QStringLiteral("ts_def"));
        auto& block = *HostAccess::objectAs<NcDbBlockTableRecord>(definition);
        const NcDbObjectId line =
            HostAccess::addEntity(block, std::make_unique<NcDbLine>(NcGePoint3d(), NcGePoint3d(1, 0, 0)));
        auto rules = std::make_unique<DynamicDefinition>();
        rules->parameters = {{QStringLiteral("Длина полки"), 40, QStringLiteral("1"), {}}};
        DynamicBinding length;
        length.kind = DynamicBinding::Length;
        length.entity = line.handle();
        length.parameter = QStringLiteral("Длина полки");
        rules->bindings = {length};
        HostAccess::dynamic(block) = std::move(rules);
    }

    NcDbObjectId add(const QString& value)
    {
        auto reference = std::make_unique<NcDbBlockReference>(NcGePoint3d(10, 20, 0), definition);
        if (!value.isNull())
            HostAccess::dynamicValues(*reference).push_back({QStringLiteral("Длина полки"), value});
        return HostAccess::addEntity(model(drawing), std::move(reference));
    }

    static NcDbBlockTableRecord& model(NcDbDatabase& database)
    {
        return *HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::data(database).modelSpace);
    }

    QByteArray save()
    {
        EXPECT_EQ(drawing.saveAs(path()), NcStatus::Ok);
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QString path() const { return folder.filePath(QStringLiteral("drawing.dxf")); }

    QTemporaryDir folder;
    NcDbDatabase drawing;
    NcDbObjectId definition;
};

int blockCount(const NcDbDatabase& database)
{
    return int(HostAccess::records(*HostAccess::objectAs<NcDbBlockTable>(database.blockTableId())).size());
}

} // namespace

// A file writes carets and characters below the blank as pairs; a block's name that is not read back so grew at every
// save.
TEST_F(ReferenceFile, namesOfBlocksWithCaretsStayAsTheyAre)
{
    const QString name = QStringLiteral("план^ A^M\u0001");
    auto& table = *HostAccess::objectAs<NcDbBlockTable>(drawing.blockTableId());
    const NcDbObjectId block = HostAccess::addRecord(table, std::make_unique<NcDbBlockTableRecord>(), name);
    const NcDbObjectId id =
        HostAccess::addEntity(model(drawing), std::make_unique<NcDbBlockReference>(NcGePoint3d(1, 2, 0), block));
    save();
    NcDbDatabase read;
    ASSERT_EQ(read.readDwgFile(path()), NcStatus::Ok);
    EXPECT_EQ(HostAccess::recordId(read, read.blockTableId(), name).handle(), block.handle());
    const auto* reference = HostAccess::objectAs<NcDbBlockReference>({&read, id.handle()});
    ASSERT_NE(reference, nullptr);
    EXPECT_EQ(reference->blockTableRecord().handle(), block.handle());
}

TEST_F(ReferenceFile, defaultValuesPointToTheDefinition)
{
    add(QString());
    add(QStringLiteral("1.0"));
    EXPECT_FALSE(save().contains("*U"));
}

TEST_F(ReferenceFile, equalValuesShareOneCopy)
{
    add(QStringLiteral("5"));
    add(QStringLiteral("5"));
    add(QStringLiteral("7.5"));
    const QByteArray text = save();
    EXPECT_TRUE(text.contains("*U1"));
    EXPECT_TRUE(text.contains("*U2"));
    EXPECT_FALSE(text.contains("*U3"));
    // The evaluated end of the line.
    EXPECT_TRUE(text.contains("\n 11\n7.5\n"));
    expectSound({path()});
}

TEST_F(ReferenceFile, copiesBecomeReferencesOfTheDefinitionAgain)
{
    const NcDbObjectId id = add(QStringLiteral("5"));
    save();
    NcDbDatabase read;
    ASSERT_EQ(read.readDwgFile(path()), NcStatus::Ok);
    EXPECT_EQ(blockCount(read), 3);
    const auto* reference = HostAccess::objectAs<NcDbBlockReference>({&read, id.handle()});
    ASSERT_NE(reference, nullptr);
    EXPECT_EQ(reference->blockTableRecord().handle(), definition.handle());
    EXPECT_EQ(dynamicValue(*reference, QStringLiteral("Длина полки")), QStringLiteral("5"));
}

TEST_F(ReferenceFile, copyThatAnotherProgramUsesItselfStays)
{
    add(QStringLiteral("5"));
    QByteArray text = save();
    // Another reference to the copy, without the extension data.
    const int end = text.indexOf("\n  0\nENDSEC\n", text.indexOf("ENTITIES"));
    text.insert(end + 1,
                "  0\nINSERT\n  5\nFFF0\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockReference\n  2\n*U1\n 10\n0.0\n "
                "20\n0.0\n 30\n0.0\n");
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    NcDbDatabase read;
    ASSERT_EQ(read.readDwgFile(path()), NcStatus::Ok);
    EXPECT_EQ(blockCount(read), 4);
    const auto* reference = HostAccess::objectAs<NcDbBlockReference>({&read, 0xFFF0});
    ASSERT_NE(reference, nullptr);
    const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(reference->blockTableRecord());
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(block->getName(), QStringLiteral("*U1"));
}

TEST_F(ReferenceFile, tableIsShownByLinesAndTexts)
{
    auto table = std::make_unique<NcDbTable>();
    table->setSize(2, 1);
    table->setTextString(0, 0, QStringLiteral("Температура"));
    HostAccess::direction(*table) = {0, 1, 0};
    const NcDbObjectId id = HostAccess::addEntity(model(drawing), std::move(table));
    const QByteArray text = save();
    EXPECT_TRUE(text.contains("*T1"));
    const int blocks = text.indexOf("BLOCKS\n"), entities = text.indexOf("ENTITIES\n");
    EXPECT_TRUE(text.mid(blocks, entities - blocks).contains("\n  1\nТемпература\n"));
    expectSound({path()});
    NcDbDatabase read;
    ASSERT_EQ(read.readDwgFile(path()), NcStatus::Ok);
    const auto* found = HostAccess::objectAs<NcDbTable>({&read, id.handle()});
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->textString(0, 0), QStringLiteral("Температура"));
    EXPECT_EQ(found->direction(), NcGeVector3d(0, 1, 0));
    EXPECT_EQ(blockCount(read), 3);
}

// Extension data beside an entity may take 16 kilobytes at most.
TEST_F(ReferenceFile, longTableStandsInARecordOfItsOwn)
{
    auto table = std::make_unique<NcDbTable>();
    table->setSize(120, 6);
    for (int row = 0; row < 120; ++row)
        table->setTextString(row, row % 6, QStringLiteral("Строка таблицы %1 «длинная»").arg(row));
    const NcDbObjectId id = HostAccess::addEntity(model(drawing), std::move(table));
    const QByteArray text = save();
    EXPECT_TRUE(text.contains("TERVA_DATA"));
    const int entities = text.indexOf("\nENTITIES\n");
    const int data = text.indexOf("\n1001\nTERVA\n", entities);
    EXPECT_GT(data, 0);
    EXPECT_LT(text.indexOf("\n  0\n", data) - data, 500);
    expectSound({path()});
    NcDbDatabase read;
    ASSERT_EQ(read.readDwgFile(path()), NcStatus::Ok);
    const auto* found = HostAccess::objectAs<NcDbTable>({&read, id.handle()});
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->textString(119, 5), QStringLiteral("Строка таблицы 119 «длинная»"));
    EXPECT_EQ(blockCount(read), 3);
    ASSERT_EQ(read.saveAs(path()), NcStatus::Ok);
    QFile again(path());
    ASSERT_TRUE(again.open(QIODevice::ReadOnly));
    EXPECT_EQ(again.readAll().count("TERVA_DATA"), 1);
}

TEST_F(ReferenceFile, emptyGroupIsNotWritten)
{
    auto& dictionary = *HostAccess::objectAs<NcDbDictionary>(HostAccess::data(drawing).groupDictionary);
    const NcDbObjectId id = HostAccess::adopt(drawing, std::make_unique<NcDbGroup>(), dictionary.objectId());
    HostAccess::entries(dictionary).emplace_back(QStringLiteral("TERVA_VALS_1"), id);
    EXPECT_FALSE(save().contains("TERVA_VALS_1"));
    expectSound({path()});
}
