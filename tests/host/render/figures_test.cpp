// What the kinds of entities look like.
#include "scene.h"

#include <render/hatch_pattern.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

QRectF boxOfFirst(const DisplayList& list) { return list.figures().empty() ? QRectF() : list.figures().front().box; }

void expectBox(const QRectF& box, double left, double bottom, double right, double top, double gap)
{
    EXPECT_NEAR(box.left(), left, gap);
    EXPECT_NEAR(box.top(), bottom, gap);
    EXPECT_NEAR(box.right(), right, gap);
    EXPECT_NEAR(box.bottom(), top, gap);
}

Figure textFigure(NcDbText* text)
{
    Scene scene;
    scene.add(text);
    const auto figures = scene.record().figures();
    EXPECT_EQ(figures.size(), 1u);
    return figures.empty() ? Figure() : figures.front();
}

QStringList mtextLines(const QString& contents, double width = 0.0)
{
    Scene scene;
    auto* text = new NcDbMText;
    text->setContents(contents);
    text->setTextHeight(1.0);
    text->setWidth(width);
    scene.add(text);
    return textsOf(scene.record());
}

} // namespace

TEST(Figures, CirclesAndArcsTouchTheirBox)
{
    Scene circle;
    circle.add(new NcDbCircle({5, 5, 0}, NcGeVector3d::kZAxis, 2.0));
    expectBox(boxOfFirst(circle.record()), 3, 3, 7, 7, 1e-9);
    Scene arc;
    arc.add(new NcDbArc({0, 0, 0}, 10.0, 3 * M_PI / 2, M_PI / 2));
    expectBox(boxOfFirst(arc.record()), 0, -10, 10, 10, 1e-3);
}

TEST(Figures, ABulgeOfOneIsAHalfCircleToTheRight)
{
    Scene scene;
    auto* line = new NcDbPolyline;
    line->addVertexAt(0, {0, 0}, 1.0);
    line->addVertexAt(1, {10, 0});
    scene.add(line);
    expectBox(boxOfFirst(scene.record()), 0, -5, 10, 0, 1e-2);
}

TEST(Figures, AClosedPolylineReturnsToItsBeginning)
{
    Scene scene;
    auto* line = new NcDbPolyline;
    for (const auto& p : {NcGePoint2d(0, 0), NcGePoint2d(4, 0), NcGePoint2d(4, 3)})
        line->addVertexAt(line->numVerts(), p);
    line->setClosed(true);
    scene.add(line);
    const QPolygonF shown = scene.record().figures().front().polygons.front();
    EXPECT_EQ(shown.size(), 4);
    EXPECT_TRUE(shown.isClosed());
}

TEST(Figures, CapitalsAreAsHighAsTheText)
{
    const Figure figure = textFigure(new NcDbText({10, 20, 0}, QStringLiteral("ТЕН"), 5.0));
    EXPECT_NEAR(figure.box.top(), 20.0, 0.05);
    EXPECT_NEAR(figure.box.bottom(), 25.0, 0.05);
    EXPECT_NEAR(figure.box.left(), 10.0, 0.5);
}

TEST(Figures, TextIsHeldByItsAlignment)
{
    const auto aligned = [](int horizontal, int vertical) {
        auto* text = new NcDbText({-99, -99, 0}, QStringLiteral("ННН"), 2.0);
        text->setHorizontalMode(horizontal);
        text->setVerticalMode(vertical);
        text->setAlignmentPoint({0, 0, 0});
        return textFigure(text).box;
    };
    EXPECT_NEAR(aligned(NcDbText::kTextCenter, NcDbText::kTextBase).center().x(), 0.0, 0.2);
    EXPECT_NEAR(aligned(NcDbText::kTextRight, NcDbText::kTextBase).right(), 0.0, 0.4);
    EXPECT_NEAR(aligned(NcDbText::kTextLeft, NcDbText::kTextTop).bottom(), 0.0, 0.05);
    EXPECT_NEAR(aligned(NcDbText::kTextMiddle, NcDbText::kTextBase).center().y(), 0.0, 0.05);
    EXPECT_NEAR(aligned(NcDbText::kTextLeft, NcDbText::kTextVertMid).center().y(), 0.0, 0.05);
}

TEST(Figures, TextTurnsAboutItsPlace)
{
    const QRectF box = textFigure(new NcDbText({0, 0, 0}, QStringLiteral("ННННН"), 2.0, M_PI / 2)).box;
    EXPECT_NEAR(box.left(), -2.0, 0.05);
    EXPECT_GT(box.bottom(), 6.0);
}

