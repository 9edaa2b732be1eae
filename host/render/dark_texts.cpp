#include "dark_texts.h"

#include "display_list.h"

#include <algorithm>

namespace {

constexpr int kDarkGrey = 250;

bool holds(const Figure& fill, const QPointF& at)
{
    if (!fill.box.contains(at))
        return false;
    const auto around = std::count_if(fill.polygons.begin(), fill.polygons.end(),
                                      [&at](const QPolygonF& loop) { return loop.containsPoint(at, Qt::OddEvenFill); });
    return around % 2 == 1;
}

bool darken(NcDbObjectId id)
{
    NcDbText* text = nullptr;
    if (!isOk(ncdbOpenObject(text, id, kForWrite)))
        return false;
    const bool done = isOk(text->setColorIndex(kDarkGrey));
    text->close();
    return done;
}

} // namespace

int darkenTextsOnFills(NcDbDatabase& drawing)
{
    const DisplayList list = recordDrawing(drawing);
    std::vector<const Figure*> fills;
    int count = 0;
    for (const Figure& figure : list.figures()) {
        if (figure.kind == Figure::Fill && !figure.background)
            fills.push_back(&figure);
        if (figure.kind != Figure::Text || !figure.foreground)
            continue;
        const QPointF middle = figure.box.center();
        if (std::any_of(fills.begin(), fills.end(), [&](const Figure* fill) { return holds(*fill, middle); }))
            count += darken(figure.source);
    }
    return count;
}
