// The adapter itself: ranges, ticks, titles, the key, files.
#include "charts/axis_ranges.h"
#include "charts/picture_rules.h"
#include "charts/plotter/markup_text.h"
#include "charts/plotter/pixel_cover.h"
#include "charts/plotter/plot_font.h"
#include "charts/plotter/plot_ranges.h"
#include "charts/plotter/plot_ticks.h"
#include "support/message_count.h"

#include <QBuffer>
#include <QDateTime>
#include <QFontMetricsF>
#include <QSvgRenderer>
#include <cmath>
#include <gtest/gtest.h>

namespace {

const double noNumber = std::nan("");

PlotAxis axisOf(double from, double to, TickLabels labels = TickLabels::Number)
{
    PlotAxis axis;
    axis.setRange(from, to);
    axis.tickLabels = labels;
    return axis;
}

void expectShown(const PlotAxis& axis, bool any, double dataFrom, double dataTo, double from, double to)
{
    const PlotRange range = shownRange(axis, any, dataFrom, dataTo);
    EXPECT_DOUBLE_EQ(range.from, from);
    EXPECT_DOUBLE_EQ(range.to, to);
}

QStringList runTexts(const QString& markup)
{
    QStringList texts;
    const MarkupText text(markup, plotFont(8.0));
    for (const MarkupText::Run& run : text.runs())
        texts.append(QString::number(run.level) + ":" + run.text);
    return texts;
}

double timeOf(const QDate& date) { return double(date.startOfDay(Qt::UTC).toMSecsSinceEpoch()); }

Plotter& addLine(Plotter& plotter, const QVector<double>& xs, const QVector<double>& ys, const QString& title = "линия")
{
    LineGraph graph;
    graph.xColumn = plotter.datastore()->addColumn(xs, "x");
    graph.yColumn = plotter.datastore()->addColumn(ys, "y");
    graph.symbol = PlotSymbol::FilledCircle;
    graph.symbolSize = 4.0;
    graph.title = title;
    plotter.addGraph(graph);
    return plotter;
}

} // namespace

TEST(ShownRange, AnythingBecomesFiniteAndHasAWidth)
{
    expectShown(axisOf(1.0, 3.0), true, 0.0, 9.0, 1.0, 3.0);
    expectShown(axisOf(3.0, 1.0), true, 0.0, 9.0, 1.0, 3.0);
    expectShown(axisOf(noNumber, noNumber), true, 2.0, 9.0, 2.0, 9.0);
    expectShown(axisOf(-infinity, infinity), true, -2.0, 9.0, -9.0, 9.0);
    expectShown(axisOf(infinity, -infinity), false, 0.0, 0.0, 0.0, 1.0);
    expectShown(axisOf(5.0, infinity), false, 0.0, 0.0, 5.0, 6.0);
    expectShown(axisOf(-infinity, 5.0), false, 0.0, 0.0, 4.0, 5.0);
    expectShown(axisOf(5.0, 5.0), true, 5.0, 5.0, 4.0, 6.0);
    expectShown(axisOf(0.0, 0.0, TickLabels::DateTime), true, 0.0, 0.0, -15.0 * 86400000.0, 15.0 * 86400000.0);
    expectShown(axisOf(-1e300, 1e300), true, 0.0, 1.0, -1e100, 1e100);
    const PlotRange large = shownRange(axisOf(1e30, 1e30), true, 0.0, 0.0);
    EXPECT_GT(large.width(), 0.0);
}

TEST(NumberTicks, LabelsHaveTheDecimalsOfTheirStep)
{
    EXPECT_EQ(numberTicks({0.0, 1.0}, 5).labels, QStringList({"0", "0.2", "0.4", "0.6", "0.8", "1.0"}));
    EXPECT_EQ(numberTicks({100.0, 100.03}, 3).labels, QStringList({"100.00", "100.01", "100.02", "100.03"}));
    EXPECT_EQ(numberTicks({-0.3, 0.3}, 4).labels, QStringList({"-0.2", "0", "0.2"}));
    EXPECT_EQ(numberTicks({0.0, 4e9}, 2).labels, QStringList({"0", "2000000000", "4000000000"}));
}

