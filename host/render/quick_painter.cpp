#include "quick_painter.h"

#include "text_painting.h"

#include <algorithm>
#include <cmath>

namespace {

// In dots of the screen.
constexpr double kDot = 1.3;       // what is no longer is one
constexpr double kReadable = 3.0;  // the least height of capitals
constexpr double kNeighbour = 0.6; // corners nearer than this are one
constexpr int kMostGathered = 4096;

QColor mixed(const QColor& a, const QColor& b)
{
    return {(a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2};
}

} // namespace

QuickPainter::QuickPainter(QPainter& painter, const QTransform& toDevice, const QColor& paper)
    : painter_(painter),
      toDevice_(toDevice),
      scale_(std::sqrt(std::fabs(toDevice.determinant()))),
      paper_(paper),
      screen_(painter.device()->width(), painter.device()->height()),
      set_(size_t(screen_.width()) * size_t(screen_.height()), 0)
{ }

double QuickPainter::longestSide(const Figure& figure) const
{
    return std::max(figure.box.width(), figure.box.height()) * scale_;
}

bool QuickPainter::paint(const Figure& figure, const QColor& color)
{
    const double longest = longestSide(figure);
    if (longest <= kDot && !figure.background) {
        addDot(toDevice_.map(figure.box.center()), figure.kind == Figure::Text ? mixed(color, paper_) : color);
        return true;
    }
    if (figure.kind == Figure::Line)
        return addLine(figure, color);
    if (figure.kind == Figure::Text && addText(figure, color, longest))
        return true;
    flush();
    if (figure.kind == Figure::Fill)
        forgetDots(toDevice_.mapRect(figure.box));
    return false;
}

// A fill may have hidden them.
void QuickPainter::forgetDots(const QRectF& below)
{
    const QRect area = below.toAlignedRect().intersected(QRect(QPoint(0, 0), screen_));
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto row = set_.begin() + std::ptrdiff_t(y) * screen_.width();
        std::fill(row + area.left(), row + area.right() + 1, 0u);
    }
}

void QuickPainter::takeColor(const QColor& color)
{
    if (color_ == color && dots_.size() + lines_.size() < kMostGathered)
        return;
    flush();
    color_ = color;
}

void QuickPainter::addDot(const QPointF& at, const QColor& color)
{
    const int x = int(at.x()), y = int(at.y());
    if (at.x() < 0.0 || at.y() < 0.0 || x >= screen_.width() || y >= screen_.height())
        return;
    QRgb& before = set_[size_t(y) * size_t(screen_.width()) + size_t(x)];
    if (before == color.rgb())
        return;
    before = color.rgb();
    takeColor(color);
    dots_.append(QPointF(x, y)); // a dot without smoothing covers what lies right of and below its corner
}

QPolygonF QuickPainter::toDevice(const QPolygonF& line) const
{
    QPolygonF kept;
    const int count = line.size();
    kept.reserve(count);
    for (int i = 0; i < count; ++i) {
        const QPointF p = toDevice_.map(line[i]);
        const bool told = kept.isEmpty() || i + 1 == count || std::fabs(p.x() - kept.last().x()) > kNeighbour
            || std::fabs(p.y() - kept.last().y()) > kNeighbour;
        if (told)
            kept.append(p);
    }
    return kept;
}

bool QuickPainter::addLine(const Figure& figure, const QColor& color)
{
    const QPolygonF& line = figure.polygons.front();
    takeColor(color);
    if (line.size() == 2) {
        lines_.append(toDevice_.map(QLineF(line[0], line[1])));
        return true;
    }
    const QPolygonF kept = toDevice(line);
    for (int i = 1; i < kept.size(); ++i)
        lines_.append(QLineF(kept[i - 1], kept[i]));
    return true;
}

bool QuickPainter::addText(const Figure& figure, const QColor& color, double longest)
{
    const QTransform placing = figure.text.placing * toDevice_;
    const double height = QLineF(placing.map(QPointF(0, 0)), placing.map(QPointF(0, 1))).length();
    if (height >= kReadable || longest <= 0.0)
        return false;
    takeColor(mixed(color, paper_));
    lines_.append(toDevice_.map(textBar(figure.text)));
    return true;
}

void QuickPainter::flush()
{
    if (dots_.isEmpty() && lines_.isEmpty())
        return;
    painter_.setPen(QPen(color_, 1.0));
    painter_.setBrush(Qt::NoBrush);
    if (!lines_.isEmpty())
        painter_.drawLines(lines_);
    if (!dots_.isEmpty()) {
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.drawPoints(dots_.constData(), dots_.size());
        painter_.setRenderHint(QPainter::Antialiasing, true);
    }
    dots_.clear();
    lines_.clear();
}
