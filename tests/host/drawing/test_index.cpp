// The index behind findBlockReferences against a plain walk of model space.
#include "drawing_fixture.h"

#include <random>

namespace {

class Index : public DrawingTest {
protected:
    // What the index stands for: a walk from the first entity on.
    NcDbObjectIdArray walk(const QString& blockName, const QString& tag, const QString& value)
    {
        NcDbObjectIdArray found;
        const std::unique_ptr<NcDbBlockTableRecordIterator> iterator(
            read<NcDbBlockTableRecord>(modelSpace()).newIterator());
        for (; !iterator->done(); iterator->step()) {
            NcDbObjectId id;
            iterator->getEntityId(id);
            const auto* reference = HostAccess::objectAs<NcDbBlockReference>(id);
            const NcDbObjectId definition = NcDbDynBlockReference(id).dynamicBlockTableRecord();
            if (!reference || definition.isNull() || definition.isErased()
                || read<NcDbBlockTableRecord>(definition).getName() != blockName)
                continue;
            if (tag.isEmpty() || hasAttribute(*reference, tag, value))
                found.push_back(id);
        }
        return found;
    }
    bool hasAttribute(const NcDbBlockReference& reference, const QString& tag, const QString& value)
    {
        const std::unique_ptr<NcDbObjectIterator> attributes(reference.attributeIterator());
        for (; !attributes->done(); attributes->step()) {
            const auto& attribute = read<NcDbAttribute>(attributes->objectId());
            if (attribute.tag() == tag && attribute.textString() == value)
                return true;
        }
        return false;
    }
};

TEST_F(Index, ComparesNamesTagsAndTextsExactly)
{
    const NcDbObjectId block = addBlock(QStringLiteral("ts_def"));
    addTag(block, QStringLiteral("element_id"));
    const NcDbObjectId id = insert(block, QStringLiteral("element_id"), QStringLiteral("17"));
    EXPECT_EQ(drawing.findBlockReferences(QStringLiteral("ts_def"), QStringLiteral("element_id"), QStringLiteral("17")),
              NcDbObjectIdArray{id});
    for (const auto& other : {QStringList{"TS_DEF", "element_id", "17"}, QStringList{"ts_def", "ELEMENT_ID", "17"},
                              QStringList{"ts_def", "element_id", "17 "}, QStringList{"ts_def", "element_id", "1"}})
        EXPECT_TRUE(drawing.findBlockReferences(other[0], other[1], other[2]).empty()) << other.join(' ').toStdString();
}

TEST_F(Index, OnlyModelSpaceIsSearched)
{
    const NcDbObjectId block = addBlock(QStringLiteral("a")), outer = addBlock(QStringLiteral("outer"));
    addTag(block, QStringLiteral("t"));
    const NcDbObjectId nested = add(new NcDbBlockReference({}, block), outer);
    const NcDbObjectId paper = add(new NcDbBlockReference({}, block), blockNamed(QStringLiteral("*Paper_Space")));
    addAttribute(nested, QStringLiteral("t"), QStringLiteral("v"));
    addAttribute(paper, QStringLiteral("t"), QStringLiteral("v"));
    EXPECT_TRUE(drawing.findBlockReferences(QStringLiteral("a"), QStringLiteral("t"), QStringLiteral("v")).empty());
}

TEST_F(Index, FollowsARenamedBlock)
{
    const NcDbObjectId block = addBlock(QStringLiteral("old"));
    addTag(block, QStringLiteral("t"));
    const NcDbObjectId id = insert(block, QStringLiteral("t"), QStringLiteral("v"));
    change<NcDbBlockTableRecord>(block, [](NcDbBlockTableRecord& record) { record.setName(QStringLiteral("new")); });
    EXPECT_TRUE(drawing.findBlockReferences(QStringLiteral("old"), QStringLiteral("t"), QStringLiteral("v")).empty());
    EXPECT_EQ(drawing.findBlockReferences(QStringLiteral("new"), QStringLiteral("t"), QStringLiteral("v")),
              NcDbObjectIdArray{id});
}

TEST_F(Index, IsBuiltAnewAfterLoading)
{
    const NcDbObjectId block = addBlock(QStringLiteral("a"));
    addTag(block, QStringLiteral("t"));
    HostAccess::beginLoading(drawing);
    const NcDbObjectId id = HostAccess::addEntity(*HostAccess::objectAs<NcDbBlockTableRecord>(modelSpace()),
                                                  std::make_unique<NcDbBlockReference>(NcGePoint3d(), block), 0x500);
    auto attribute = std::make_unique<NcDbAttribute>();
    HostAccess::tag(*attribute) = QStringLiteral("t");
    HostAccess::text(*attribute) = QStringLiteral("v");
    HostAccess::addAttribute(*HostAccess::objectAs<NcDbBlockReference>(id), std::move(attribute), 0x501);
    EXPECT_TRUE(drawing.findBlockReferences(QStringLiteral("a"), QStringLiteral("t"), QStringLiteral("v")).empty());
    HostAccess::finishLoading(drawing);
    EXPECT_EQ(id.handle(), 0x500u);
    EXPECT_EQ(drawing.findBlockReferences(QStringLiteral("a"), QStringLiteral("t"), QStringLiteral("v")),
              NcDbObjectIdArray{id});
}

// One of many small changes of a drawing, chosen by chance.
class RandomEdits : public Index {
protected:
    void prepare()
    {
        for (int i = 0; i < 3; ++i) {
            blocks.push_back(addBlock(QStringLiteral("block%1").arg(i)));
            for (const QString& tag : tags)
                addTag(blocks.back(), tag);
        }
    }
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }
    QString anyTag() { return tags[below(int(tags.size()))]; }
    QString anyText() { return QString::number(below(6)); }

