#include "entity_figures.h"

#include <cmath>

namespace {

// Corners of a full circle.
constexpr int kCircleCorners = 128;

QPointF flat(const NcGePoint3d& p) { return {p.x, p.y}; }

// The corners of a circle of radius 1.
const QPolygonF& unitCircle()
{
    static const QPolygonF circle = [] {
        QPolygonF made;
        for (int i = 0; i <= kCircleCorners; ++i)
            made << QPointF(std::cos(2.0 * M_PI * i / kCircleCorners), std::sin(2.0 * M_PI * i / kCircleCorners));
        return made;
    }();
    return circle;
}

QPolygonF circleLine(const QPointF& centre, double radius)
{
    QPolygonF line = unitCircle();
    for (QPointF& p : line)
        p = centre + radius * p;
    return line;
}

QPolygonF arcLine(const QPointF& centre, double radius, double start, double sweep)
{
    // A damaged angle may be anything.
    const double turns = std::min(std::fabs(sweep) / (2.0 * M_PI), 1.0);
    const int count = std::max(2, int(std::ceil(kCircleCorners * turns)));
    QPolygonF line;
    for (int i = 0; i <= count; ++i) {
        const double angle = start + sweep * i / count;
        line << centre + radius * QPointF(std::cos(angle), std::sin(angle));
    }
    return line;
}

// The arc from a to b whose bulge is the tangent of a quarter of its angle,
// without a.
void appendBulge(QPolygonF& line, const QPointF& a, const QPointF& b, double bulge)
{
    const QPointF chord = b - a;
    const double length = std::hypot(chord.x(), chord.y());
    if (bulge != 0.0 && length > 0.0) {
        const double sweep = 4.0 * std::atan(bulge);
        const double radius = length * (1.0 + bulge * bulge) / (4.0 * bulge);
        const QPointF normal(-chord.y() / length, chord.x() / length);
        const QPointF centre = 0.5 * (a + b) + normal * (radius * (1.0 - bulge * bulge) / (1.0 + bulge * bulge));
        const QPointF from = a - centre;
        const QPolygonF arc = arcLine(centre, std::fabs(radius), std::atan2(from.y(), from.x()), sweep);
        for (int i = 1; i + 1 < arc.size(); ++i)
            line << arc[i];
    }
    line << b;
}

void makePolyline(const NcDbPolyline& polyline, const FigureFrame& frame)
{
    std::vector<QPointF> points;
    std::vector<double> bulges;
    for (int i = 0; i < polyline.numVerts(); ++i) {
        NcGePoint3d p;
        double bulge = 0.0;
        polyline.getPointAt(i, p);
        polyline.getBulgeAt(i, bulge);
        points.push_back(flat(p));
        bulges.push_back(bulge);
    }
    frame.line(bulgedLine(points, bulges, polyline.isClosed()));
}

void makeOldPolyline(const NcDb2dPolyline& polyline, const FigureFrame& frame)
{
    std::vector<QPointF> points;
    std::vector<double> bulges;
    for (int i = 0; i < polyline.numVerts(); ++i) {
        NcGePoint3d p;
        double bulge = 0.0;
        polyline.getPointAt(i, p);
        polyline.getBulgeAt(i, bulge);
        points.push_back(flat(p));
        bulges.push_back(bulge);
    }
    frame.line(bulgedLine(points, bulges, polyline.isClosed()));
}

} // namespace

QPolygonF bulgedLine(const std::vector<QPointF>& points, const std::vector<double>& bulges, bool closed)
{
    QPolygonF line;
    const size_t count = points.size();
    if (count == 0)
        return line;
    line << points[0];
    for (size_t i = 1; i < count + (closed ? 1 : 0); ++i)
        appendBulge(line, points[i - 1], points[i % count], i - 1 < bulges.size() ? bulges[i - 1] : 0.0);
    return line;
}

bool makeCurveFigures(const NcDbEntity& entity, const FigureFrame& frame)
{
    if (entity.isKindOf(NcDbLine::desc())) {
        const auto& line = static_cast<const NcDbLine&>(entity);
        frame.line(QPolygonF(QVector<QPointF>{flat(line.startPoint()), flat(line.endPoint())}));
    } else if (entity.isKindOf(NcDbCircle::desc())) {
        const auto& circle = static_cast<const NcDbCircle&>(entity);
        frame.line(circleLine(flat(circle.center()), circle.radius()));
    } else if (entity.isKindOf(NcDbArc::desc())) {
        const auto& arc = static_cast<const NcDbArc&>(entity);
        double sweep = std::fmod(arc.endAngle() - arc.startAngle(), 2.0 * M_PI);
        if (sweep <= 0.0)
            sweep += 2.0 * M_PI;
        frame.line(arcLine(flat(arc.center()), arc.radius(), arc.startAngle(), sweep));
    } else if (entity.isKindOf(NcDbPolyline::desc())) {
        makePolyline(static_cast<const NcDbPolyline&>(entity), frame);
    } else if (entity.isKindOf(NcDb2dPolyline::desc())) {
        makeOldPolyline(static_cast<const NcDb2dPolyline&>(entity), frame);
    } else if (entity.isKindOf(NcDbPoint::desc())) {
        frame.dot(flat(static_cast<const NcDbPoint&>(entity).position()));
    } else {
        return false;
    }
    return true;
}
