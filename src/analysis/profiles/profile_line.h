// The line in plan along which a profile is taken: a polyline of the drawing.
#pragma once

#include "geometry/segment_index.h"

#include <nrx/object.h>

#include <QString>
#include <memory>
#include <optional>

struct LineVertex {
    double x = 0.0, y = 0.0;
    double bulge = 0.0; ///< of the segment behind it; positive is counter-clockwise
};

class ProfileLine {
public:
    /// Where a point stands by the line. The parameter is the host's own: whole
    /// numbers are vertices.
    struct Place {
        double param = 0.0;
        double dist = 0.0;        ///< along the line from its start, m
        double offset = INFINITY; ///< from the line in plan, m
        geometry::Point3 point;   ///< on the line
        double angle = 0.0;       ///< of the line there, radians
    };

    ProfileLine() = default;
    ProfileLine(const std::vector<LineVertex>& vertices, bool closed);
    /// Of the text that text() makes; a pair that is none is passed over.
    static ProfileLine ofText(const QString& text);

    /// Of equally near places the first along the line. Infinitely far from a
    /// line without length.
    Place closest(double x, double y) const;
    /// The place so far along the line; its ends beyond them.
    Place at(double dist) const;

    double length() const { return length_; }
    int vertexCount() const { return vertexCount_; }
    geometry::Box3 box() const { return geometry::boxOf(chords_); }
    /// "x y" pairs joined by ",", as the database takes a line; arcs by chords,
    /// a closed line ends where it begins.
    QString text() const;

private:
    void addSegment(double from, double to, double length, const geometry::PointList& points);
    Place onChord(size_t chord, double share) const;

    // Arcs are chords here: 1 mm is far below what a corridor is wide.
    struct Chord {
        double param, paramStep; // at its start; over its length
        double dist, length;     // an arc's chords share the arc's own length
    };
    geometry::PointList chords_; // ends of the chords, one more than these
    std::vector<Chord> measures_;
    std::shared_ptr<const geometry::SegmentIndex> index_; // over the chords; none of a line without vertices
    double length_ = 0.0;
    int vertexCount_ = 0;
};

/// Nothing of an entity that is no polyline.
std::optional<ProfileLine> profileLineOf(NcDbObjectId entity);

enum class LinePick {
    Picked,
    NotALine, ///< another entity; the user has been told
    Left,     ///< nothing was picked
};
/// Asks for a polyline with the prompt.
LinePick askForLine(const QString& prompt, ProfileLine& line);