TEST(DateTicks, AreFirstDaysOfMonthsOrYears)
{
    const PlotTicks years = dateTicks({timeOf(QDate(1965, 3, 1)), timeOf(QDate(1974, 3, 1))}, "MM.yy", 6);
    EXPECT_EQ(years.labels, QStringList({"01.66", "01.68", "01.70", "01.72", "01.74"}));
    EXPECT_EQ(years.major[0], timeOf(QDate(1966, 1, 1)));
    EXPECT_FALSE(years.minor.isEmpty());
    const PlotTicks months = dateTicks({timeOf(QDate(2037, 11, 15)), timeOf(QDate(2038, 3, 15))}, "MM.yy", 6);
    EXPECT_EQ(months.labels, QStringList({"12.37", "01.38", "02.38", "03.38"}));
}

TEST(DateTicks, AnyRangeEnds)
{
    for (double width : {1.0, 1e3, 1e7, 1e10, 1e12, 3e15}) {
        for (double middle : {-3e15, -1e12, 0.0, 2e12}) {
            const PlotTicks ticks = dateTicks({middle - width, middle + width}, "MM.yy", 8);
            EXPECT_GE(ticks.major.size(), 1) << width << " " << middle;
            EXPECT_LE(ticks.major.size(), 20);
            EXPECT_TRUE(std::is_sorted(ticks.major.begin(), ticks.major.end()));
        }
    }
}

TEST(Markup, BracesAndSingleCharactersGoDownAndUp)
{
    EXPECT_EQ(runTexts("Т_{ср.взв}^{Тек.}"), QStringList({"0:Т", "-1:ср.взв", "1:Тек."}));
    EXPECT_EQ(runTexts("T_h"), QStringList({"0:T", "-1:h"}));
    EXPECT_EQ(runTexts("T_b_f"), QStringList({"0:T", "-1:bf"}));
    EXPECT_EQ(runTexts("x^2 + 1"), QStringList({"0:x", "1:2", "0: + 1"}));
    EXPECT_EQ(runTexts("a_{b_{c}}d"), QStringList({"0:a", "-1:b", "-2:c", "0:d"}));
    EXPECT_EQ(runTexts("хвост_"), QStringList({"0:хвост_"}));
    EXPECT_EQ(runTexts("a_{b"), QStringList({"0:a_{b"}));
    EXPECT_EQ(runTexts("ДМ\\_1_2"), QStringList({"0:ДМ_1", "-1:2"})) << "behind a backslash a sign is a letter";
    EXPECT_EQ(runTexts("a\\b\\"), QStringList({"0:a\\b\\"})) << "before others a backslash is one, too";
    EXPECT_EQ(runTexts(""), QStringList());
    EXPECT_EQ(MarkupText("Т_{ср.взв }^{Пред.}", plotFont(8.0)).plainText(), "Тср.взв Пред.");
}

TEST(Markup, SubscriptsMakeTheLineDeeperAndAreSmaller)
{
    const QFont font = plotFont(12.0);
    EXPECT_GT(MarkupText("T_h", font).size().height(), MarkupText("T", font).size().height());
    EXPECT_LT(MarkupText("T_h", font).size().width(), MarkupText("Th", font).size().width());
}

TEST(PixelCoverage, BoxesAndLinesTakePixels)
{
    PixelCover cover(QSize(200, 100));
    cover.add(QRectF(60.0, 10.0, 10.0, 5.0));
    EXPECT_EQ(cover.taken(QRectF(0.0, 0.0, 200.0, 100.0)), 50);
    EXPECT_EQ(cover.taken(QRectF(65.0, 12.0, 50.0, 50.0)), 15);
    EXPECT_TRUE(cover.isFull(QRectF(61.0, 11.0, 9.0, 4.0)));
    EXPECT_FALSE(cover.isFull(QRectF(61.0, 11.0, 10.0, 4.0)));
    EXPECT_TRUE(cover.isFull(QRectF(-50.0, -50.0, 20.0, 20.0))); // nothing is free outside
    cover.addLine(QPointF(-1e9, 50.0), QPointF(1e9, 50.0), 1.0);
    EXPECT_GE(cover.taken(QRectF(0.0, 48.0, 200.0, 5.0)), 200);
    EXPECT_EQ(cover.taken(QRectF(0.0, 60.0, 200.0, 40.0)), 0);
}

