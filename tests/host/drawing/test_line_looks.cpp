// Line types, widths and where a masked text is held.
#include "drawing_fixture.h"

#include <nrx/editor.h>

#include <cmath>
#include <gtest/gtest.h>

TEST(LineLooks, AnEntityTakesItsLineTypeFromTheLayerUnlessItHasItsOwn)
{
    NcDbLine line;
    EXPECT_EQ(line.linetype(), QStringLiteral("ByLayer"));
    EXPECT_EQ(line.setLinetype(QString()), NcStatus::InvalidInput);
    EXPECT_EQ(line.setLinetype(QStringLiteral("ByBlock")), NcStatus::Ok);

    NcDbLine other;
    other.setPropertiesFrom(&line);
    EXPECT_EQ(other.linetype(), QStringLiteral("ByBlock"));
    const std::unique_ptr<NcDbEntity> copy(line.clone());
    EXPECT_EQ(copy->linetype(), QStringLiteral("ByBlock"));
    line.setDatabaseDefaults();
    EXPECT_EQ(line.linetype(), QStringLiteral("ByLayer"));
}

TEST(LineLooks, ALayerHasOneFromTheStart)
{
    NcDbLayerTableRecord layer;
    EXPECT_EQ(layer.linetype(), QStringLiteral("Continuous"));
    layer.setLinetype(QString());
    EXPECT_EQ(layer.linetype(), QStringLiteral("Continuous"));
    layer.setLinetype(QStringLiteral("Штриховая"));
    EXPECT_EQ(layer.linetype(), QStringLiteral("Штриховая"));
}

TEST(LineLooks, AConstantWidthIsThatOfEveryVertex)
{
    NcDbPolyline line;
    line.addVertexAt(0, {0, 0}, 0.0, 1.0, 2.0);
    line.addVertexAt(1, {1, 0}, 0.0, 3.0, 4.0);
    EXPECT_EQ(line.setConstantWidth(-1.0), NcStatus::InvalidInput);
    EXPECT_EQ(line.setConstantWidth(NAN), NcStatus::InvalidInput);
    double start = 0.0, end = 0.0;
    EXPECT_EQ(line.getWidthsAt(1, start, end), NcStatus::Ok);
    EXPECT_EQ(start, 3.0);
    EXPECT_EQ(end, 4.0);
    EXPECT_EQ(line.setConstantWidth(0.5), NcStatus::Ok);
    for (int i : {0, 1}) {
        EXPECT_EQ(line.getWidthsAt(i, start, end), NcStatus::Ok);
        EXPECT_EQ(start, 0.5);
        EXPECT_EQ(end, 0.5);
    }
    EXPECT_EQ(line.getWidthsAt(2, start, end), NcStatus::InvalidInput);
}

TEST(MTextAttribute, IsHeldAsTheTextOfOneLineWas)
{
    struct Row {
        int horizontal, vertical, attachment;
    };
    const Row rows[] = {
        {NcDbText::kTextLeft, NcDbText::kTextTop, 1},    {NcDbText::kTextCenter, NcDbText::kTextTop, 2},
        {NcDbText::kTextRight, NcDbText::kTextTop, 3},   {NcDbText::kTextLeft, NcDbText::kTextVertMid, 4},
        {NcDbText::kTextMiddle, NcDbText::kTextBase, 5}, {NcDbText::kTextRight, NcDbText::kTextVertMid, 6},
        {NcDbText::kTextLeft, NcDbText::kTextBase, 7},   {NcDbText::kTextCenter, NcDbText::kTextBottom, 8},
        {NcDbText::kTextRight, NcDbText::kTextBase, 9}};
    for (const Row& row : rows) {
        NcDbAttribute attribute;
        attribute.setHorizontalMode(row.horizontal);
        attribute.setVerticalMode(row.vertical);
        EXPECT_EQ(attribute.convertIntoMTextAttribute(), NcStatus::Ok);
        const std::unique_ptr<NcDbMText> text(attribute.getMTextAttribute());
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(text->attachment(), row.attachment);
    }
}
