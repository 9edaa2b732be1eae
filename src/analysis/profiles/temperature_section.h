// Wells set out along their line, their logs hanging below the ground: where
// each reading stands in the drawing.
#pragma once

#include "analysis/profiles/section_view.h"
#include "analysis/profiles/section_wells.h"

class TemperatureSection {
public:
    /// The wells in the order of their distance; `length` is the line's own, m.
    /// (ox, oy) of the view is where the section is put.
    TemperatureSection(std::vector<SectionWell> wells, double length, const SectionView& view);

    const std::vector<SectionWell>& wells() const { return wells_; }
    const SectionView& view() const { return view_; }
    double length() const { return length_; } ///< up to the last well at least, m

    double x(double dist) const { return view_.horizontal * dist + view_.origX; }
    /// At a depth of a well. Depths: the deepest reading of all lies at oy.
    /// Elevations: the lowest one does.
    double y(const SectionWell& well, double depth) const;
    double groundY(const SectionWell& well) const { return y(well, 0.0); }
    double left() const { return view_.origX; }
    double right() const { return x(length_); }
    double top() const; ///< the highest ground or reading

    /// Each reading as (X, Y, value).
    geometry::PointList points() const;
    /// Along the first readings of the wells, then along their last ones backwards.
    geometry::PointList outline() const;
    /// Whether the readings span a surface: three at least, not on one line.
    bool spansSurface() const;

private:
    std::vector<SectionWell> wells_;
    SectionView view_;
    double length_ = 0.0;
    double deepest_ = 0.0; ///< depth
    double lowest_ = 0.0;  ///< elevation
};
