// TERVA_MASK_ATTRIBUTES
#include "alignment_fixture.h"
#include "drawing/alignment/attribute_mask.h"

#include <QSet>

namespace {

class AttributeMask : public AlignmentFixture {
protected:
    void run() { AlignmentFixture::run("TERVA_MASK_ATTRIBUTES"); }
    static NcDbAttribute& attribute(NcDbObjectId id, const QString& tag)
    {
        for (const NcDbObjectId& found : HostAccess::attributes(ElementDrawing::reference(id))) {
            auto* candidate = HostAccess::objectAs<NcDbAttribute>(found);
            if (candidate->tag() == tag)
                return *candidate;
        }
        ADD_FAILURE() << tag;
        std::abort();
    }
    static std::unique_ptr<NcDbMText> text(NcDbObjectId id, const QString& tag)
    {
        return std::unique_ptr<NcDbMText>(attribute(id, tag).getMTextAttribute());
    }
    // How the text is held before it is masked.
    static void align(NcDbObjectId id, const QString& tag, int horizontal, int vertical)
    {
        NcDbAttribute& found = attribute(id, tag);
        HostAccess::horizontal(found) = horizontal;
        HostAccess::vertical(found) = vertical;
        HostAccess::alignment(found) = found.position();
    }
    static void expectPlace(const NcGePoint3d& met, const NcGePoint3d& from, double dx, double dy)
    {
        EXPECT_NEAR(met.x, from.x + dx, 1e-9);
        EXPECT_NEAR(met.y, from.y + dy, 1e-9);
        EXPECT_NEAR(met.z, from.z, 1e-9);
    }
};

} // namespace

TEST(MaskDirection, GoesByTheRowOfTheAttachment)
{
    const QSet<int> bottom{7, 8, 9, 14, 18, 22}, top{1, 2, 3, 16, 20, 24};
    for (int attachment = 0; attachment <= 30; ++attachment) {
        const int expected = bottom.contains(attachment) ? 1 : top.contains(attachment) ? -1 : 0;
        EXPECT_EQ(maskDirection(attachment), expected) << attachment;
    }
}

TEST(MaskShift, RunsAcrossTheAxis)
{
    const double angle = M_PI / 6;
    EXPECT_NEAR(maskShift(1, angle, 2.0).x, -0.4, 1e-12);
    EXPECT_NEAR(maskShift(1, angle, 2.0).y, 0.8 * std::cos(angle), 1e-12);
    EXPECT_NEAR(maskShift(-1, angle, 2.0).x, 0.4, 1e-12);
    EXPECT_NEAR(maskShift(-1, angle, 2.0).y, -0.8 * std::cos(angle), 1e-12);
    EXPECT_EQ(maskShift(0, angle, 2.0).length(), 0.0);
}