TEST(Figures, ATextFittedBetweenTwoPointsFillsThem)
{
    auto* text = new NcDbText({0, 0, 0}, QStringLiteral("НН"), 2.0);
    text->setHorizontalMode(NcDbText::kTextFit);
    text->setAlignmentPoint({30, 0, 0});
    const QRectF box = textFigure(text).box;
    EXPECT_NEAR(box.width(), 30.0, 4.0);
    EXPECT_NEAR(box.bottom(), 2.0, 0.05);
}

TEST(Figures, CodesOfTextsAreReplaced)
{
    EXPECT_EQ(textFigure(new NcDbText({}, QStringLiteral("20%%d %%p1 %%c5 %%%"), 1.0)).text.text,
              QStringLiteral("20° ±1 ⌀5 %"));
    EXPECT_EQ(textFigure(new NcDbText({}, QStringLiteral("%%uимя%%u %%065"), 1.0)).text.text, QStringLiteral("имя A"));
}

TEST(Figures, ParagraphsOfAMultilineTextAreLines)
{
    EXPECT_EQ(mtextLines(QStringLiteral("раз\\Pдва")), (QStringList{QStringLiteral("раз"), QStringLiteral("два")}));
    EXPECT_EQ(mtextLines(QStringLiteral("{\\fArial|b1;\\H2x;Крупно} \\C1;и\\~цвет")),
              (QStringList{QStringLiteral("Крупно и\u00A0цвет")}));
    EXPECT_EQ(mtextLines(QStringLiteral("\\{a\\\\b\\} \\U+0414 \\S1/2; 5%%d")),
              (QStringList{QStringLiteral("{a\\b} Д 1/2 5°")}));
}

TEST(Figures, LongLinesOfAMultilineTextAreBroken)
{
    const QStringList lines = mtextLines(QStringLiteral("одно два три четыре пять"), 8.0);
    EXPECT_GT(lines.size(), 2);
    EXPECT_EQ(lines.join(QLatin1Char(' ')), QStringLiteral("одно два три четыре пять"));
}

TEST(Figures, TheAttachmentOfAMultilineTextHoldsIt)
{
    const auto box = [](int attachment) {
        Scene scene;
        auto* text = new NcDbMText;
        text->setContents(QStringLiteral("НННН\\PНННН"));
        text->setTextHeight(1.0);
        text->setAttachment(attachment);
        scene.add(text);
        return scene.record().box();
    };
    EXPECT_NEAR(box(1).left(), 0.0, 0.2);
    EXPECT_NEAR(box(1).bottom(), 0.0, 0.05);
    EXPECT_NEAR(box(5).center().x(), 0.0, 0.1);
    EXPECT_NEAR(box(5).center().y(), 0.0, 0.05);
    EXPECT_NEAR(box(9).right(), 0.0, 0.2);
    EXPECT_NEAR(box(9).top(), 0.0, 0.05);
}

TEST(Figures, AGroundLiesUnderTheTextAndAroundIt)
{
    Scene scene;
    auto* text = new NcDbMText;
    text->setContents(QStringLiteral("-1.5"));
    text->setTextHeight(2.0);
    text->setBackgroundFill(true);
    text->setBackgroundScaleFactor(1.5);
    scene.add(text);
    const auto figures = scene.record().figures();
    ASSERT_EQ(figures.size(), 2u);
    EXPECT_TRUE(figures[0].background);
    EXPECT_EQ(figures[1].kind, Figure::Text);
    EXPECT_TRUE(figures[0].box.contains(figures[1].box));
    EXPECT_NEAR(figures[0].box.height(), 4.0, 1e-6) << "half a height on each side";
}

TEST(Figures, ATableHasCellsGroundsAndTexts)
{
    Scene scene;
    auto* table = new NcDbTable;
    table->setSize(2, 2);
    table->setRowHeight(5.0);
    table->setColumnWidth(0, 10.0);
    table->setColumnWidth(1, 20.0);
    table->setPosition({100, 50, 0});
    table->setTextString(0, 0, QStringLiteral("Имя"));
    table->setTextString(1, 1, QStringLiteral("5\\P6"));
    table->setTextHeight(1, 1, 1.5);
    table->setBackgroundColor(1, 1, NcCmColor::fromRGB(10, 20, 30));
    scene.add(table);
    const DisplayList list = scene.record();
    expectBox(list.box(), 100, 40, 130, 50, 1e-9);
    EXPECT_EQ(figuresOf(list, Figure::Line).size(), 4u);
    const auto fills = figuresOf(list, Figure::Fill);
    ASSERT_EQ(fills.size(), 1u);
    EXPECT_EQ(fills[0].color, QColor(10, 20, 30));
    EXPECT_EQ(fills[0].box, QRectF(110, 40, 20, 5));
    EXPECT_EQ(textsOf(list), (QStringList{QStringLiteral("Имя"), "5", "6"}));
}

