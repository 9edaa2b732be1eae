#pragma once

#include "analysis/contour/surface_model.h"

#include <memory>
#include <utility>

// A map of much noise is made of millions of smooth points, and several lists
// speak of the same lines. Points are held once here and shared: no list changes
// them, a line that is worked on is replaced by another.
namespace contour {

using SharedLine = std::shared_ptr<const Isoline>;

inline SharedLine shared(Isoline line) { return std::make_shared<const Isoline>(std::move(line)); }

// Walks any list by its operator[].
template <class List>
class ListIterator {
public:
    ListIterator(const List& list, std::size_t at) : list_(&list), at_(at) { }

    decltype(auto) operator*() const { return (*list_)[at_]; }
    ListIterator& operator++()
    {
        ++at_;
        return *this;
    }
    bool operator!=(const ListIterator& other) const { return at_ != other.at_; }

private:
    const List* list_;
    std::size_t at_;
};

class LineList {
public:
    LineList() = default;
    LineList(std::vector<Isoline> lines);

    std::size_t size() const { return lines_.size(); }
    bool empty() const { return lines_.empty(); }
    const Isoline& operator[](std::size_t i) const { return *lines_[i]; }
    const SharedLine& share(std::size_t i) const { return lines_[i]; }
    ListIterator<LineList> begin() const { return {*this, 0}; }
    ListIterator<LineList> end() const { return {*this, size()}; }

    void clear() { lines_.clear(); }
    void reserve(std::size_t count) { lines_.reserve(count); }
    void push_back(SharedLine line) { lines_.push_back(std::move(line)); }
    void replace(std::size_t i, Isoline line) { lines_[i] = shared(std::move(line)); }

    // Copies of all points, for those who ask for plain lists.
    operator std::vector<Isoline>() const;

private:
    std::vector<SharedLine> lines_;
};

bool operator==(const LineList& a, const LineList& b);

// A closed row of points at one value, as pieces of lines and of the border.
class Ring {
public:
    struct Piece {
        SharedLine points;
        bool backwards = false;
    };

    void add(SharedLine points, bool backwards = false);
    void setValue(double value) { value_ = value; }

    double value() const { return value_; }
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    PointList points() const; // all with the value as z

private:
    std::vector<Piece> pieces_;
    std::size_t size_ = 0;
    double value_ = 0.0;
};

class RingList {
public:
    RingList() = default;
    RingList(const std::vector<PointList>& rings); // each at its first point's z

    std::size_t size() const { return rings_.size(); }
    bool empty() const { return rings_.empty(); }
    PointList operator[](std::size_t i) const { return rings_[i].points(); } // made anew
    const Ring& ring(std::size_t i) const { return rings_[i]; }
    ListIterator<RingList> begin() const { return {*this, 0}; }
    ListIterator<RingList> end() const { return {*this, size()}; }

    void clear() { rings_.clear(); }
    void push_back(Ring ring) { rings_.push_back(std::move(ring)); }
    void append(const RingList& other);

    // Copies of all points, for those who ask for plain lists.
    operator std::vector<PointList>() const;

private:
    std::vector<Ring> rings_;
};

bool operator==(const RingList& a, const RingList& b);

} // namespace contour
