// What the entities share when they are moved or measured.
#pragma once

#include <nrx/entity.h>

// Grows by points; without a result until the first, and after one that is not finite.
class ExtentsBuilder {
public:
    void add(const NcGePoint3d& p);
    void add(const NcGeExtents& box);
    // An arc from `start` counter-clockwise to `end`, radians.
    void addArc(const NcGePoint3d& centre, double radius, double start, double end);
    // The piece from one vertex to the next with its bulge.
    void addBulge(const NcGePoint2d& from, const NcGePoint2d& to, double bulge, double z);
    std::optional<NcGeExtents> result() const { return finite_ ? box_ : std::nullopt; }

private:
    std::optional<NcGeExtents> box_;
    bool finite_ = true;
};

// A matrix seen from above: what it does to lengths and directions of the plane.
struct PlaneChange {
    explicit PlaneChange(const NcGeMatrix3d& matrix);

    double scale; // length of the image of the X axis; of the Y axis where that is 0
    bool mirrored;
    // Angle that a direction at `radians` has afterwards; the same angle when
    // the direction vanishes.
    double angle(double radians) const;

private:
    double xx_, xy_, yx_, yy_;
};

// Radians brought into 0..2π.
double normalAngle(double radians);

// Rough box of a text: `width` and `height` from the corner that `fromLeft` and
// `fromBottom` (0..1 of the size) hold at `at`, turned about it.
void addTextBox(ExtentsBuilder& box, const NcGePoint3d& at, double width, double height, double fromLeft,
                double fromBottom, double rotation);
// Rough width of a line of text.
double textWidth(const QString& text, double height);
