#include "analysis/contour/line_list.h"

namespace contour {

namespace {

template <class List>
std::vector<PointList> copied(const List& list)
{
    std::vector<PointList> copies;
    copies.reserve(list.size());
    for (std::size_t i = 0; i < list.size(); ++i)
        copies.push_back(list[i]);
    return copies;
}

template <class List>
bool areEqual(const List& a, const List& b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i])
            return false;
    }
    return true;
}

} // namespace

LineList::LineList(std::vector<Isoline> lines)
{
    lines_.reserve(lines.size());
    for (Isoline& line : lines)
        lines_.push_back(shared(std::move(line)));
}

LineList::operator std::vector<Isoline>() const { return copied(*this); }

bool operator==(const LineList& a, const LineList& b) { return areEqual(a, b); }

void Ring::add(SharedLine points, bool backwards)
{
    size_ += points->size();
    pieces_.push_back({std::move(points), backwards});
}

PointList Ring::points() const
{
    PointList all;
    all.reserve(size_);
    for (const Piece& piece : pieces_) {
        if (piece.backwards)
            all.insert(all.end(), piece.points->rbegin(), piece.points->rend());
        else
            all.insert(all.end(), piece.points->begin(), piece.points->end());
    }
    for (Point3& p : all)
        p.z = value_;
    return all;
}

RingList::RingList(const std::vector<PointList>& rings)
{
    for (const PointList& points : rings) {
        Ring ring;
        if (!points.empty())
            ring.setValue(points.front().z);
        ring.add(shared(points));
        rings_.push_back(std::move(ring));
    }
}

void RingList::append(const RingList& other) { rings_.insert(rings_.end(), other.rings_.begin(), other.rings_.end()); }

RingList::operator std::vector<PointList>() const { return copied(*this); }

bool operator==(const RingList& a, const RingList& b) { return areEqual(a, b); }

} // namespace contour
