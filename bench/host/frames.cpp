#include "frames.h"

#include "drawings.h"
#include "measure.h"

#include <drawing/documents.h>
#include <render/active_view.h>
#include <render/display_list.h>
#include <workbench/drawing_view.h>
#include <workbench/view_scene.h>

#include <QCoreApplication>
#include <QThread>
#include <QWheelEvent>

#include <cmath>
#include <functional>

namespace {

constexpr double kFrame = 1000.0 / 30.0;
constexpr int kFrames = 60;
constexpr double kAtRest = 1000.0; // until the picture is sharp again

void sendMouse(DrawingView& view, QEvent::Type type, const QPointF& at, Qt::MouseButton button)
{
    QMouseEvent event(type, at, button, type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &event);
}

void turnWheel(DrawingView& view, const QPointF& at, int steps)
{
    QWheelEvent event(at, at, QPoint(), QPoint(0, 120 * steps), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&view, &event);
}

// Each step of the hand with all that it leads to before the next one.
void tellFrames(const char* what, int entities, const std::function<void(int)>& step)
{
    std::vector<double> frames;
    double sum = 0.0;
    for (int i = 0; i < kFrames; ++i) {
        const Stopwatch watch;
        step(i);
        QCoreApplication::processEvents();
        frames.push_back(watch.spent().judged());
        sum += frames.back();
    }
    std::sort(frames.begin(), frames.end());
    char line[120];
    std::snprintf(line, sizeof line, "%s, %d entities, a frame in the mean", what, entities);
    tell(line, sum / kFrames, kFrame);
    tell("    the slowest but one", frames[kFrames - 2], kFrame);
}

// What the hand feels when it stops: until the picture is painted anew.
void tellRest(DrawingView& view)
{
    double most = 0.0;
    const Stopwatch all;
    while (!view.isSharp()) {
        const Stopwatch watch;
        QCoreApplication::processEvents();
        most = std::max(most, watch.spent().judged());
    }
    tell("    then sharp again after", all.spent().judged(), kAtRest);
    tell("    the longest step of it", most, kFrame);
}

} // namespace

void benchFrames(int entities)
{
    openStartDocument();
    Document& document = *Documents::instance().current();
    fillDrawing(*document.database(), entities);
    {
        DrawingView view(document);
        view.resize(1366, 768);
        view.show();
        view.zoomExtents();
        char what[80];
        std::snprintf(what, sizeof what, "first picture of %d entities", entities);
        tell(what, timed(1, [&] { QCoreApplication::processEvents(); }), 0.0);
        tellRest(view);

        QPointF hand(600, 400);
        sendMouse(view, QEvent::MouseButtonPress, hand, Qt::MiddleButton);
        tellFrames("panning all", entities, [&](int i) {
            hand += QPointF(6.0 * std::cos(i / 9.0), 4.0 * std::sin(i / 9.0));
            sendMouse(view, QEvent::MouseMove, hand, Qt::MiddleButton);
        });
        sendMouse(view, QEvent::MouseButtonRelease, hand, Qt::MiddleButton);
        tellRest(view);
        const QPointF middle(683, 384);
        tellFrames("zooming in and out by wheel", entities,
                   [&](int i) { turnWheel(view, middle, i < kFrames / 2 ? 1 : -1); });
        tellRest(view);
        for (int i = 0; i < 10; ++i)
            turnWheel(view, middle, 1);
        tellRest(view);
        sendMouse(view, QEvent::MouseButtonPress, hand, Qt::MiddleButton);
        tellFrames("panning a tenth of it", entities, [&](int) {
            hand += QPointF(5.0, 3.0);
            sendMouse(view, QEvent::MouseMove, hand, Qt::MiddleButton);
        });
        sendMouse(view, QEvent::MouseButtonRelease, hand, Qt::MiddleButton);
        tellRest(view);
        tellFrames("moving the cursor", entities,
                   [&](int i) { sendMouse(view, QEvent::MouseMove, QPointF(300 + 5 * i, 200 + 4 * i), Qt::NoButton); });
    }
    closeAllDocuments();
}

void benchTexts(int entities, int inSight)
{
    openStartDocument();
    Document& document = *Documents::instance().current();
    fillDrawing(*document.database(), entities);
    const QSize screen(1366, 768);
    // A quarter of the entities are texts, spread evenly over a square of a thousand units.
    ActiveView seen;
    seen.center = {500.0, 500.0};
    const double area = 1e6 * inSight / (entities / 4.0);
    seen.height = std::sqrt(area * screen.height() / screen.width());
    seen.width = area / seen.height;
    const QRectF part(500.0 - seen.width / 2.0, 500.0 - seen.height / 2.0, seen.width, seen.height);
    const DisplayList list = recordDrawing(*document.database());
    DisplayList texts;
    for (const Figure& figure : list.figures())
        if (figure.kind == Figure::Text)
            texts.figures().push_back(figure);
    PaintStyle look;
    look.quick = true;
    for (const double ratio : {1.0, 2.0}) {
        const ViewScene::Place place{fitWindow(part, QRectF(QPointF(), screen)), screen, ratio};
        ViewScene scene;
        char what[80];
        std::snprintf(what, sizeof what, "%d texts %.0f dots high on a light ground", inSight,
                      ratio * screen.height() / seen.height);
        tell(what, timed(5, [&] { scene.paint(texts, look, place); }), kFrame);
        tell("    with the lines and blocks around them", timed(5, [&] { scene.paint(list, look, place); }), 0.0);
    }
    {
        DrawingView view(document);
        view.setLightGround(true);
        view.resize(screen);
        view.show();
        setActiveView(*document.database(), seen);
        QCoreApplication::processEvents();
        tellRest(view);
        const QPointF middle(683, 384);
        QPointF hand = middle;
        sendMouse(view, QEvent::MouseButtonPress, hand, Qt::MiddleButton);
        tellFrames("panning them", entities, [&](int i) {
            hand += QPointF(3.0 * std::cos(i / 9.0), 2.0 * std::sin(i / 9.0));
            sendMouse(view, QEvent::MouseMove, hand, Qt::MiddleButton);
        });
        sendMouse(view, QEvent::MouseButtonRelease, hand, Qt::MiddleButton);
        tellRest(view);
        tellFrames("zooming them by wheel", entities, [&](int i) { turnWheel(view, middle, (i / 4) % 2 ? 1 : -1); });
        tellRest(view);
    }
    closeAllDocuments();
}
