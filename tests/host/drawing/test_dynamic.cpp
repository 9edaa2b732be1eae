#include "drawing_fixture.h"

namespace {

DynamicBinding rule(DynamicBinding::Kind kind, NcDbObjectId entity, const QString& parameter,
                    const QString& second = {})
{
    DynamicBinding binding;
    binding.kind = kind;
    binding.entity = entity.handle();
    binding.parameter = parameter;
    binding.second = second;
    return binding;
}

const QString kX = QStringLiteral("Положение1 X"), kY = QStringLiteral("Положение1 Y"), kTurn = QStringLiteral("Угол1"),
              kLength = QStringLiteral("Длина полки"), kMirror = QStringLiteral("Отраженное состояние1"),
              kLeader = QStringLiteral("Выноска"), kShown = QStringLiteral("Выноска видна"),
              kHidden = QStringLiteral("Выноскаа скрыта");

// A marker with a leader to (1, 1), a shelf of length 10 there and a name on it.
class Dynamic : public DrawingTest {
protected:
    void SetUp() override
    {
        DrawingTest::SetUp();
        block = addBlock(QStringLiteral("dm_def"));
        marker = add(new NcDbLine({0, 0, 0}, {1, 0, 0}), block);
        leader = add(new NcDbLine({0, 0, 0}, {1, 1, 0}), block);
        shelf = add(new NcDbLine({1, 1, 0}, {11, 1, 0}), block);
        name = addTag(block, QStringLiteral("name"), {1.5, 1.5, 0});
        addTag(block, QStringLiteral("element_id"));
        auto definition = std::make_unique<DynamicDefinition>();
        definition->parameters = {{kX, 40, QStringLiteral("1"), {}},
                                  {kY, 40, QStringLiteral("1"), {}},
                                  {kTurn, 40, QStringLiteral("0"), {}},
                                  {kLength, 40, QStringLiteral("10"), {}},
                                  {kMirror, 70, QStringLiteral("0"), {QStringLiteral("0"), QStringLiteral("1")}},
                                  {kLeader, 1, kShown, {kShown, kHidden}}};
        definition->bindings.push_back(rule(DynamicBinding::Rotate, marker, kTurn));
        definition->bindings.push_back(rule(DynamicBinding::Stretch, leader, kX, kY));
        definition->bindings.push_back(rule(DynamicBinding::Length, shelf, kLength));
        for (NcDbObjectId part : {shelf, name}) {
            DynamicBinding mirror = rule(DynamicBinding::Mirror, part, kMirror);
            mirror.base = {1, 1};
            definition->bindings.push_back(mirror);
            definition->bindings.push_back(rule(DynamicBinding::Move, part, kX, kY));
        }
        for (NcDbObjectId part : {leader, shelf}) {
            DynamicBinding visible = rule(DynamicBinding::Visible, part, kLeader);
            visible.values = QStringList{kShown};
            definition->bindings.push_back(visible);
        }
        HostAccess::dynamic(*HostAccess::objectAs<NcDbBlockTableRecord>(block)) = std::move(definition);
        reference = insert(block, QStringLiteral("name"), QStringLiteral("ДМ-1"), {100, 200, 0});
    }

    NcStatus set(const QString& property, const NcDbEvalVariant& value)
    {
        for (NcDbDynBlockReferenceProperty& entry : NcDbDynBlockReference(reference).getBlockProperties())
            if (entry.propertyName() == property)
                return entry.setValue(value);
        return NcStatus::NotFound;
    }
    NcDbEvalVariant get(const QString& property)
    {
        for (const NcDbDynBlockReferenceProperty& entry : NcDbDynBlockReference(reference).getBlockProperties())
            if (entry.propertyName() == property)
                return entry.value();
        return NcDbEvalVariant();
    }
    // The entity of the definition as the reference shows it.
    std::unique_ptr<NcDbEntity> shown(NcDbObjectId source)
    {
        for (EvaluatedEntity& part : evaluatedEntities(read<NcDbBlockReference>(reference)))
            if (part.source == source)
                return std::move(part.entity);
        return nullptr;
    }
    void expectLine(NcDbObjectId source, const NcGePoint3d& from, const NcGePoint3d& to)
    {
        const auto entity = shown(source);
        const auto& line = static_cast<const NcDbLine&>(*entity);
        expectPoint(line.startPoint(), from.x, from.y);
        expectPoint(line.endPoint(), to.x, to.y);
    }
    const NcDbAttribute& nameAttribute()
    {
        const std::unique_ptr<NcDbObjectIterator> attributes(read<NcDbBlockReference>(reference).attributeIterator());
        return read<NcDbAttribute>(attributes->objectId());
    }

