// Values on a map for programs with a black ground.
#include "scene.h"

#include <render/dark_texts.h>

#include <gtest/gtest.h>

namespace {

int colorOf(NcDbObjectId id)
{
    NcDbEntity* entity = nullptr;
    ncdbOpenObject(entity, id, kForRead);
    const int color = entity->color().colorIndex();
    entity->close();
    return color;
}

} // namespace

TEST(DarkTextsTest, TextsOfColourSevenOnAFillAreDarkened)
{
    Scene scene;
    const auto text = [&scene](double x, int color) {
        return scene.add(new NcDbText({x, 5, 0}, QStringLiteral("1"), 0.5), QStringLiteral("0"), color);
    };
    const NcDbObjectId below = text(3, 7);
    auto* hatch = new NcDbHatch;
    hatch->appendLoop(NcDbHatch::kExternal, {{0, 0}, {20, 0}, {20, 10}, {0, 10}}, {0, 0, 0, 0});
    hatch->appendLoop(NcDbHatch::kDefault, {{12, 2}, {18, 2}, {18, 8}, {12, 8}}, {0, 0, 0, 0});
    scene.add(hatch, QStringLiteral("0"), 2);
    const NcDbObjectId on = text(5, 7), byLayer = text(8, 256), red = text(7, 1), inHole = text(15, 7),
                       beside = text(25, 7);
    EXPECT_EQ(darkenTextsOnFills(scene.drawing), 2);
    EXPECT_EQ(colorOf(on), 250);
    EXPECT_EQ(colorOf(byLayer), 250);
    EXPECT_EQ(colorOf(red), 1) << "another colour is its maker's wish";
    for (const NcDbObjectId id : {below, inHole, beside})
        EXPECT_EQ(colorOf(id), 7);
    EXPECT_EQ(darkenTextsOnFills(scene.drawing), 0);
}
