#include "entity_shape.h"

#include <algorithm>
#include <cmath>

namespace {
// A mean letter is that wide for its height.
const double kLetterWidth = 0.8;
} // namespace

void ExtentsBuilder::add(const NcGePoint3d& p)
{
    finite_ = finite_ && std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
    if (!box_)
        box_ = NcGeExtents{p, p};
    box_->min = {std::min(box_->min.x, p.x), std::min(box_->min.y, p.y), std::min(box_->min.z, p.z)};
    box_->max = {std::max(box_->max.x, p.x), std::max(box_->max.y, p.y), std::max(box_->max.z, p.z)};
}

void ExtentsBuilder::add(const NcGeExtents& box)
{
    add(box.min);
    add(box.max);
}

void ExtentsBuilder::addArc(const NcGePoint3d& centre, double radius, double start, double end)
{
    const double from = normalAngle(start);
    double sweep = normalAngle(end - start);
    if (sweep == 0.0)
        sweep = 2.0 * M_PI;
    const auto at = [&](double angle) {
        add({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle), centre.z});
    };
    at(from);
    at(from + sweep);
    for (int quarter = 0; quarter < 8; ++quarter) {
        const double angle = quarter * M_PI / 2.0;
        if (angle > from && angle < from + sweep)
            at(angle);
    }
}

void ExtentsBuilder::addBulge(const NcGePoint2d& from, const NcGePoint2d& to, double bulge, double z)
{
    add({from.x, from.y, z});
    add({to.x, to.y, z});
    const double dx = to.x - from.x, dy = to.y - from.y;
    const double chord = std::hypot(dx, dy);
    if (bulge == 0.0 || chord == 0.0 || !std::isfinite(bulge))
        return;
    // The centre lies on the chord's bisector, left of it for a left-hand arc below a half circle.
    const double radius = chord * (1.0 + bulge * bulge) / (4.0 * std::fabs(bulge));
    const double offset = (1.0 - bulge * bulge) / (4.0 * bulge);
    const NcGePoint3d centre((from.x + to.x) / 2.0 - dy * offset, (from.y + to.y) / 2.0 + dx * offset, z);
    double start = std::atan2(from.y - centre.y, from.x - centre.x);
    double end = std::atan2(to.y - centre.y, to.x - centre.x);
    if (bulge < 0.0)
        std::swap(start, end);
    addArc(centre, radius, start, end);
}

PlaneChange::PlaneChange(const NcGeMatrix3d& m)
    : xx_(m.entry[0][0]), xy_(m.entry[1][0]), yx_(m.entry[0][1]), yy_(m.entry[1][1])
{
    const double alongX = std::hypot(xx_, xy_, m.entry[2][0]);
    scale = alongX > 0.0 ? alongX : std::hypot(yx_, yy_, m.entry[2][1]);
    // A mere turn must not let scales drift with each rounding.
    if (std::fabs(scale - 1.0) < 1e-13)
        scale = 1.0;
    mirrored = xx_ * yy_ - xy_ * yx_ < 0.0;
}

double PlaneChange::angle(double radians) const
{
    const double c = std::cos(radians), s = std::sin(radians);
    const double x = c * xx_ + s * yx_, y = c * xy_ + s * yy_;
    if (x == 0.0 && y == 0.0)
        return radians;
    // Without a turn the angle is handed through unrounded.
    if (xx_ == yy_ && xy_ == 0.0 && yx_ == 0.0 && xx_ > 0.0)
        return radians;
    return normalAngle(std::atan2(y, x));
}

double normalAngle(double radians)
{
    if (!std::isfinite(radians))
        return radians;
    const double rest = std::fmod(radians, 2.0 * M_PI);
    const double positive = rest < 0.0 ? rest + 2.0 * M_PI : rest;
    return positive >= 2.0 * M_PI ? 0.0 : positive;
}

void addTextBox(ExtentsBuilder& box, const NcGePoint3d& at, double width, double height, double fromLeft,
                double fromBottom, double rotation)
{
    const double c = std::cos(rotation), s = std::sin(rotation);
    const double left = -width * fromLeft, bottom = -height * fromBottom;
    for (int corner = 0; corner < 4; ++corner) {
        const double x = left + (corner & 1 ? width : 0.0), y = bottom + (corner & 2 ? height : 0.0);
        box.add({at.x + x * c - y * s, at.y + x * s + y * c, at.z});
    }
}

double textWidth(const QString& text, double height) { return double(text.size()) * height * kLetterWidth; }
