#include "figure_frame.h"

#include "text_painting.h"

namespace {

QRectF boxOf(const std::vector<QPolygonF>& polygons)
{
    QRectF box;
    for (const QPolygonF& polygon : polygons)
        box = box.isNull() ? polygon.boundingRect() : box.united(polygon.boundingRect());
    return box;
}

} // namespace

void FigureFrame::add(Figure figure) const
{
    if (!toWorld.isIdentity())
        for (QPolygonF& polygon : figure.polygons)
            polygon = toWorld.map(polygon);
    if (figure.kind == Figure::Text)
        figure.box = textBox(figure.text);
    else
        figure.box = boxOf(figure.polygons);
    list->figures().push_back(std::move(figure));
}

void FigureFrame::line(QPolygonF points, bool thin) const
{
    if (points.size() < 2)
        return;
    Figure figure = pattern;
    figure.kind = Figure::Line;
    figure.thin = thin;
    figure.polygons.push_back(std::move(points));
    add(std::move(figure));
}

void FigureFrame::fill(std::vector<QPolygonF> loops) const
{
    Figure figure = pattern;
    figure.kind = Figure::Fill;
    figure.polygons = std::move(loops);
    add(std::move(figure));
}

void FigureFrame::ground(const QPolygonF& loop) const
{
    Figure figure = pattern;
    figure.kind = Figure::Fill;
    figure.background = true;
    figure.polygons.push_back(loop);
    add(std::move(figure));
}

void FigureFrame::fill(const QPolygonF& loop, const QColor& color) const
{
    Figure figure = pattern;
    figure.kind = Figure::Fill;
    figure.color = color;
    figure.foreground = false;
    figure.polygons.push_back(loop);
    add(std::move(figure));
}

void FigureFrame::dot(const QPointF& at) const
{
    Figure figure = pattern;
    figure.kind = Figure::Dot;
    figure.polygons.push_back(QPolygonF(QVector<QPointF>{at}));
    add(std::move(figure));
}

void FigureFrame::text(FigureText text) const
{
    if (text.text.trimmed().isEmpty())
        return;
    Figure figure = pattern;
    figure.kind = Figure::Text;
    text.placing = text.placing * toWorld;
    figure.text = std::move(text);
    add(std::move(figure));
}
