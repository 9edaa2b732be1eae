#include "figure_painter.h"

#include "quick_painter.h"
#include "text_painting.h"
#include "text_stamps.h"

#include <drawing/long_work.h>

#include <QElapsedTimer>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

constexpr int kLeastGrayOnDark = 115;
constexpr size_t kMostFills = 200;

// Pure blue is nearly as dark as a dark ground; white is mixed in until it shows.
QColor readableOnDark(const QColor& color)
{
    const int gray = qGray(color.rgb());
    if (gray >= kLeastGrayOnDark)
        return color;
    const double white = double(kLeastGrayOnDark - gray) / (255 - gray);
    const auto mixed = [white](int channel) { return qRound(channel + white * (255 - channel)); };
    return {mixed(color.red()), mixed(color.green()), mixed(color.blue()), color.alpha()};
}

class FigurePainter {
public:
    FigurePainter(QPainter& painter, const QTransform& toDevice, const PaintStyle& style)
        : painter_(painter), toDevice_(toDevice), style_(style), onLight_(qGray(style.paper.rgb()) > 127)
    {
        if (style.quick)
            quick_.emplace(painter, toDevice, style.paper);
    }

    void paint(const Figure& figure)
    {
        const QColor color = colorOf(figure);
        const bool clipped = bool(figure.clip);
        if (quick_) {
            if (!clipped && !isPicked(figure) && quick_->paint(figure, color))
                return;
            quick_->flush();
        }
        if (clipped) {
            painter_.save();
            QPainterPath clip;
            clip.addPolygon(toDevice_.map(*figure.clip));
            painter_.setClipPath(clip, Qt::IntersectClip);
        }
        paintShape(figure, color);
        if (clipped)
            painter_.restore();
    }

    void finish()
    {
        if (quick_)
            quick_->flush();
    }

private:
    QColor colorOf(const Figure& figure) const
    {
        if (figure.background)
            return style_.paper;
        if (figure.foreground)
            return onLight_ ? QColor(Qt::black) : QColor(Qt::white);
        // Fills and the lines of patterns keep the colour that the legend shows.
        const bool keeps = onLight_ || figure.kind == Figure::Fill || figure.thin;
        return keeps ? figure.color : readableOnDark(figure.color);
    }

    bool isPicked(const Figure& figure) const
    {
        return !style_.selected.empty() && !figure.background && style_.selected.count(figure.source);
    }

    QPolygonF onDevice(const QPolygonF& line) const { return quick_ ? quick_->toDevice(line) : toDevice_.map(line); }

    void paintShape(const Figure& figure, const QColor& color)
    {
        const bool picked = isPicked(figure);
        switch (figure.kind) {
        case Figure::Line: return paintLine(figure, color, picked);
        case Figure::Fill: return paintFill(figure, color, picked);
        case Figure::Text: return paintText(figure.text, picked ? style_.selection : color, isOnFill(figure));
        case Figure::Dot:
            return paintDot(toDevice_.map(figure.polygons.front().front()), picked ? style_.selection : color,
                            1.5 * style_.lineWidth);
        }
    }

    QPen pen(const QColor& color, double width) const
    {
        return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    }

    void paintLine(const Figure& figure, const QColor& color, bool picked)
    {
        const QPolygonF line = onDevice(figure.polygons.front());
        const double width = figure.thin ? style_.thinWidth : style_.lineWidth;
        painter_.setBrush(Qt::NoBrush);
        if (picked) {
            painter_.setPen(pen(style_.selection, width + 2.0 * style_.lineWidth));
            painter_.drawPolyline(line);
        }
        if (line.size() == 2 && line[0] == line[1])
            return paintDot(line[0], color, 0.75 * style_.lineWidth);
        painter_.setPen(pen(color, width));
        painter_.drawPolyline(line);
    }

    // A rim of the paper's colour keeps a text readable over lines and hatches; on a
    // dark view it would only thicken the letters, but where they stand on a fill.
    void paintText(const FigureText& text, const QColor& color, bool onFill)
    {
        const bool rimmed = onLight_ || onFill;
        if (quick_ && stampText(painter_, text, toDevice_, color, rimmed ? style_.paper : QColor()))
            return;
        if (rimmed)
            painter_.fillPath(toDevice_.map(textRim(text)), style_.paper);
        if (style_.liveText)
            paintTextLine(painter_, text, toDevice_, color);
        else
            painter_.fillPath(toDevice_.map(textOutline(text)), color);
    }