TEST_F(AttributeMask, PutsAGroundBehindVisibleTexts)
{
    const NcDbObjectId id = insert(0, 1, {10, 20});
    const NcGePoint3d before = attribute(id, "name").position();
    run();
    EXPECT_EQ(host.console, "");
    const auto name = text(id, "name");
    ASSERT_NE(name, nullptr);
    EXPECT_TRUE(name->backgroundFillOn());
    EXPECT_TRUE(name->useBackgroundColorOn());
    EXPECT_EQ(name->backgroundScaleFactor(), 1.1);
    EXPECT_EQ(name->contents(), "Э1");
    EXPECT_EQ(name->attachment(), 7);
    expectPlace(name->location(), before, 0.0, 0.5 + 0.4);
    EXPECT_EQ(text(id, "element_id"), nullptr) << "a hidden text stays as it is";
    EXPECT_EQ(ElementDrawing::attributes(id).value("name"), "Э1");
    EXPECT_EQ(elementOf(id).attributes.value("element_id"), "1");
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(AttributeMask, RowsGiveWayAlongTheUcs)
{
    struct Case {
        int horizontal, vertical, attachment, direction;
    };
    const Case cases[] = {
        {NcDbText::kTextLeft, NcDbText::kTextBase, 7, 1},    {NcDbText::kTextCenter, NcDbText::kTextBottom, 8, 1},
        {NcDbText::kTextRight, NcDbText::kTextBase, 9, 1},   {NcDbText::kTextLeft, NcDbText::kTextTop, 1, -1},
        {NcDbText::kTextCenter, NcDbText::kTextTop, 2, -1},  {NcDbText::kTextRight, NcDbText::kTextTop, 3, -1},
        {NcDbText::kTextLeft, NcDbText::kTextVertMid, 4, 0}, {NcDbText::kTextCenter, NcDbText::kTextVertMid, 5, 0},
        {NcDbText::kTextMiddle, NcDbText::kTextBase, 5, 0},  {NcDbText::kTextRight, NcDbText::kTextVertMid, 6, 0},
    };
    const double angle = M_PI / 6, scale = 2.0;
    turnUcs(angle, {500, 0, 0});
    for (const Case& row : cases) {
        const NcDbObjectId id = insert(2, 1, {10, 20, 0.0, scale});
        align(id, "name", row.horizontal, row.vertical);
        const NcGePoint3d before = attribute(id, "name").position();
        run();
        const auto name = text(id, "name");
        ASSERT_NE(name, nullptr);
        EXPECT_EQ(name->attachment(), row.attachment);
        EXPECT_TRUE(name->backgroundFillOn()) << row.attachment;
        expectPlace(name->location(), before, row.direction * -0.4 * scale * std::sin(angle),
                    row.direction * (0.5 + 0.4 * scale * std::cos(angle)));
        Opened<NcDbBlockReference>(id, kForWrite)->erase();
    }
}

TEST_F(AttributeMask, TakesEveryKindAndNothingElse)
{
    QVector<NcDbObjectId> elements;
    for (int kind = 0; kind < kindCount; ++kind) {
        if (!kinds()[size_t(kind)].blockName.isEmpty() && !defaultsOfKind(kind).attributes.isEmpty())
            elements.append(insert(kind, kind + 1, {double(kind), 0}));
    }
    ElementDrawing::addDefinition(drawing(), "дом", {"name"});
    auto house = std::make_unique<NcDbBlockReference>();
    house->setBlockTableRecord(HostAccess::recordId(drawing(), drawing().blockTableId(), "дом"));
    const NcDbObjectId plain = appendToModelSpace(std::move(house));
    {
        const Opened<NcDbBlockReference> reference(plain, kForWrite);
        auto* field = new NcDbAttribute;
        field->setTag("name");
        reference->appendAttribute(field);
        field->close();
    }
    session().currentPositionId = -1;
    database.disconnect();
    run();
    for (const NcDbObjectId& id : elements) {
        for (const NcDbObjectId& each : HostAccess::attributes(ElementDrawing::reference(id))) {
            const auto* found = HostAccess::objectAs<NcDbAttribute>(each);
            EXPECT_EQ(found->isMTextAttribute(), !found->isInvisible()) << found->tag();
        }
    }
    EXPECT_FALSE(attribute(plain, "name").isMTextAttribute());
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(AttributeMask, AMaskedTextStillTakesTheElementsName)
{
    const NcDbObjectId id = insert(0, 1, {10, 20});
    run();
    ElementBlock element = elementOf(id);
    element.setAttribute("name", "Новое");
    EXPECT_TRUE(element.applyToBlock(id));
    EXPECT_EQ(text(id, "name")->contents(), "Новое");
    EXPECT_TRUE(text(id, "name")->backgroundFillOn());
}

TEST_F(AttributeMask, ModelSpaceHeldElsewhereIsTold)
{
    const NcDbObjectId id = insert(0, 1, {10, 20});
    const Opened<NcDbBlockTableRecord> held = openModelSpace(kForWrite);
    run();
    EXPECT_EQ(host.console, "\nerror opening model_space");
    EXPECT_FALSE(attribute(id, "name").isMTextAttribute());
}
