// What a profile draws, before it is drawn: lines, texts and filled blocks.
#pragma once

#include "geometry/point3.h"

#include <nrx/object.h>

#include <QString>
#include <cstdint>
#include <unordered_map>
#include <vector>

constexpr int kByLayer = 256;
constexpr int kRed = 1;

struct SketchLine {
    geometry::PointList points; ///< two or more
};

struct SketchText {
    enum Across { Left = 0, Center = 1, Right = 2 }; // as the host counts
    enum Along { Base = 0, Bottom = 1, Middle = 2, Top = 3 };

    double x = 0.0, y = 0.0; ///< where it is held
    QString text;
    double height = 2.5;
    double angle = 0.0; ///< radians
    Across across = Left;
    Along along = Middle;
    int color = kByLayer;

    double width() const;
};

struct SketchBlock {
    geometry::PointList corners;
    int color = kByLayer;
};

struct Sketch {
    std::vector<SketchLine> lines;
    std::vector<SketchText> texts;
    std::vector<SketchBlock> blocks;

    void line(double x1, double y1, double x2, double y2) { lines.push_back({{{x1, y1, 0.0}, {x2, y2, 0.0}}}); }
};

struct LabelBox {
    double left, bottom, right, top;
};
/// What the text covers, its letters reckoned as wide as the host draws them.
LabelBox boxOf(const SketchText& text);

/// The places that labels have taken; the cost of a label does not grow with
/// their number.
class LabelField {
public:
    /// False, and nothing taken, when it would cover another.
    bool take(const LabelBox& box);
    bool isFree(const LabelBox& box) const;
    /// Takes the place whatever stands there.
    void block(const LabelBox& box);

private:
    template <class Visit>
    bool everyCell(const LabelBox& box, Visit visit) const;

    std::vector<LabelBox> boxes_;
    std::unordered_map<std::int64_t, std::vector<int>> cells_;
};

/// Draws the sketch on the current layer and gathers it, with what was drawn
/// for it before, in a new group of the prefix. What it drew.
NcDbObjectIdArray drawSketch(const Sketch& sketch, const QString& groupPrefix, const NcDbObjectIdArray& before = {});
