#include "analysis/profiles/sketch.h"

#include "hostkit/groups.h"
#include "hostkit/model_space.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLetterWidth = 0.85; // of its height
constexpr double kCell = 8.0;         // of the field, drawing units
constexpr double kTouch = 1e-9;       // neighbours may touch

bool meet(const LabelBox& a, const LabelBox& b)
{
    return a.left < b.right - kTouch && b.left < a.right - kTouch && a.bottom < b.top - kTouch
        && b.bottom < a.top - kTouch;
}

std::unique_ptr<NcDbEntity> madeLine(const SketchLine& line)
{
    if (line.points.size() == 2) {
        const auto& from = line.points[0];
        const auto& to = line.points[1];
        return std::make_unique<NcDbLine>(NcGePoint3d(from.x, from.y, 0.0), NcGePoint3d(to.x, to.y, 0.0));
    }
    auto polyline = std::make_unique<NcDbPolyline>();
    for (const geometry::Point3& point : line.points)
        polyline->addVertexAt(polyline->numVerts(), NcGePoint2d(point.x, point.y));
    return polyline;
}

std::unique_ptr<NcDbEntity> madeText(const SketchText& wanted)
{
    const NcGePoint3d place(wanted.x, wanted.y, 0.0);
    auto text = std::make_unique<NcDbText>(place, wanted.text, wanted.height, wanted.angle);
    text->setHorizontalMode(wanted.across);
    text->setVerticalMode(wanted.along);
    text->setAlignmentPoint(place);
    return text;
}

std::unique_ptr<NcDbEntity> madeBlock(const SketchBlock& block)
{
    auto hatch = std::make_unique<NcDbHatch>();
    hatch->setNormal(NcGeVector3d::kZAxis);
    hatch->setElevation(0.0);
    hatch->setAssociative(false);
    hatch->setPattern(NcDbHatch::kPreDefined, QStringLiteral("SOLID"));
    hatch->setHatchStyle(NcDbHatch::kNormal);
    std::vector<NcGePoint2d> corners;
    for (const geometry::Point3& corner : block.corners)
        corners.emplace_back(corner.x, corner.y);
    hatch->appendLoop(NcDbHatch::kExternal, corners, std::vector<double>(corners.size(), 0.0));
    return isOk(hatch->evaluateHatch()) ? std::move(hatch) : nullptr;
}

void append(std::unique_ptr<NcDbEntity> entity, int color, NcDbObjectIdArray& ids)
{
    if (!entity)
        return;
    entity->setDatabaseDefaults(workingDatabase());
    if (color != kByLayer)
        entity->setColorIndex(color);
    if (const NcDbObjectId id = appendToModelSpace(std::move(entity)); !id.isNull())
        ids.push_back(id);
}

} // namespace

double SketchText::width() const { return double(text.size()) * height * kLetterWidth; }

LabelBox boxOf(const SketchText& text)
{
    const double width = text.width();
    const double left = text.across == SketchText::Center ? -width / 2.0
        : text.across == SketchText::Right                ? -width
                                                          : 0.0;
    const double bottom = text.along == SketchText::Middle ? -text.height / 2.0
        : text.along == SketchText::Top                    ? -text.height
                                                           : 0.0;
    const double cosine = std::cos(text.angle), sine = std::sin(text.angle);
    LabelBox box{INFINITY, INFINITY, -INFINITY, -INFINITY};
    for (const double across : {left, left + width}) {
        for (const double along : {bottom, bottom + text.height}) {
            const double x = text.x + across * cosine - along * sine;
            const double y = text.y + across * sine + along * cosine;
            box = {std::min(box.left, x), std::min(box.bottom, y), std::max(box.right, x), std::max(box.top, y)};
        }
    }
    return box;
}

template <class Visit>
bool LabelField::everyCell(const LabelBox& box, Visit visit) const
{
    for (auto i = std::int64_t(std::floor(box.left / kCell)); double(i) * kCell <= box.right; ++i) {
        for (auto j = std::int64_t(std::floor(box.bottom / kCell)); double(j) * kCell <= box.top; ++j) {
            if (!visit(std::int64_t(std::uint64_t(i) * 0x9e3779b97f4a7c15ULL ^ std::uint64_t(j))))
                return false;
        }
    }
    return true;
}

bool LabelField::isFree(const LabelBox& box) const
{
    return everyCell(box, [&](std::int64_t cell) {
        const auto found = cells_.find(cell);
        return found == cells_.end() || std::none_of(found->second.begin(), found->second.end(), [&](int other) {
                   return meet(boxes_[size_t(other)], box);
               });
    });
}

bool LabelField::take(const LabelBox& box)
{
    if (!isFree(box))
        return false;
    block(box);
    return true;
}

void LabelField::block(const LabelBox& box)
{
    const int number = int(boxes_.size());
    boxes_.push_back(box);
    everyCell(box, [&](std::int64_t cell) {
        cells_[cell].push_back(number);
        return true;
    });
}

NcDbObjectIdArray drawSketch(const Sketch& sketch, const QString& groupPrefix, const NcDbObjectIdArray& before)
{
    NcDbObjectIdArray drawn;
    for (const SketchBlock& block : sketch.blocks)
        append(madeBlock(block), block.color, drawn);
    for (const SketchLine& line : sketch.lines)
        append(madeLine(line), kByLayer, drawn);
    for (const SketchText& text : sketch.texts)
        append(madeText(text), text.color, drawn);
    NcDbObjectIdArray all = before;
    all.insert(all.end(), drawn.begin(), drawn.end());
    groupEntities(groupPrefix, all);
    return drawn;
}