    NcDbObjectId block, marker, leader, shelf, name, reference;
};

TEST_F(Dynamic, PropertiesComeInTheDefinitionsOrderWithTheirTypes)
{
    const NcDbDynBlockReference dynamic(reference);
    EXPECT_TRUE(dynamic.isDynamicBlock());
    EXPECT_EQ(dynamic.dynamicBlockTableRecord(), block);
    const auto properties = dynamic.getBlockProperties();
    ASSERT_EQ(properties.size(), 6u);
    EXPECT_EQ(properties[0].propertyName(), kX);
    EXPECT_EQ(properties[0].propertyType(), 40);
    EXPECT_EQ(properties[0].value().real(), 1.0);
    EXPECT_EQ(properties[4].propertyType(), 70);
    EXPECT_EQ(properties[4].value().integer(), 0);
    EXPECT_EQ(properties[5].value().text(), kShown);
    EXPECT_TRUE(properties[0].getAllowedValues().empty());
    ASSERT_EQ(properties[5].getAllowedValues().size(), 2u);
    EXPECT_EQ(properties[5].getAllowedValues()[1].text(), kHidden);
    EXPECT_EQ(properties[4].getAllowedValues()[1].restype(), 70);
}

TEST_F(Dynamic, APlainBlockIsItsOwnDefinition)
{
    const NcDbObjectId plain = addBlock(QStringLiteral("plain"));
    const NcDbDynBlockReference dynamic(add(new NcDbBlockReference({}, plain)));
    EXPECT_FALSE(dynamic.isDynamicBlock());
    EXPECT_EQ(dynamic.dynamicBlockTableRecord(), plain);
    EXPECT_TRUE(dynamic.getBlockProperties().empty());
    const NcDbDynBlockReference none{NcDbObjectId()};
    EXPECT_FALSE(none.isDynamicBlock());
    EXPECT_TRUE(none.dynamicBlockTableRecord().isNull());
}

TEST_F(Dynamic, ValuesAreOfThePropertysTypeAndAllowed)
{
    EXPECT_EQ(set(kX, NcDbEvalVariant(short(1))), NcStatus::InvalidInput);
    EXPECT_EQ(set(kX, NcDbEvalVariant(std::nan(""))), NcStatus::InvalidInput);
    EXPECT_EQ(set(kMirror, NcDbEvalVariant(short(2))), NcStatus::InvalidInput);
    EXPECT_EQ(set(kMirror, NcDbEvalVariant(1)), NcStatus::InvalidInput) << "32 bits for 16";
    EXPECT_EQ(set(kLeader, NcDbEvalVariant(QStringLiteral("Выноска скрыта"))), NcStatus::InvalidInput)
        << "existing blocks spell it with a doubled letter";
    EXPECT_EQ(set(kLeader, NcDbEvalVariant(kHidden)), NcStatus::Ok);
    EXPECT_EQ(get(kLeader).text(), kHidden);
    EXPECT_EQ(get(kMirror).integer(), 0);
}

TEST_F(Dynamic, RealsReadBackExactly)
{
    const double value = 0.1 + 0.2;
    EXPECT_EQ(set(kX, NcDbEvalVariant(value)), NcStatus::Ok);
    EXPECT_EQ(get(kX).real(), value);
}

TEST_F(Dynamic, AValueEqualToTheDefaultIsNotKept)
{
    set(kX, NcDbEvalVariant(5.0));
    EXPECT_EQ(HostAccess::dynamicValues(read<NcDbBlockReference>(reference)).size(), 1u);
    set(kX, NcDbEvalVariant(1.0));
    EXPECT_TRUE(HostAccess::dynamicValues(read<NcDbBlockReference>(reference)).empty());
}

TEST_F(Dynamic, UntouchedPropertiesShowTheDefinition)
{
    expectLine(leader, {0, 0, 0}, {1, 1, 0});
    expectLine(shelf, {1, 1, 0}, {11, 1, 0});
    EXPECT_TRUE(shown(shelf)->isVisible());
    EXPECT_EQ(evaluatedEntities(read<NcDbBlockReference>(reference)).size(), 5u);
}

TEST_F(Dynamic, TheGripTakesLeaderShelfAndNameAlong)
{
    set(kX, NcDbEvalVariant(4.0));
    set(kY, NcDbEvalVariant(-2.0));
    expectLine(leader, {0, 0, 0}, {4, -2, 0});
    expectLine(shelf, {4, -2, 0}, {14, -2, 0});
    expectPoint(nameAttribute().position(), 104.5, 198.5);
}

TEST_F(Dynamic, TheShelfHasItsLength)
{
    set(kLength, NcDbEvalVariant(3.5));
    expectLine(shelf, {1, 1, 0}, {4.5, 1, 0});
}

TEST_F(Dynamic, AMirroredLabelGoesLeftAndStaysReadable)
{
    set(kMirror, NcDbEvalVariant(short(1)));
    set(kX, NcDbEvalVariant(3.0));
    set(kLength, NcDbEvalVariant(6.0));
    expectLine(leader, {0, 0, 0}, {3, 1, 0});
    expectLine(shelf, {3, 1, 0}, {-3, 1, 0});
    EXPECT_EQ(nameAttribute().horizontalMode(), NcDbText::kTextRight);
    expectPoint(nameAttribute().alignmentPoint(), 102.5, 201.5);
    EXPECT_NEAR(std::sin(nameAttribute().rotation()), 0.0, 1e-9);
    EXPECT_NEAR(std::cos(nameAttribute().rotation()), 1.0, 1e-9);
    set(kMirror, NcDbEvalVariant(short(0)));
    EXPECT_EQ(nameAttribute().horizontalMode(), NcDbText::kTextLeft);
    expectPoint(nameAttribute().position(), 103.5, 201.5);
}

TEST_F(Dynamic, TheMarkerTurnsByRadians)
{
    set(kTurn, NcDbEvalVariant(kPi / 2.0));
    expectLine(marker, {0, 0, 0}, {0, 1, 0});
}

TEST_F(Dynamic, AHiddenLeaderHidesItsShelf)
{
    set(kLeader, NcDbEvalVariant(kHidden));
    EXPECT_FALSE(shown(leader)->isVisible());
    EXPECT_FALSE(shown(shelf)->isVisible());
    EXPECT_TRUE(shown(marker)->isVisible());
    EXPECT_TRUE(nameAttribute().isVisible()) << "the name is not bound to it";
}

TEST_F(Dynamic, BoundAttributesHide)
{
    DynamicBinding visible = rule(DynamicBinding::Visible, name, kLeader);
    visible.values = QStringList{kShown};
    HostAccess::dynamic(*HostAccess::objectAs<NcDbBlockTableRecord>(block))->bindings.push_back(visible);
    set(kLeader, NcDbEvalVariant(kHidden));
    EXPECT_FALSE(nameAttribute().isVisible());
    set(kLeader, NcDbEvalVariant(kShown));
    EXPECT_TRUE(nameAttribute().isVisible());
}

TEST_F(Dynamic, AttributesFollowInATurnedAndScaledReference)
{
    change<NcDbBlockReference>(reference, [](NcDbBlockReference& placed) {
        placed.transformBy(NcGeMatrix3d::scaling(2.0, placed.position()));
        placed.transformBy(NcGeMatrix3d::rotation(kPi / 2.0, NcGeVector3d::kZAxis, placed.position()));
    });
    set(kX, NcDbEvalVariant(5.0));
    expectPoint(nameAttribute().position(), 97, 211);
    EXPECT_DOUBLE_EQ(nameAttribute().height(), 5.0);
}

TEST_F(Dynamic, UnboundAttributesStayWhereTheyWerePut)
{
    const NcDbObjectId unbound = addAttribute(reference, QStringLiteral("element_id"), QStringLiteral("7"));
    change<NcDbAttribute>(unbound, [](NcDbAttribute& attribute) { attribute.setPosition({-1, -1, 0}); });
    set(kX, NcDbEvalVariant(9.0));
    expectPoint(read<NcDbAttribute>(unbound).position(), -1, -1);
}

TEST_F(Dynamic, AnAttributeAppendedLaterGoesToItsPresentPlace)
{
    set(kX, NcDbEvalVariant(9.0));
    const NcDbObjectId later = addAttribute(reference, QStringLiteral("name"), QStringLiteral("x"));
    expectPoint(read<NcDbAttribute>(later).position(), 109.5, 201.5);
}

TEST_F(Dynamic, EachReferenceHasItsOwnValues)
{
    const NcDbObjectId first = reference;
    set(kX, NcDbEvalVariant(9.0));
    reference = insert(block, QStringLiteral("name"), QStringLiteral("ДМ-2"));
    EXPECT_EQ(get(kX).real(), 1.0);
    reference = first;
    EXPECT_EQ(get(kX).real(), 9.0);
}

TEST_F(Dynamic, AnErasedReferenceTakesNoValue)
{
    erase(reference);
    EXPECT_EQ(set(kX, NcDbEvalVariant(2.0)), NcStatus::WasErased);
}

TEST_F(Dynamic, ValuesOfAnotherBlockAreDropped)
{
    set(kX, NcDbEvalVariant(9.0));
    const NcDbObjectId plain = addBlock(QStringLiteral("plain"));
    addTag(plain, QStringLiteral("name"));
    change<NcDbBlockReference>(reference, [&](NcDbBlockReference& placed) { placed.setBlockTableRecord(plain); });
    EXPECT_TRUE(HostAccess::dynamicValues(read<NcDbBlockReference>(reference)).empty());
}

TEST_F(Dynamic, SettingTellsTheListeners)
{
    const quint64 before = HostAccess::data(drawing).changeCount;
    set(kX, NcDbEvalVariant(2.0));
    EXPECT_GT(HostAccess::data(drawing).changeCount, before);
}

TEST_F(Dynamic, SlidesKeepATextInTheMiddleOfTheShelf)
{
    const NcDbObjectId text = add(new NcDbText({6, 1.5, 0}, QStringLiteral("t"), 1), block);
    DynamicBinding slide = rule(DynamicBinding::Slide, text, kLength);
    slide.direction = {0.5, 0};
    HostAccess::dynamic(*HostAccess::objectAs<NcDbBlockTableRecord>(block))->bindings.push_back(slide);
    set(kLength, NcDbEvalVariant(14.0));
    const auto moved = shown(text);
    expectPoint(static_cast<NcDbText&>(*moved).position(), 8, 1.5);
}

TEST_F(Dynamic, PolylineVerticesStretchAndALengthOfNothingHasItsDirection)
{
    auto* polyline = new NcDbPolyline;
    polyline->addVertexAt(0, {0, 0});
    polyline->addVertexAt(1, {0, 5});
    polyline->addVertexAt(2, {0, 5});
    const NcDbObjectId id = add(polyline, block);
    auto& bindings = HostAccess::dynamic(*HostAccess::objectAs<NcDbBlockTableRecord>(block))->bindings;
    DynamicBinding length = rule(DynamicBinding::Length, id, kLength);
    length.vertex = 2;
    length.direction = {-1, 0};
    bindings.push_back(length);
    DynamicBinding stretch = rule(DynamicBinding::Stretch, id, kX, kY);
    stretch.vertex = 0;
    bindings.push_back(stretch);
    DynamicBinding beyond = rule(DynamicBinding::Stretch, id, kX, kY);
    beyond.vertex = 17;
    bindings.push_back(beyond);
    set(kLength, NcDbEvalVariant(4.0));
    set(kX, NcDbEvalVariant(3.0));
    const auto shape = shown(id);
    NcGePoint3d point;
    static_cast<NcDbPolyline&>(*shape).getPointAt(2, point);
    expectPoint(point, -4, 5);
    static_cast<NcDbPolyline&>(*shape).getPointAt(0, point);
    expectPoint(point, 2, 0);
}

TEST_F(Dynamic, DefinitionsSurviveTheirText)
{
    DynamicDefinition definition = *HostAccess::dynamic(read<NcDbBlockTableRecord>(block));
    definition.parameters.push_back({QStringLiteral("a|b\\c"), 90, QStringLiteral("-5"), {}});
    DynamicBinding slide = rule(DynamicBinding::Slide, shelf, QStringLiteral("a|b\\c"));
    slide.direction = {0.1, -1e-7};
    definition.bindings.push_back(slide);
    const QStringList lines = dynamicDefinitionText(definition);
    DynamicDefinition back;
    ASSERT_TRUE(parseDynamicDefinition(lines, back));
    // Fields that a rule's kind has no use for are not written.
    EXPECT_EQ(dynamicDefinitionText(back), lines);
    EXPECT_EQ(back.parameters, definition.parameters);
    ASSERT_EQ(back.bindings.size(), definition.bindings.size());
    EXPECT_EQ(back.bindings.back().direction, slide.direction);
    EXPECT_EQ(back.bindings.back().parameter, slide.parameter);
}

TEST_F(Dynamic, ABadLineLeavesTheDefinition)
{
    const QStringList good = dynamicDefinitionText(*HostAccess::dynamic(read<NcDbBlockTableRecord>(block)));
    for (const char* bad :
         {"", "wobble|1|a", "move|1|нет|", "rotate|2A|Угол1|x|0", "length|ZZ|Длина полки|1|0|1", "parameter|p|41|0",
          "parameter|Угол1|40|0", "mirror|1", "rotate|1|Угол1|0|0|0", "parameter||40|0"}) {
        DynamicDefinition kept;
        kept.parameters = {{QStringLiteral("k"), 40, QStringLiteral("0"), {}}};
        EXPECT_FALSE(parseDynamicDefinition(good + QStringList(QString::fromUtf8(bad)), kept)) << bad;
        EXPECT_EQ(kept.parameters.size(), 1u);
    }
}

} // namespace