TEST(Figures, MergedCellsAreOne)
{
    Scene scene;
    auto* table = new NcDbTable;
    table->setSize(2, 3);
    table->setRowHeight(5.0);
    for (int column = 0; column < 3; ++column)
        table->setColumnWidth(column, 10.0);
    table->mergeCells(0, 0, 0, 2);
    scene.add(table);
    const auto lines = figuresOf(scene.record(), Figure::Line);
    EXPECT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0].box.width(), 30.0);
}

TEST(Figures, ASolidHatchFillsItsLoops)
{
    Scene scene;
    auto* hatch = new NcDbHatch;
    hatch->appendLoop(NcDbHatch::kExternal, {{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {0, 0, 0, 0});
    hatch->appendLoop(NcDbHatch::kDefault, {{2, 2}, {4, 2}, {4, 4}}, {0, 0, 0});
    scene.add(hatch);
    const auto fills = figuresOf(scene.record(), Figure::Fill);
    ASSERT_EQ(fills.size(), 1u);
    EXPECT_EQ(fills[0].polygons.size(), 2u);
}

TEST(Figures, PatternsAreReadFromTheirText)
{
    const auto patterns = parsePatterns(
        QStringLiteral("; comment\n*SAND, песок\n0, 0,0, 0,2, 1,-1\n90, 1,0, 0,4\nbad\n*ICE\n45,0,0,0,1\n"));
    ASSERT_EQ(patterns.size(), 2u);
    EXPECT_EQ(patterns[0].name, QStringLiteral("SAND"));
    ASSERT_EQ(patterns[0].lines.size(), 2u);
    EXPECT_EQ(patterns[0].lines[0].dashes, (std::vector<double>{1, -1}));
    EXPECT_NEAR(patterns[0].lines[1].angle, M_PI / 2, 1e-12);
    EXPECT_EQ(patterns[1].lines[0].across, 1.0);
}

TEST(Figures, PatternLinesStayInsideOfTheLoops)
{
    const LinePattern pattern{QStringLiteral("H"), {{0.0, {0, 0.5}, 0.0, 1.0, {}}}};
    const std::vector<QPolygonF> square = {QPolygonF(QRectF(0, 0, 4, 4)), QPolygonF(QRectF(1, 1, 2, 2))};
    const auto strokes = patternStrokes(pattern, 1.0, square);
    double length = 0.0;
    for (const QPolygonF& stroke : strokes) {
        ASSERT_EQ(stroke.size(), 2);
        EXPECT_GE(stroke[0].x(), 0.0);
        EXPECT_LE(stroke[1].x(), 4.0);
        length += stroke[1].x() - stroke[0].x();
    }
    EXPECT_EQ(strokes.size(), 6u) << "two whole lines and two parted by the hole";
    EXPECT_NEAR(length, 12.0, 1e-9);
}

TEST(Figures, DashesBeginAtThePatternsOrigin)
{
    const LinePattern pattern{QStringLiteral("D"), {{0.0, {0, 0.5}, 0.0, 1.0, {1.0, -1.0}}}};
    const auto strokes = patternStrokes(pattern, 1.0, {QPolygonF(QRectF(0.5, 0, 4, 1))});
    ASSERT_EQ(strokes.size(), 3u);
    EXPECT_NEAR(strokes[0][0].x(), 0.5, 1e-9);
    EXPECT_NEAR(strokes[0][1].x(), 1.0, 1e-9);
    EXPECT_NEAR(strokes[1][0].x(), 2.0, 1e-9);
    EXPECT_NEAR(strokes[2][1].x(), 4.5, 1e-9);
}

TEST(Figures, APatternTooFineGivesNoStrokes)
{
    const LinePattern pattern{QStringLiteral("F"), {{0.0, {0, 0}, 0.0, 1e-9, {}}}};
    EXPECT_TRUE(patternStrokes(pattern, 1.0, {QPolygonF(QRectF(0, 0, 100, 100))}).empty());
    EXPECT_TRUE(patternStrokes(pattern, 0.0, {QPolygonF(QRectF(0, 0, 100, 100))}).empty());
}