TEST(PlotterPicture, IsAsSharpAsItsRatio)
{
    Plotter plotter;
    addLine(plotter, {0.0, 1.0}, {0.0, 1.0});
    const QPixmap twice = plotter.grabPixelImage(QSize(300, 200), 2.0);
    EXPECT_EQ(twice.size(), QSize(600, 400));
    EXPECT_EQ(twice.devicePixelRatio(), 2.0);
    const PlotRecord atTwo = plotter.record();
    const QPixmap once = plotter.grabPixelImage(QSize(300, 200));
    EXPECT_EQ(once.size(), QSize(300, 200));
    EXPECT_EQ(plotter.record().canvas, atTwo.canvas); // the layout is the same
    // Not a blown-up copy: its pixels hold more than those of the single one.
    EXPECT_NE(twice.toImage().scaled(300, 200), once.toImage());
    const QImage grown = once.toImage().scaled(600, 400);
    EXPECT_NE(grown, twice.toImage());
}

TEST(PlotterPicture, NoSizeAndSillySizesGiveAWhitePicture)
{
    const MessageCount messages;
    Plotter plotter;
    addLine(plotter, {0.0, 1.0}, {0.0, 1.0});
    EXPECT_EQ(plotter.grabPixelImage(QSize(-1, -1)).size(), QSize(1, 1));
    EXPECT_EQ(plotter.grabPixelImage(QSize(0, 100)).size(), QSize(1, 100));
    EXPECT_TRUE(plotter.record().white);
    EXPECT_EQ(plotter.grabPixelImage(QSize(1000000, 5)).size(), QSize(8192, 5));
    EXPECT_EQ(plotter.grabPixelImage(QSize(40, 30), noNumber).size(), QSize(40, 30));
    for (int side = 1; side < 120; side += 7)
        plotter.grabPixelImage(QSize(side, 120 - side));
    EXPECT_EQ(messages.texts(), QStringList());
}

TEST(PlotterPicture, ExtremeNumbersAreDrawnWithoutAWord)
{
    const MessageCount messages;
    for (double value : {1e300, -1e300, 1e-300, 1.7e308, 5e-324}) {
        Plotter plotter;
        addLine(plotter, {0.0, 1.0, value, noNumber, infinity, -infinity}, {value, 0.0, -value, 1.0, 2.0, 3.0});
        GraphLabels labels;
        labels.xColumn = 0;
        labels.yColumn = 1;
        plotter.addLabels(labels);
        plotter.key().shown = true;
        EXPECT_FALSE(plotter.grabPixelImage(QSize(400, 300)).isNull());
        expectInsidePicture(plotter.record());
        plotter.setX(0.0, 1.0);
        plotter.setY(-1.0, 1.0);
        EXPECT_FALSE(plotter.grabPixelImage(QSize(400, 300)).isNull());
        plotter.xAxis().tickLabels = TickLabels::DateTime;
        plotter.xAxis().tickFormat = "MM.yy";
        plotter.setX(noNumber, noNumber);
        EXPECT_FALSE(plotter.grabPixelImage(QSize(400, 300)).isNull());
    }
    EXPECT_EQ(messages.texts(), QStringList());
}

TEST(PlotterPicture, ALongTitleIsShortenedAndALongKeyBroken)
{
    Plotter plotter;
    for (int i = 0; i < 40; ++i)
        addLine(plotter, {0.0, 1.0}, {0.0, double(i)}, QString("Очень длинное название кривой номер %1").arg(i));
    plotter.xAxis().label = QString("слово ").repeated(60);
    plotter.yAxis().label = QString("Оченьдлинноесловобезпробелов").repeated(10);
    for (KeyPosition position : {KeyPosition::InsideTopRight, KeyPosition::InsideBottomRight, KeyPosition::AboveRight,
                                 KeyPosition::AboveMiddle}) {
        for (KeyLayout layout : {KeyLayout::OneColumn, KeyLayout::OneRow, KeyLayout::WrappedRows}) {
            plotter.key() = {true, position, layout};
            plotter.grabPixelImage(QSize(500, 300));
            const PlotRecord& record = plotter.record();
            EXPECT_FALSE(record.white);
            const QRectF picture(0.0, 0.0, 500.0, 300.0);
            EXPECT_TRUE(picture.contains(record.x.labelBox));
            EXPECT_TRUE(picture.contains(record.y.labelBox));
        }
    }
}

