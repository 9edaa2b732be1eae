#include "drawing_fixture.h"

namespace {

class References : public DrawingTest {
protected:
    void SetUp() override
    {
        DrawingTest::SetUp();
        block = addBlock(QStringLiteral("ts_def"));
        add(new NcDbLine({0, 0, 0}, {2, 1, 0}), block);
        addTag(block, QStringLiteral("name"));
    }
    const NcDbBlockReference& reference(NcDbObjectId id) { return read<NcDbBlockReference>(id); }
    const NcDbAttribute& firstAttribute(NcDbObjectId id)
    {
        const std::unique_ptr<NcDbObjectIterator> iterator(reference(id).attributeIterator());
        return read<NcDbAttribute>(iterator->objectId());
    }

    NcDbObjectId block;
};

TEST_F(References, PlaceTurnAndScaleMakeTheTransformation)
{
    NcDbBlockReference placed({10, 20, 5}, block);
    placed.setRotation(kPi / 2.0);
    placed.setScaleFactors({2, 3, 1});
    expectPoint(placed.blockTransform() * NcGePoint3d(1, 1, 1), 7, 22, 6);
}

TEST_F(References, TheBlocksOriginIsTakenOff)
{
    HostAccess::origin(*HostAccess::objectAs<NcDbBlockTableRecord>(block)) = {1, 1, 0};
    const NcDbBlockReference placed({10, 20, 0}, block);
    expectPoint(placed.blockTransform() * NcGePoint3d(1, 1, 0), 10, 20);
}

TEST_F(References, RotationIsKeptBetweenZeroAndAFullTurn)
{
    NcDbBlockReference placed;
    placed.setRotation(-kPi / 2.0);
    EXPECT_NEAR(placed.rotation(), 1.5 * kPi, 1e-12);
    placed.setRotation(5.0 * kPi);
    EXPECT_NEAR(placed.rotation(), kPi, 1e-9);
    EXPECT_EQ(placed.setRotation(std::nan("")), NcStatus::InvalidInput);
}

TEST_F(References, MovingTakesTheAttributesAlong)
{
    const NcDbObjectId id = insert(block, QStringLiteral("name"), QStringLiteral("1"), {1, 1, 0});
    change<NcDbBlockReference>(id, [](NcDbBlockReference& placed) { placed.setPosition({11, 21, 0}); });
    expectPoint(firstAttribute(id).position(), 11, 21);
    change<NcDbBlockReference>(id, [](NcDbBlockReference& placed) {
        placed.transformBy(NcGeMatrix3d::translation({-1, -1, 0}));
    });
    expectPoint(firstAttribute(id).position(), 10, 20);
}

TEST_F(References, TransformingScalesAndTurnsTheAttributesToo)
{
    const NcDbObjectId id = insert(block, QStringLiteral("name"), QStringLiteral("1"), {1, 1, 0});
    change<NcDbBlockReference>(id, [](NcDbBlockReference& placed) {
        placed.transformBy(NcGeMatrix3d::scaling(3.0, placed.position()));
        placed.transformBy(NcGeMatrix3d::rotation(0.5, NcGeVector3d::kZAxis, placed.position()));
    });
    EXPECT_DOUBLE_EQ(reference(id).scaleFactors().sx, 3.0);
    EXPECT_NEAR(reference(id).rotation(), 0.5, 1e-12);
    EXPECT_EQ(reference(id).position(), NcGePoint3d(1, 1, 0));
    EXPECT_DOUBLE_EQ(firstAttribute(id).height(), 7.5);
    EXPECT_NEAR(firstAttribute(id).rotation(), 0.5, 1e-12);
}

TEST_F(References, ManyTurnsDoNotDriftTheScale)
{
    const NcDbObjectId id = insert(block, QStringLiteral("name"), QStringLiteral("1"));
    change<NcDbBlockReference>(id, [](NcDbBlockReference& placed) {
        for (int i = 0; i < 1000; ++i)
            placed.transformBy(NcGeMatrix3d::rotation(0.1, NcGeVector3d::kZAxis, placed.position()));
    });
    EXPECT_EQ(reference(id).scaleFactors().sx, 1.0);
}

TEST_F(References, MirroringTurnsOneScaleNegative)
{
    NcDbBlockReference placed({1, 0, 0}, block);
    placed.setRotation(0.3);
    const NcGePoint3d before = placed.blockTransform() * NcGePoint3d(2, 1, 0);
    NcGeMatrix3d mirror;
    mirror.entry[0][0] = -1.0;
    placed.transformBy(mirror);
    expectPoint(placed.blockTransform() * NcGePoint3d(2, 1, 0), -before.x, before.y);
    EXPECT_GT(placed.scaleFactors().sx, 0.0);
    EXPECT_LT(placed.scaleFactors().sy, 0.0);
}

TEST_F(References, AScaleOfZeroCrashesNothing)
{
    const NcDbObjectId id = insert(block, QStringLiteral("name"), QStringLiteral("1"), {1, 2, 0});
    change<NcDbBlockReference>(id, [](NcDbBlockReference& placed) {
        placed.transformBy(NcGeMatrix3d::scaling(0.0, placed.position()));
        placed.transformBy(NcGeMatrix3d::rotation(1.0, NcGeVector3d::kZAxis, placed.position()));
    });
    EXPECT_EQ(reference(id).scaleFactors().sx, 0.0);
    EXPECT_NEAR(reference(id).rotation(), 1.0, 1e-9);
    EXPECT_TRUE(reference(id).extents().has_value());
    EXPECT_EQ(reference(id).blockTransform().det(), 0.0);
}

TEST_F(References, ColourAndLayerReachTheAttributes)
{
    addLayer(QStringLiteral("GMN_TS"));
    const NcDbObjectId id = insert(block, QStringLiteral("name"), QStringLiteral("1"));
    change<NcDbBlockReference>(id, [](NcDbBlockReference& placed) {
        EXPECT_EQ(placed.setColorIndex(3, true), NcStatus::Ok);
        EXPECT_EQ(placed.setLayer(QStringLiteral("GMN_TS"), true, false), NcStatus::Ok);
        EXPECT_EQ(placed.setLayer(QStringLiteral("нет"), true, false), NcStatus::NotFound);
        EXPECT_EQ(placed.setColorIndex(4, false), NcStatus::Ok);
    });
    EXPECT_EQ(firstAttribute(id).layer(), QStringLiteral("GMN_TS"));
    EXPECT_EQ(firstAttribute(id).colorIndex(), 3) << "the second colour left the attributes out";
    EXPECT_EQ(reference(id).colorIndex(), 4);
}

TEST_F(References, ErasingTakesTheAttributesAndBringsThemBack)
{
    const NcDbObjectId id = insert(block, QStringLiteral("name"), QStringLiteral("1"));
    const NcDbObjectId second = addAttribute(id, QStringLiteral("name"), QStringLiteral("2"));
    const NcDbObjectId first = firstAttribute(id).objectId();
    erase(second);
    erase(id);
    EXPECT_TRUE(first.isErased());
    erase(id, false);
    EXPECT_FALSE(first.isErased());
    EXPECT_TRUE(second.isErased()) << "it was erased by itself";
}

TEST_F(References, TheAttributeIteratorPassesOverErasedOnes)
{
    const NcDbObjectId id = insert(block, QStringLiteral("name"), QStringLiteral("1"));
    const NcDbObjectId second = addAttribute(id, QStringLiteral("name"), QStringLiteral("2"));
    erase(firstAttribute(id).objectId());
    const std::unique_ptr<NcDbObjectIterator> iterator(reference(id).attributeIterator());
    EXPECT_EQ(iterator->objectId(), second);
    iterator->step();
    EXPECT_TRUE(iterator->done());
    EXPECT_TRUE(iterator->objectId().isNull());
    iterator->start();
    EXPECT_FALSE(iterator->done());
}

TEST_F(References, AttributesNeedAReferenceInADrawing)
{
    NcDbBlockReference free({}, block);
    NcDbAttribute attribute;
    EXPECT_EQ(free.appendAttribute(&attribute), NcStatus::NotInDatabase);
    EXPECT_EQ(free.appendAttribute(nullptr), NcStatus::InvalidInput);
}

TEST_F(References, DefinitionsMustExist)
{
    NcDbBlockReference placed;
    EXPECT_EQ(placed.setBlockTableRecord(NcDbObjectId()), NcStatus::NotFound);
    EXPECT_EQ(placed.setBlockTableRecord(drawing.clayer()), NcStatus::NotFound);
    const NcDbObjectId gone = addBlock(QStringLiteral("gone"));
    erase(gone);
    EXPECT_EQ(placed.setBlockTableRecord(gone), NcStatus::WasErased);
    EXPECT_EQ(placed.setBlockTableRecord(block), NcStatus::Ok);
    EXPECT_TRUE(NcDbBlockReference().blockTableRecord().isNull());
    EXPECT_FALSE(NcDbBlockReference().extents().has_value());
}

TEST_F(References, AnAttributeIsPlacedAsItsDefinitionSays)
{
    NcDbAttributeDefinition definition;
    definition.setTag(QStringLiteral("name"));
    definition.setPosition({1, 0, 0});
    definition.setAlignmentPoint({2, 0, 0});
    definition.setHeight(2.0);
    definition.setHorizontalMode(NcDbText::kTextCenter);
    definition.setTextString(QStringLiteral("начало"));
    NcDbBlockReference placed({10, 10, 0}, block);
    placed.setRotation(kPi / 2.0);
    placed.setScaleFactors({2, 2, 2});
    NcDbAttribute attribute;
    EXPECT_EQ(attribute.setAttributeFromBlock(&definition, placed.blockTransform()), NcStatus::Ok);
    EXPECT_EQ(attribute.setAttributeFromBlock(nullptr, placed.blockTransform()), NcStatus::InvalidInput);
    expectPoint(attribute.position(), 10, 12);
    expectPoint(attribute.alignmentPoint(), 10, 14);
    EXPECT_DOUBLE_EQ(attribute.height(), 4.0);
    EXPECT_NEAR(attribute.rotation(), kPi / 2.0, 1e-12);
    EXPECT_EQ(attribute.horizontalMode(), NcDbText::kTextCenter);
    EXPECT_EQ(attribute.textString(), QStringLiteral("начало"));
}

TEST_F(References, AnAttributeBecomesMultilineAndBack)
{
    const NcDbObjectId id = insert(block, QStringLiteral("name"), QStringLiteral("ТС-1"), {3, 4, 0});
    change<NcDbAttribute>(firstAttribute(id).objectId(), [](NcDbAttribute& attribute) {
        EXPECT_EQ(attribute.getMTextAttribute(), nullptr);
        EXPECT_EQ(attribute.convertIntoMTextAttribute(), NcStatus::Ok);
        EXPECT_TRUE(attribute.isMTextAttribute());
        const std::unique_ptr<NcDbMText> text(attribute.getMTextAttribute());
        EXPECT_EQ(text->contents(), QStringLiteral("ТС-1"));
        expectPoint(text->location(), 3, 4);
        text->setBackgroundFill(true);
        text->setContents(QStringLiteral("ТС-2"));
        EXPECT_EQ(attribute.setMTextAttribute(text.get()), NcStatus::Ok);
        EXPECT_EQ(attribute.setMTextAttribute(nullptr), NcStatus::InvalidInput);
    });
    EXPECT_EQ(firstAttribute(id).textString(), QStringLiteral("ТС-2"));
    EXPECT_EQ(drawing.findBlockReferences(QStringLiteral("ts_def"), QStringLiteral("name"), QStringLiteral("ТС-2")),
              NcDbObjectIdArray{id});
    change<NcDbBlockReference>(id, [](NcDbBlockReference& placed) { placed.setPosition({13, 4, 0}); });
    const std::unique_ptr<NcDbMText> moved(firstAttribute(id).getMTextAttribute());
    expectPoint(moved->location(), 13, 4);
    EXPECT_TRUE(moved->backgroundFillOn());
    change<NcDbAttribute>(firstAttribute(id).objectId(), [](NcDbAttribute& attribute) {
        attribute.setTextString(QStringLiteral("ТС-3"));
        const std::unique_ptr<NcDbMText> text(attribute.getMTextAttribute());
        EXPECT_EQ(text->contents(), QStringLiteral("ТС-3"));
        EXPECT_EQ(attribute.convertIntoMTextAttribute(false), NcStatus::Ok);
    });
    EXPECT_FALSE(firstAttribute(id).isMTextAttribute());
}

TEST_F(References, ADefinitionIsToldByCast)
{
    NcDbAttributeDefinition definition;
    NcDbLine line;
    EXPECT_EQ(NcDbAttributeDefinition::cast(&definition), &definition);
    EXPECT_EQ(NcDbAttributeDefinition::cast(&line), nullptr);
    EXPECT_EQ(NcDbAttributeDefinition::cast(nullptr), nullptr);
}

TEST_F(References, TheBoxHoldsBlockAndAttributes)
{
    const NcDbObjectId id = insert(block, QStringLiteral("name"), QStringLiteral("12345"), {100, 100, 0});
    const auto box = reference(id).extents();
    expectPoint(box->min, 100, 100);
    EXPECT_GT(box->max.x, 102.0) << "the text reaches over the line";
}

} // namespace