    NcDbObjectId anyReference() { return references[size_t(below(int(references.size())))]; }
    NcDbObjectId anyAttribute(NcDbObjectId reference)
    {
        const auto& attributes = HostAccess::attributes(read<NcDbBlockReference>(reference));
        return attributes.empty() ? NcDbObjectId() : attributes[size_t(below(int(attributes.size())))];
    }

    void addReference()
    {
        const NcDbObjectId spaces[] = {modelSpace(), modelSpace(), modelSpace(),
                                       blockNamed(QStringLiteral("*Paper_Space"))};
        references.push_back(add(new NcDbBlockReference({}, blocks[size_t(below(3))]), spaces[below(4)]));
    }
    void editAttribute(const std::function<void(NcDbAttribute&)>& edit)
    {
        const NcDbObjectId id = anyAttribute(anyReference());
        NcDbAttribute* attribute = nullptr;
        if (isOk(ncdbOpenObject(attribute, id, kForWrite))) {
            edit(*attribute);
            attribute->close();
        }
    }
    void editReference(const std::function<void(NcDbBlockReference&)>& edit)
    {
        NcDbBlockReference* reference = nullptr;
        if (isOk(ncdbOpenObject(reference, anyReference(), kForWrite))) {
            edit(*reference);
            reference->close();
        }
    }
    void step()
    {
        const int dice = references.empty() ? 0 : below(12);
        if (dice == 0)
            addReference();
        else if (dice <= 2 && !anyReference().isErased())
            addAttributeToAny();
        else if (dice <= 4)
            editAttribute([&](NcDbAttribute& attribute) { attribute.setTextString(anyText()); });
        else if (dice == 5)
            editAttribute([&](NcDbAttribute& attribute) { attribute.setTag(anyTag()); });
        else if (dice == 6)
            editAttribute([](NcDbAttribute& attribute) { attribute.erase(); });
        else if (dice == 7)
            erase(anyAttribute(anyReference()), false);
        else if (dice == 8)
            editReference([&](NcDbBlockReference& r) { r.setBlockTableRecord(blocks[size_t(below(3))]); });
        else if (dice == 9)
            editReference([](NcDbBlockReference& r) { r.erase(); });
        else if (dice == 10)
            erase(anyReference(), false);
        else
            swapNames();
    }
    void addAttributeToAny()
    {
        const NcDbObjectId id = anyReference();
        if (!id.isErased())
            addAttribute(id, anyTag(), anyText());
    }
    void swapNames()
    {
        change<NcDbBlockTableRecord>(blocks[size_t(below(3))], [&](NcDbBlockTableRecord& record) {
            record.setName(QStringLiteral("block%1").arg(below(6)));
        });
    }
    void compareAll()
    {
        for (int block = 0; block < 6; ++block) {
            const QString name = QStringLiteral("block%1").arg(block);
            ASSERT_EQ(drawing.findBlockReferences(name, QString(), QString()), walk(name, QString(), QString()));
            for (const QString& tag : tags)
                for (int value = 0; value < 6; ++value)
                    ASSERT_EQ(drawing.findBlockReferences(name, tag, QString::number(value)),
                              walk(name, tag, QString::number(value)));
        }
    }

    std::mt19937 random;
    NcDbObjectIdArray blocks, references;
    const QStringList tags{QStringLiteral("element_id"), QStringLiteral("name"), QStringLiteral("z")};
};

TEST_F(RandomEdits, LeaveTheIndexEqualToAWalk)
{
    prepare();
    for (unsigned seed = 1; seed <= 5; ++seed) {
        random.seed(seed);
        for (int i = 0; i < 300; ++i) {
            step();
            if (i % 10 == 0)
                compareAll();
        }
        compareAll();
        if (HasFatalFailure())
            FAIL() << "seed " << seed;
    }
    EXPECT_GT(references.size(), 50u);
    EXPECT_TRUE(audit(drawing).empty());
}

} // namespace