TEST(PlotterPicture, TheKeyHasItsTitlesInOrderAndTheLayoutAskedFor)
{
    Plotter plotter;
    addLine(plotter, {0.0, 1.0}, {0.0, 1.0}, "первая");
    addLine(plotter, {0.0, 1.0}, {0.0, 0.5}, "");
    addLine(plotter, {0.0, 1.0}, {0.0, 0.2}, "вторая");
    plotter.key() = {true, KeyPosition::InsideTopRight, KeyLayout::OneColumn};
    plotter.grabPixelImage(QSize(400, 300));
    PlotRecord::Key key = plotter.record().key;
    EXPECT_EQ(key.titles, QStringList({"первая", "вторая"}));
    EXPECT_EQ(key.entries[0].left(), key.entries[1].left());
    EXPECT_LT(key.entries[0].top(), key.entries[1].top());
    plotter.key().layout = KeyLayout::OneRow;
    plotter.grabPixelImage(QSize(400, 300));
    key = plotter.record().key;
    EXPECT_EQ(key.entries[0].top(), key.entries[1].top());
    EXPECT_LT(key.entries[0].right(), key.entries[1].left());
    plotter.key().shown = false;
    plotter.grabPixelImage(QSize(400, 300));
    EXPECT_TRUE(plotter.record().key.box.isNull());
}

TEST(PlotterFiles, SvgAndPdfHoldTheSamePlot)
{
    Plotter plotter;
    addLine(plotter, {0.0, 1.0, 2.0}, {0.0, 1.0, 0.5}, "Температура_{h}");
    plotter.key().shown = true;
    QBuffer svg, pdf;
    svg.open(QIODevice::WriteOnly);
    pdf.open(QIODevice::WriteOnly);
    ASSERT_TRUE(plotter.writeSvg(&svg, QSize(400, 300)));
    const QRectF canvas = plotter.record().canvas;
    ASSERT_TRUE(plotter.writePdf(&pdf, QSize(400, 300)));
    EXPECT_EQ(plotter.record().canvas, canvas);
    QSvgRenderer renderer(svg.data());
    ASSERT_TRUE(renderer.isValid());
    EXPECT_EQ(renderer.viewBox().size(), QSize(400, 300));
    EXPECT_TRUE(svg.data().contains("Температура"));
    EXPECT_TRUE(pdf.data().startsWith("%PDF-1"));
    EXPECT_TRUE(pdf.data().contains("/MediaBox [0 0 300 225]")
                || pdf.data().contains("/MediaBox [0 0 300.000000 225.000000]"))
        << pdf.data().mid(pdf.data().indexOf("/MediaBox"), 50).toStdString();
}

TEST(PlotterFiles, AClosedDeviceIsToldAndNotWritten)
{
    Plotter plotter;
    addLine(plotter, {0.0, 1.0}, {0.0, 1.0});
    QBuffer readOnly;
    readOnly.open(QIODevice::ReadOnly);
    EXPECT_FALSE(plotter.writePdf(&readOnly, QSize(100, 100)));
    EXPECT_FALSE(plotter.writeSvg(&readOnly, QSize(100, 100)));
    EXPECT_FALSE(plotter.writePdf(nullptr, QSize(100, 100)));
    EXPECT_FALSE(plotter.writeSvg(nullptr, QSize(100, 100)));
}

TEST(PlotFonts, HaveCyrillicLettersAndOneWidthOfDigits)
{
    const QFontMetricsF metrics(plotFont(8.0));
    for (const QChar& letter : QStringLiteral("Глубина Температура ЖЫЩёъ°"))
        EXPECT_TRUE(metrics.inFont(letter));
    EXPECT_EQ(metrics.horizontalAdvance('1'), metrics.horizontalAdvance('8'));
    EXPECT_EQ(plotFont(8.0).pixelSize(), 11);
    EXPECT_EQ(plotFont(8.0).family(), "DejaVu Sans");
}
