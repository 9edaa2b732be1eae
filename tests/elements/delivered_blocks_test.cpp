// The block files that are delivered beside the module, against what the
// registry says of each kind.
#include "elements/block_definitions.h"
#include "elements/element_block.h"
#include "support/element_drawing.h"
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

namespace {

const StateColors colors = {{"exist", 5}, {"lost", 1}};

class DeliveredBlock : public ::testing::TestWithParam<int> {
protected:
    ElementDrawing drawing;
    ScriptedPrompts host;
};

} // namespace

TEST_P(DeliveredBlock, HasTheAttributesAndPropertiesOfItsKind)
{
    ASSERT_TRUE(ensureBlockDefinitions());
    EXPECT_EQ(host.console.count("завершена"), 19) << host.console;
    const ElementBlock fresh(GetParam(), colors);
    ASSERT_TRUE(fresh.insertBlock());
    ASSERT_EQ(drawing.references().size(), 1);
    const ElementBlock back(drawing.references()[0], colors);
    EXPECT_EQ(back.kind, GetParam());
    EXPECT_EQ(ElementDrawing::attributes(drawing.references()[0]), fresh.attributes);
    QStringList properties;
    for (const auto& property : NcDbDynBlockReference(drawing.references()[0]).getBlockProperties())
        properties.append(property.propertyName());
    for (const QString& name : fresh.dynProps.keys())
        EXPECT_TRUE(properties.contains(name)) << name;
    EXPECT_EQ(drawing.faults(), QStringList());
}

TEST_P(DeliveredBlock, StartsFromTheDefaultsOfItsKind)
{
    ensureBlockDefinitions();
    const ElementBlock fresh(GetParam(), colors);
    fresh.insertBlock();
    const ElementBlock back(drawing.references().value(0), colors);
    for (auto it = fresh.dynProps.begin(); it != fresh.dynProps.end(); ++it) {
        bool number = false;
        const double expected = it.value().toDouble(&number);
        if (number) {
            EXPECT_EQ(back.dynProps.value(it.key()).toDouble(), expected) << it.key();
        } else {
            EXPECT_EQ(back.dynProps.value(it.key()), it.value()) << it.key();
        }
    }
}

TEST_P(DeliveredBlock, TakesEveryAllowedValueAndNumber)
{
    ensureBlockDefinitions();
    ElementBlock element(GetParam(), colors);
    for (auto it = element.dynProps.begin(); it != element.dynProps.end(); ++it)
        *it = element.allowedValues.contains(it.key()) ? element.allowedValues[it.key()].last() : "2.5";
    ASSERT_TRUE(element.insertBlock());
    const ElementBlock back(drawing.references().value(0), colors);
    EXPECT_EQ(back.dynProps, element.dynProps);
    EXPECT_EQ(drawing.faults(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Kinds, DeliveredBlock,
                         ::testing::Values(0, 2, 3, 5, 8, 9, 10, 11, 12, 13, 14, 15, 17, 18, 19, 20, 21));
