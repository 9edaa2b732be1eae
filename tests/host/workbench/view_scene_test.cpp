// The picture while a large drawing is moved.
#include "window_fixture.h"

#include <drawing/host_access.h>

#include <random>

namespace {

class ViewSceneTest : public MainWindowTest {
protected:
    void fill(int count)
    {
        NcDbDatabase& drawing = *view()->document().database();
        auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(drawing.currentSpaceId());
        std::mt19937 random(2);
        for (int i = 0; i < count; ++i)
            HostAccess::addEntity(
                *space,
                std::make_unique<NcDbText>(NcGePoint3d(double(random() % 100) - 50.0, double(random() % 100) - 50.0, 0),
                                           QString::number(random()), 2.0));
        HostAccess::touch(*space);
    }
    void wheel(int steps)
    {
        const QPointF at(view()->rect().center());
        QWheelEvent event(at, view()->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, 120 * steps), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view(), &event);
    }
    // However quick the machine is, the next picture is not done in a frame.
    void takeTimeAway() { view()->setPieceTime(0); }
    bool waitUntilSharp()
    {
        view()->setPieceTime(DrawingView::kPieceMilliseconds);
        view()->update();
        for (int i = 0; i < 1000 && !view()->isSharp(); ++i)
            QTest::qWait(10);
        return view()->isSharp();
    }
};

} // namespace

TEST_F(ViewSceneTest, ASmallDrawingIsSharpInEveryFrame)
{
    showHundred();
    window->runLine(QStringLiteral("CIRCLE 0,0 5"));
    view()->repaint();
    EXPECT_TRUE(view()->isSharp());
    wheel(1);
    EXPECT_FALSE(view()->isSharp());
    view()->repaint();
    EXPECT_TRUE(view()->isSharp());
}

TEST_F(ViewSceneTest, ALargeOneIsMovedAndThenPaintedAnew)
{
    showHundred();
    fill(800);
    view()->repaint();
    ASSERT_TRUE(view()->isSharp());
    takeTimeAway();
    wheel(1);
    view()->repaint();
    EXPECT_FALSE(view()->isSharp()) << "a frame does not wait for it";
    EXPECT_TRUE(waitUntilSharp());
    const QImage settled = view()->grab().toImage();
    fill(0);
    EXPECT_FALSE(view()->isSharp());
    EXPECT_EQ(view()->grab().toImage(), settled) << "the same as painted at once";
}

TEST_F(ViewSceneTest, APictureOfTheWindowIsSharpAtOnce)
{
    showHundred();
    fill(800);
    view()->repaint();
    takeTimeAway();
    wheel(-2);
    const QImage grabbed = view()->grab().toImage();
    EXPECT_TRUE(view()->isSharp());
    EXPECT_TRUE(waitUntilSharp());
    EXPECT_EQ(view()->grab().toImage(), grabbed);
}

TEST_F(ViewSceneTest, AChangeInTheMiddleOfAPictureIsSeen)
{
    showHundred();
    fill(800);
    view()->repaint();
    takeTimeAway();
    wheel(1);
    view()->repaint();
    ASSERT_FALSE(view()->isSharp());
    fill(10);
    view()->repaint();
    EXPECT_TRUE(view()->isSharp()) << "a changed drawing is painted whole";
}

TEST_F(ViewSceneTest, AMuchEnlargedPictureStandsWhereTheDrawingIs)
{
    showHundred();
    ViewScene scene;
    const QRectF window(0, 0, 100, 100);
    const QSize size(200, 200);
    NcDbDatabase drawing;
    auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(drawing.currentSpaceId());
    HostAccess::addEntity(*space, std::make_unique<NcDbLine>(NcGePoint3d(0, 50, 0), NcGePoint3d(100, 50, 0)));
    const DisplayList list = recordDrawing(drawing);
    PaintStyle style;
    style.paper = Qt::black;
    style.lineWidth = 4.0;
    const QRectF screen(QPointF(0, 0), size);
    scene.paint(list, style, {fitWindow(window, screen), size, 1.0});
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter painter(&image);
    // The line's lower half is a hundred times as large.
    scene.show(painter, fitWindow(QRectF(50, 49.5, 1, 1), screen), Qt::black);
    painter.end();
    EXPECT_EQ(image.pixelColor(100, 100), QColor(Qt::white));
    scene.paint(list, style, {fitWindow(window, screen), size, 1.0});
    painter.begin(&image);
    scene.show(painter, fitWindow(QRectF(500, 500, 100, 100), screen), Qt::blue);
    painter.end();
    EXPECT_EQ(image.pixelColor(100, 100), QColor(Qt::blue)) << "nothing of it is there";
}
