#include "analysis/profiles/epure.h"

#include "analysis/profiles/deformation_table.h"
#include "base/placeholders.h"
#include "base/text.h"

#include <cmath>

namespace {

constexpr double kLongest = 2.0; // of the blocks, drawing units
constexpr double kText = 1.0;    // height of values
constexpr double kName = 1.8;    // height of titles
constexpr double kWidest = 1.0;  // of a block across
constexpr double kNarrowest = 0.05;
constexpr double kGap = 4.0; // between two epures
constexpr int kMostShifts = 200;
const double kUpright = M_PI / 2.0;

// Blocks of near neighbours stay apart.
double blockWidth(const std::vector<EpurePlace>& places, size_t i)
{
    double width = kWidest;
    for (const size_t other : {i - 1, i + 1}) {
        if (other >= places.size())
            continue;
        const double gap = std::hypot(places[i].x - places[other].x, places[i].y - places[other].y);
        if (gap > 0.0)
            width = std::min(width, gap * 0.8);
    }
    return std::max(width, kNarrowest);
}

// Read from the left or from below, so that "under" is below the line.
double readable(double angle)
{
    const double turned = std::remainder(angle, 2.0 * M_PI);
    constexpr double kAlmost = 1e-9;
    if (turned > M_PI / 2.0 + kAlmost)
        return turned - M_PI;
    return turned <= -M_PI / 2.0 + kAlmost ? turned + M_PI : turned;
}

} // namespace

double epureScale(const std::vector<EpurePlace>& places)
{
    double largest = 0.0;
    for (const EpurePlace& place : places) {
        if (place.valid)
            largest = std::max(largest, std::fabs(place.delta));
    }
    return largest > 0.0 ? kLongest / largest : 0.0;
}

void addEpure(const std::vector<EpurePlace>& places, Sketch& sketch, LabelField& field)
{
    const double scale = epureScale(places);
    for (size_t i = 0; i < places.size(); ++i) {
        const EpurePlace& place = places[i];
        if (!place.valid)
            continue;
        const double angle = readable(place.angle);
        const double cosine = std::cos(angle), sine = std::sin(angle);
        const double length = place.delta * scale;
        const double half = blockWidth(places, i) / 2.0;
        const auto at = [&](double along, double across) {
            return geometry::Point3{place.x + along * cosine - across * sine, place.y + along * sine + across * cosine,
                                    0.0};
        };
        const int color = place.overLimit ? kRed : kByLayer;
        if (std::fabs(length) > geometry::GEOM_TOL)
            sketch.blocks.push_back({{at(-half, 0.0), at(half, 0.0), at(half, length), at(-half, length)}, color});
        const double away = length > 0.0 ? 1.0 : -1.0;
        SketchText value{0.0,  0.0, millimetres(place.delta), kText, angle, SketchText::Center, SketchText::Middle,
                         color};
        for (int shift = 0; shift < kMostShifts; ++shift) {
            const geometry::Point3 held = at(0.0, length + away * (kText + 1.3 * kText * shift));
            value.x = held.x;
            value.y = held.y;
            if (field.isFree(boxOf(value)))
                break;
        }
        field.block(boxOf(value));
        sketch.texts.push_back(value);
    }
}

std::vector<EpurePlace> placesOnLine(const DeformationProfileClass& profile, const ProfileLine& line, double limit)
{
    std::vector<EpurePlace> places;
    for (const DeformationProfilePoint& point : profile.points) {
        const ProfileLine::Place place = line.at(point.dist);
        places.push_back(
            {place.point.x, place.point.y, place.angle, point.valid, point.delta, isOverLimit(point, limit)});
    }
    return places;
}

namespace {

// One profile along its own axis.
class StraightEpure {
public:
    StraightEpure(const DeformationProfileClass& profile, const EpureView& view, double limit, Sketch& sketch)
        : profile_(profile), view_(view), limit_(limit), sketch_(sketch)
    { }

    void draw(double axis)
    {
        const double right = view_.x + view_.horizontal * profile_.length;
        sketch_.line(view_.x, axis, right + 2.0, axis);
        LabelField field;
        names(axis, field);
        put({view_.x - 1.0, axis, QStringLiteral("0.0"), kText, 0.0, SketchText::Right}, field);
        put({view_.x - 5.0, axis + 1.3, profile_.name, kName, 0.0, SketchText::Right}, field);
        put({view_.x - 5.0, axis - 1.3, view_.title, kName, 0.0, SketchText::Right}, field);
        std::vector<EpurePlace> places;
        for (const DeformationProfilePoint& point : profile_.points)
            places.push_back({view_.x + view_.horizontal * point.dist, axis, 0.0, point.valid, point.delta,
                              isOverLimit(point, limit_)});
        addEpure(places, sketch_, field);
    }

    // How far its names and uplifts stand above the axis.
    double headroom() const
    {
        double longest = 0.0;
        for (const DeformationProfilePoint& point : profile_.points)
            longest = std::max(longest, SketchText{0.0, 0.0, point.name, kName}.width());
        return longest + kLongest + 8.0;
    }

private:
    void put(const SketchText& text, LabelField& field)
    {
        field.block(boxOf(text));
        sketch_.texts.push_back(text);
    }

    // Above the uplifts, upright, each with its tick.
    void names(double axis, LabelField& field)
    {
        for (const DeformationProfilePoint& point : profile_.points) {
            const double x = view_.x + view_.horizontal * point.dist;
            SketchText name{x,        axis + kLongest + 3.0, point.name,        kName,
                            kUpright, SketchText::Left,      SketchText::Middle};
            for (int shift = 0; shift < kMostShifts && !field.isFree(boxOf(name)); ++shift)
                name.y += name.width() + 1.0;
            put(name, field);
            sketch_.line(x, axis, x, axis + 0.6);
        }
    }

    const DeformationProfileClass& profile_;
    const EpureView& view_;
    double limit_;
    Sketch& sketch_;
};

double bottomOf(const Sketch& sketch)
{
    double bottom = INFINITY;
    for (const SketchText& text : sketch.texts)
        bottom = std::min(bottom, boxOf(text).bottom);
    return bottom;
}

} // namespace

Sketch epureSketch(const std::vector<DeformationProfileClass>& profiles, const EpureView& view, double limit)
{
    Sketch sketch;
    double axis = view.y;
    for (const DeformationProfileClass& profile : profiles) {
        StraightEpure epure(profile, view, limit, sketch);
        if (!sketch.texts.empty())
            axis = bottomOf(sketch) - kGap - epure.headroom();
        epure.draw(axis);
    }
    return sketch;
}