    // Among more fills than these each text is not looked for.
    bool isOnFill(const Figure& text) const
    {
        return fills_.size() <= kMostFills
            && std::any_of(fills_.begin(), fills_.end(), [&](const QRectF& fill) { return fill.intersects(text.box); });
    }

    void paintDot(const QPointF& at, const QColor& color, double radius)
    {
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(color);
        painter_.drawEllipse(at, radius, radius);
    }

    void paintFill(const Figure& figure, const QColor& color, bool picked)
    {
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        for (const QPolygonF& loop : figure.polygons) {
            path.addPolygon(onDevice(loop));
            path.closeSubpath();
        }
        // A hair line of the same colour closes the seams between neighbours.
        painter_.setPen(figure.background ? QPen(Qt::NoPen) : pen(color, style_.thinWidth));
        painter_.setBrush(color);
        painter_.drawPath(path);
        if (!onLight_ && !figure.background && fills_.size() <= kMostFills)
            fills_.push_back(figure.box);
        if (picked) {
            painter_.setPen(Qt::NoPen);
            painter_.setBrush(QBrush(style_.selection, Qt::Dense6Pattern));
            painter_.drawPath(path);
        }
    }

    QPainter& painter_;
    const QTransform toDevice_;
    const PaintStyle& style_;
    const bool onLight_;
    std::vector<QRectF> fills_; // painted so far, on a dark ground
    std::optional<QuickPainter> quick_;
};

bool touches(const QRectF& a, const QRectF& b)
{
    return a.left() <= b.right() && a.right() >= b.left() && a.top() <= b.bottom() && a.bottom() >= b.top();
}

} // namespace

QTransform fitWindow(const QRectF& window, const QRectF& target)
{
    const double width = window.width() > 0.0 ? window.width() : 1e-9;
    const double height = window.height() > 0.0 ? window.height() : 1e-9;
    double scale = std::min(target.width() / width, target.height() / height);
    if (window.width() <= 0.0 && window.height() <= 0.0)
        scale = 1.0;
    QTransform fit;
    fit.translate(target.center().x(), target.center().y());
    fit.scale(scale, -scale);
    fit.translate(-window.center().x(), -window.center().y());
    return fit;
}

struct FigurePainting::Parts {
    Parts(const DisplayList& list, QPainter& device, const QTransform& toDevice, PaintStyle given, const QRectF& seen)
        : figures(list.figures()),
          boxes(list.boxes()),
          style(std::move(given)),
          visible(seen),
          painter(device, toDevice, style)
    { }

    const std::vector<Figure>& figures;
    const std::vector<QRectF>& boxes;
    const PaintStyle style;
    const QRectF visible;
    FigurePainter painter;
    size_t next = 0;
};

FigurePainting::FigurePainting(const DisplayList& list, QPainter& painter, const QTransform& toDevice,
                               const PaintStyle& style, const QRectF& visible)
{
    painter.setRenderHint(QPainter::Antialiasing);
    parts_ = std::make_unique<Parts>(list, painter, toDevice, style, visible);
}

FigurePainting::~FigurePainting() = default;

bool FigurePainting::paint(int milliseconds)
{
    constexpr size_t kBetweenLooks = 64;
    QElapsedTimer clock;
    clock.start();
    for (size_t& i = parts_->next; i < parts_->figures.size(); ++i) {
        if (i % kBetweenLooks == 0 && clock.elapsed() >= milliseconds)
            return false;
        if (parts_->visible.isNull() || touches(parts_->boxes[i], parts_->visible))
            parts_->painter.paint(parts_->figures[i]);
    }
    parts_->painter.finish();
    return true;
}

void paintFigures(const DisplayList& list, QPainter& painter, const QTransform& toDevice, const PaintStyle& style,
                  const QRectF& visible)
{
    FigurePainting(list, painter, toDevice, style, visible).paint(std::numeric_limits<int>::max());
}

double FigurePainting::share() const { return double(parts_->next) / double(parts_->figures.size() + 1); }

bool paintFiguresOn(const DisplayList& list, QPainter& painter, const QTransform& toDevice, const PaintStyle& style,
                    const QRectF& visible)
{
    constexpr int kBetweenLooks = 20; // ms
    FigurePainting painting(list, painter, toDevice, style, visible);
    while (!painting.paint(kBetweenLooks))
        if (!LongWork::goOn(kRecordedOfWork + (1.0 - kRecordedOfWork) * painting.share()))
            return false;
    return true;
}
