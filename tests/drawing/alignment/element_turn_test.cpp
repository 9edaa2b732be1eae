#include "drawing/alignment/element_turn.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

ElementBlock element(int kind, double rotation)
{
    ElementBlock made(kind, StateColors());
    made.blockRotation = rotation;
    return made;
}

} // namespace

TEST(ElementTurn, VectorsTurnByTheDifferenceAndTheBlockTakesTheAngle)
{
    ElementBlock mark = element(0, 0.0);
    mark.setDynProp("Положение1 X", "3");
    mark.setDynProp("Положение1 Y", "4");
    turnElement(mark, {M_PI / 2, ElementTurn::Marker::Align, 1.0});
    EXPECT_EQ(mark.dynProps.value("Положение1 X"), "4.0000");
    EXPECT_EQ(mark.dynProps.value("Положение1 Y"), "-3.0000");
    EXPECT_EQ(mark.blockRotation, M_PI / 2);
}

TEST(ElementTurn, TheMarkerKeepsItsRotationOrFollows)
{
    ElementBlock kept = element(0, 0.25);
    kept.setDynProp("Угол1", "0.5");
    turnElement(kept, {2.0, ElementTurn::Marker::Keep, 1.0});
    EXPECT_EQ(kept.dynProps.value("Угол1"), "-1.250000");

    ElementBlock aligned = element(0, 0.25);
    aligned.setDynProp("Угол1", "0.5");
    turnElement(aligned, {2.0, ElementTurn::Marker::Align, 1.0});
    EXPECT_EQ(aligned.dynProps.value("Угол1"), "0.0");

    ElementBlock without = element(2, 0.25);
    turnElement(without, {2.0, ElementTurn::Marker::Keep, 1.0});
    EXPECT_FALSE(without.hasDynProp("Угол1"));
}

TEST(ElementTurn, ATextThatIsNoNumberCountsAsNothing)
{
    ElementBlock mark = element(0, 0.0);
    mark.setDynProp("Угол1", "x");
    mark.setDynProp("Положение1 X", "x");
    mark.setDynProp("Положение1 Y", "2");
    turnElement(mark, {M_PI / 2, ElementTurn::Marker::Keep, 1.0});
    EXPECT_EQ(mark.dynProps.value("Угол1"), "-1.570796");
    EXPECT_EQ(mark.dynProps.value("Положение1 X"), "2.0000");
}

TEST(ElementTurn, EveryPairOfAKindIsTurnedAndMissingOnesArePassedOver)
{
    struct Pair {
        int kind;
        const char* name;
    };
    for (const Pair& pair : {Pair{18, "Положение2"}, Pair{19, "Заглубление"}}) {
        ElementBlock stabiliser = element(pair.kind, M_PI / 2);
        stabiliser.setDynProp(pair.name + QString(" X"), "1");
        stabiliser.setDynProp(pair.name + QString(" Y"), "2");
        turnElement(stabiliser, {0.0, ElementTurn::Marker::Align, 2.0});
        EXPECT_EQ(stabiliser.dynProps.value(pair.name + QString(" X")), "-4.0000") << pair.name;
        EXPECT_EQ(stabiliser.dynProps.value(pair.name + QString(" Y")), "2.0000") << pair.name;
    }
    ElementBlock well = element(2, 1.0);
    const QStringList names = well.dynProps.keys();
    turnElement(well, {0.0, ElementTurn::Marker::Align, 1.0});
    EXPECT_EQ(well.dynProps.keys(), names);
}

TEST(ElementTurn, AHalfPairIsLeftAlone)
{
    ElementBlock half = element(2, 1.0);
    half.dynProps.remove("Положение1 Y");
    const TextMap before = half.dynProps;
    turnElement(half, {0.0, ElementTurn::Marker::Align, 1.0});
    EXPECT_EQ(half.dynProps, before);
}

TEST(ElementTurn, OtherPropertiesStay)
{
    ElementBlock mark = element(0, 1.0);
    turnElement(mark, {0.0, ElementTurn::Marker::Align, 3.0});
    EXPECT_EQ(mark.dynProps.value("Длина полки"), "12.0461");
    EXPECT_EQ(mark.dynProps.value("Видимость1"), "Выноска видна");
    EXPECT_EQ(mark.scale, 1.0);
}
