#include "display_list.h"

#include <QLineF>
#include <algorithm>
#include <cmath>
#include <set>

namespace {

double distanceToSegment(const QPointF& p, const QPointF& a, const QPointF& b)
{
    const QPointF along = b - a;
    const double squared = QPointF::dotProduct(along, along);
    const double t = squared > 0.0 ? qBound(0.0, QPointF::dotProduct(p - a, along) / squared, 1.0) : 0.0;
    return QLineF(p, a + t * along).length();
}

double distanceToLine(const QPointF& p, const QPolygonF& line)
{
    double least = INFINITY;
    for (int i = 1; i < line.size(); ++i)
        least = std::min(least, distanceToSegment(p, line[i - 1], line[i]));
    return least;
}

bool insideLoops(const QPointF& p, const std::vector<QPolygonF>& loops)
{
    int crossed = 0;
    for (const QPolygonF& loop : loops)
        crossed += loop.containsPoint(p, Qt::OddEvenFill);
    return crossed % 2 == 1;
}

// Distance of the point to what the figure shows; 0 inside of a text's box.
double distanceTo(const Figure& figure, const QPointF& p)
{
    switch (figure.kind) {
    case Figure::Line: return distanceToLine(p, figure.polygons.front());
    case Figure::Dot: return QLineF(p, figure.polygons.front().front()).length();
    case Figure::Text: return figure.box.contains(p) ? 0.0 : INFINITY;
    case Figure::Fill: return insideLoops(p, figure.polygons) ? 0.0 : INFINITY;
    }
    return INFINITY;
}

bool contains(const QRectF& window, const QPointF& p)
{
    return p.x() >= window.left() && p.x() <= window.right() && p.y() >= window.top() && p.y() <= window.bottom();
}

bool crosses(const QRectF& window, const QPolygonF& line, bool closed)
{
    const QPointF corners[] = {window.topLeft(), window.topRight(), window.bottomRight(), window.bottomLeft()};
    for (int i = closed ? 0 : 1; i < line.size(); ++i) {
        const QLineF piece(line[i == 0 ? line.size() - 1 : i - 1], line[i]);
        if (contains(window, piece.p1()) || contains(window, piece.p2()))
            return true;
        QPointF p;
        for (int k = 0; k < 4; ++k)
            if (piece.intersects(QLineF(corners[k], corners[(k + 1) % 4]), &p) == QLineF::BoundedIntersection)
                return true;
    }
    return line.size() == 1 && contains(window, line.front());
}

// A fill is touched at its rim: a window inside of a map means what lies on it.
bool isTouched(const Figure& figure, const QRectF& window)
{
    if (figure.kind == Figure::Text)
        return true; // its box was looked at
    return std::any_of(figure.polygons.begin(), figure.polygons.end(),
                       [&](const QPolygonF& polygon) { return crosses(window, polygon, figure.kind == Figure::Fill); });
}

QRectF grown(const QRectF& box, double by) { return box.adjusted(-by, -by, by, by); }

} // namespace

const std::vector<QRectF>& DisplayList::boxes() const
{
    if (boxes_.size() != figures_.size()) {
        boxes_.clear();
        boxes_.reserve(figures_.size());
        for (const Figure& figure : figures_)
            boxes_.push_back(figure.box);
    }
    return boxes_;
}

QRectF DisplayList::box() const
{
    double left = INFINITY, bottom = INFINITY, right = -INFINITY, top = -INFINITY;
    for (const QRectF& box : boxes()) {
        left = std::min(left, box.left());
        right = std::max(right, box.right());
        bottom = std::min(bottom, box.top());
        top = std::max(top, box.bottom());
    }
    return left <= right ? QRectF(left, bottom, right - left, top - bottom) : QRectF();
}

namespace {

// Of a figure whose box is.
bool isHit(const Figure& figure, const QPointF& at, double tolerance)
{
    if (distanceTo(figure, at) > tolerance)
        return false;
    return !figure.clip || figure.clip->containsPoint(at, Qt::OddEvenFill);
}

} // namespace

NcDbObjectId DisplayList::hit(const QPointF& at, double tolerance) const
{
    const NcDbObjectIdArray all = hits(at, tolerance);
    return all.empty() ? NcDbObjectId() : all.front();
}

NcDbObjectIdArray DisplayList::hits(const QPointF& at, double tolerance) const
{
    NcDbObjectIdArray lines, fills;
    std::set<NcDbObjectId> ofLines, ofFills;
    const std::vector<QRectF>& boxes = this->boxes();
    for (size_t i = boxes.size(); i-- > 0;) {
        if (!grown(boxes[i], tolerance).contains(at) || !isHit(figures_[i], at, tolerance))
            continue;
        const bool fill = figures_[i].kind == Figure::Fill;
        if ((fill ? ofFills : ofLines).insert(figures_[i].source).second)
            (fill ? fills : lines).push_back(figures_[i].source);
    }
    for (const NcDbObjectId& id : fills)
        if (!ofLines.count(id))
            lines.push_back(id);
    return lines;
}

DisplayList DisplayList::only(const NcDbObjectIdArray& sources) const
{
    DisplayList list;
    if (sources.empty())
        return list;
    const std::set<NcDbObjectId> wanted(sources.begin(), sources.end());
    const NcDbObjectId first = *wanted.begin(), last = *wanted.rbegin();
    for (const Figure& figure : figures_)
        if (!(figure.source < first) && !(last < figure.source) && wanted.count(figure.source))
            list.figures_.push_back(figure);
    return list;
}

NcDbObjectIdArray DisplayList::inside(const QRectF& window, bool crossing) const
{
    std::set<NcDbObjectId> within, outside;
    for (const Figure& figure : figures_) {
        const QRectF box = figure.box;
        const bool whole = box.left() >= window.left() && box.right() <= window.right() && box.top() >= window.top()
            && box.bottom() <= window.bottom();
        const bool touches = box.left() <= window.right() && box.right() >= window.left()
            && box.top() <= window.bottom() && box.bottom() >= window.top();
        (whole || (crossing && touches && isTouched(figure, window)) ? within : outside).insert(figure.source);
    }
    NcDbObjectIdArray found;
    for (const NcDbObjectId& id : sources())
        if (within.count(id) && (crossing || !outside.count(id)))
            found.push_back(id);
    return found;
}

NcDbObjectIdArray DisplayList::sources() const
{
    NcDbObjectIdArray ids;
    std::set<NcDbObjectId> seen;
    for (const Figure& figure : figures_)
        if (seen.insert(figure.source).second)
            ids.push_back(figure.source);
    return ids;
}
