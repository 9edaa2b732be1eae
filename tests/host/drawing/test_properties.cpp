// What the panel of properties shows of entities and how it changes them.
#include "drawing_fixture.h"

#include <drawing/entity_properties.h>
#include <drawing/host_access.h>

#include <gtest/gtest.h>

namespace {

class Properties : public DrawingTest {
protected:
    // A reference to a block with a tag of its own.
    NcDbObjectId insertTagged()
    {
        const NcDbObjectId block = addBlock(QStringLiteral("b"));
        addTag(block, QStringLiteral("ИМЯ"));
        addTag(block, QStringLiteral("element_id"));
        return insert(block, QStringLiteral("ИМЯ"), QStringLiteral("17"));
    }
    const EntityProperty* find(const NcDbObjectIdArray& ids, const char* key)
    {
        shown = propertiesOf(ids);
        for (const EntityProperty& property : shown)
            if (property.key == QString::fromUtf8(key))
                return &property;
        return nullptr;
    }
    QVariant value(const NcDbObjectIdArray& ids, const char* key)
    {
        const EntityProperty* property = find(ids, key);
        return property ? property->value : QVariant();
    }

    std::vector<EntityProperty> shown;
};

// A value other than the present one that the property should take.
QVariant another(const EntityProperty& property)
{
    switch (property.kind) {
    case EntityProperty::Number: return property.value.toDouble() + 2.5;
    case EntityProperty::Angle: return property.value.toDouble() < 180.0 ? 200.0 : 30.0;
    case EntityProperty::Count: return property.value.toInt() + 1;
    case EntityProperty::Flag: return !property.value.toBool();
    case EntityProperty::Choice: return property.choices.last();
    case EntityProperty::Layer: return QStringLiteral("Съёмка");
    case EntityProperty::LineType: return QStringLiteral("ByBlock");
    case EntityProperty::Color: return QStringLiteral("12,34,56");
    case EntityProperty::Lines: return QStringLiteral("раз\nдва");
    case EntityProperty::Text: return QStringLiteral("иначе");
    }
    return {};
}

} // namespace

// Each row of each class: what is set is read back, and nothing else is lost.
TEST_F(Properties, WhatIsSetIsReadBack)
{
    addLayer(QStringLiteral("Съёмка"));
    auto* line = new NcDbPolyline;
    line->addVertexAt(0, {0, 0});
    line->addVertexAt(1, {10, 0});
    line->addVertexAt(2, {10, 10});
    auto* mtext = new NcDbMText;
    mtext->setContents(QStringLiteral("а\\Pб"));
    auto* held = new NcDbText({0, 0, 0}, QStringLiteral("справа"), 2.0);
    held->setHorizontalMode(NcDbText::kTextRight);
    held->setAlignmentPoint({7, 8, 0});
    auto* hatch = new NcDbHatch;
    hatch->appendLoop(NcDbHatch::kExternal, {{0, 0}, {4, 0}, {4, 4}}, {0, 0, 0});
    auto* table = new NcDbTable;
    table->setSize(2, 3);
    const NcDbObjectIdArray all = {add(new NcDbPoint({1, 2, 3})),
                                   add(new NcDbLine({0, 0, 0}, {3, 4, 0})),
                                   add(new NcDbCircle({1, 1, 0}, NcGeVector3d::kZAxis, 2.0)),
                                   add(new NcDbArc({1, 1, 0}, 2.0, 0.0, 1.0)),
                                   add(line),
                                   add(new NcDbText({5, 6, 0}, QStringLiteral("а"), 2.0)),
                                   add(held),
                                   add(mtext),
                                   add(table),
                                   add(hatch),
                                   insertTagged()};
    int changed = 0;
    for (const NcDbObjectId& id : all)
        for (const EntityProperty& property : propertiesOf(NcDbObjectIdArray{id})) {
            const QString what = entityName(read<NcDbEntity>(id)) + QLatin1Char(' ') + property.key;
            const QVariant wanted = another(property);
            EXPECT_EQ(setProperty({id}, property.key, wanted), property.fixed ? 0 : 1) << what.toStdString();
            if (property.fixed)
                continue;
            const QVariant now = value({id}, property.key.toUtf8().constData());
            if (wanted.type() == QVariant::Double)
                EXPECT_NEAR(now.toDouble(), wanted.toDouble(), 1e-9) << what.toStdString();
            else
                EXPECT_EQ(now, wanted) << what.toStdString();
            ++changed;
        }
    EXPECT_GT(changed, 70);
    EXPECT_EQ(read<NcDbMText>(all[7]).contents(), QStringLiteral("раз\\Pдва"));
    expectPoint(read<NcDbText>(all[6]).alignmentPoint(), 9.5, 10.5);
}

