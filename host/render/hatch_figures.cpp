#include "entity_figures.h"
#include "hatch_pattern.h"

namespace {

std::vector<QPolygonF> hatchLoops(const NcDbHatch& hatch)
{
    std::vector<QPolygonF> loops;
    for (int i = 0; i < hatch.numLoops(); ++i) {
        const NcDbHatch::Loop& loop = hatch.loopAt(i);
        if (hatch.hatchStyle() == NcDbHatch::kIgnore && i > 0 && !(loop.type & NcDbHatch::kExternal))
            continue;
        std::vector<QPointF> points;
        for (const NcGePoint2d& p : loop.points)
            points.emplace_back(p.x, p.y);
        loops.push_back(bulgedLine(points, loop.bulges, true));
    }
    return loops;
}

} // namespace

bool makeHatchFigures(const NcDbEntity& entity, const FigureFrame& frame)
{
    if (!entity.isKindOf(NcDbHatch::desc()))
        return false;
    const auto& hatch = static_cast<const NcDbHatch&>(entity);
    const std::vector<QPolygonF> loops = hatchLoops(hatch);
    if (hatch.patternName().compare(QLatin1String("SOLID"), Qt::CaseInsensitive) == 0) {
        frame.fill(loops);
        return true;
    }
    const LinePattern* pattern = findPattern(hatch.patternName());
    const std::vector<QPolygonF> strokes =
        pattern ? patternStrokes(*pattern, hatch.patternScale(), loops) : std::vector<QPolygonF>();
    // A pattern that is unknown or too fine to be drawn shows the shape's border.
    for (const QPolygonF& stroke : strokes.empty() ? loops : strokes)
        frame.line(stroke, true);
    return true;
}