TEST_F(Properties, WhatMakesNoSenseIsRefused)
{
    const NcDbObjectId circle = add(new NcDbCircle({1, 1, 0}, NcGeVector3d::kZAxis, 2.0));
    EXPECT_EQ(setProperty({circle}, QStringLiteral("radius"), 0.0), 0);
    EXPECT_EQ(setProperty({circle}, QStringLiteral("layer"), QStringLiteral("нет такого")), 0);
    EXPECT_EQ(setProperty({circle}, QStringLiteral("color"), QStringLiteral("зелёный")), 0);
    EXPECT_EQ(setProperty({circle}, QStringLiteral("area"), 5.0), 0);
    EXPECT_EQ(setProperty({circle}, QStringLiteral("чужое"), 5.0), 0);
    EXPECT_EQ(setProperty({}, QStringLiteral("radius"), 5.0), 0);
    EXPECT_EQ(value({circle}, "radius").toDouble(), 2.0);
    const NcDbObjectId block = insertTagged();
    EXPECT_EQ(setProperty({block}, QStringLiteral("scale.x"), 0.0), 0);
}

TEST_F(Properties, OnlyWhatAllHaveIsShownAndWhatDiffersIsMarked)
{
    const NcDbObjectId first = add(new NcDbCircle({1, 1, 0}, NcGeVector3d::kZAxis, 2.0));
    const NcDbObjectId second = add(new NcDbCircle({5, 1, 0}, NcGeVector3d::kZAxis, 2.0));
    const NcDbObjectId line = add(new NcDbLine({0, 0, 0}, {3, 4, 0}));
    EXPECT_TRUE(find({first, second}, "center.x")->varies);
    EXPECT_FALSE(find({first, second}, "radius")->varies);
    EXPECT_EQ(setProperty({first, second}, QStringLiteral("radius"), 7.0), 2);
    EXPECT_EQ(value({second}, "radius").toDouble(), 7.0);
    EXPECT_EQ(find({first, line}, "radius"), nullptr);
    EXPECT_EQ(propertiesOf({first, line}).size(), 4u) << "layer, colour, line type, length";
    erase(second);
    EXPECT_FALSE(find({first, second}, "center.x")->varies) << "an erased one does not count";
}

TEST_F(Properties, ALockedLayerKeepsItsEntities)
{
    const NcDbObjectId layer = addLayer(QStringLiteral("Съёмка"));
    auto* circle = new NcDbCircle({1, 1, 0}, NcGeVector3d::kZAxis, 2.0);
    circle->setLayer(QStringLiteral("Съёмка"));
    const NcDbObjectId id = add(circle);
    change<NcDbLayerTableRecord>(layer, [](NcDbLayerTableRecord& record) { record.setIsLocked(true); });
    EXPECT_EQ(setProperty({id}, QStringLiteral("radius"), 7.0), 0);
    EXPECT_EQ(setProperty({id}, QStringLiteral("layer"), QStringLiteral("0")), 0);
    EXPECT_EQ(value({id}, "radius").toDouble(), 2.0);
}

TEST_F(Properties, HiddenAttributesAreNoBusinessOfAUsers)
{
    const NcDbObjectId block = insertTagged();
    const NcDbObjectId hidden = addAttribute(block, QStringLiteral("element_id"), QStringLiteral("5"));
    change<NcDbAttribute>(hidden, [](NcDbAttribute& attribute) { attribute.setInvisible(true); });
    EXPECT_EQ(value({block}, "attribute:ИМЯ").toString(), QStringLiteral("17"));
    EXPECT_EQ(find({block}, "attribute:element_id"), nullptr);
    EXPECT_EQ(setProperty({block}, QStringLiteral("attribute:element_id"), QStringLiteral("6")), 0);
    EXPECT_EQ(entityName(read<NcDbEntity>(block)), QStringLiteral("Блок b"));
}

TEST_F(Properties, ColoursHaveNames)
{
    for (const char* name : {"По слою", "По блоку", "1", "255", "0,0,0", "255,10,3"})
        EXPECT_EQ(colorName(*colorOfName(QString::fromUtf8(name))), QString::fromUtf8(name));
    for (const char* name : {"", "0", "256", "-1", "1,2", "1,2,256", "красный", "1,2,3,4"})
        EXPECT_FALSE(colorOfName(QString::fromUtf8(name))) << name;
    EXPECT_EQ(layerNames(drawing), QStringList{QStringLiteral("0")});
    EXPECT_TRUE(lineTypeNames(drawing).contains(QStringLiteral("Continuous")));
}
