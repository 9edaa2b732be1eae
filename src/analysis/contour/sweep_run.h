#pragma once
// The state of one sweep; used by its own unit alone.

#include "analysis/contour/circle_index.h"
#include "analysis/contour/edge_pairs.h"
#include "analysis/contour/exact_cavity.h"
#include "analysis/contour/first_in_circle.h"
#include "analysis/contour/sweep.h"

#include <algorithm>
#include <optional>

namespace contour {

constexpr std::size_t kTrianglesPerVertex = 16;
constexpr std::int32_t kTickEvery = 4096;

// The plain sweep asks every triangle not yet passed whether the vertex lies in
// its circle. Here an index answers that, and the array's order is kept by
// replaying the removals alone: what the array does depends only on which of its
// places are to go.
class Sweep {
public:
    Sweep(PointList& vertices, std::int32_t count, const std::vector<char>& repeats)
        : vertices_(vertices),
          count_(count),
          repeats_(repeats),
          index_(verticalPlaces()),
          exactCavity_(vertices, corners_)
    { }

    bool run(const Tick& tick);
    void collect(std::vector<Triangle>* triangles) const;

private:
    struct Record {
        std::int32_t place = -1; // in order_; -1: removed
        std::int32_t born = 0;   // the vertex that made it
        std::int32_t due = -1;   // the vertex that it goes with, where the index was crowded
        bool indexed = false;
        bool goes = false;
        Circumcircle circle;
    };

    // A removal, so that it can be taken back.
    struct Removal {
        std::int32_t place;
        std::int32_t id;
    };

    // A triangle waiting for its vertex; the record may be another's by then.
    struct Due {
        std::int32_t id;
        std::int32_t born;
        std::int32_t next;
    };

    std::vector<double> verticalPlaces() const;
    bool placeOuterTriangle();
    void startStretch(std::int32_t vertex);
    void findPlacesToGo(std::int32_t vertex);
    void findYoungToGo(std::int32_t vertex);
    void findDueToGo(std::int32_t vertex);
    void makeDue(std::int32_t id, std::int32_t from);
    void settle(std::int32_t id, std::int32_t vertex);
    bool wasPassed(const Record& record) const;
    void insert(std::int32_t vertex);
    void removePlaces();
    void removeFrom(std::int32_t place);
    void takeBackRemovals();
    void mendHole(std::int32_t vertex);
    void forgetRemoved();
    void addTriangle(const Triangle& corners, std::int32_t vertex);

    const Point3& at(std::int32_t vertex) const { return vertices_[static_cast<std::size_t>(vertex)]; }
    Record& record(std::int32_t id) { return records_[static_cast<std::size_t>(id)]; }

    PointList& vertices_;
    std::int32_t count_;
    const std::vector<char>& repeats_; // vertices at the place of another one
    CircleIndex index_;
    std::vector<Record> records_;
    std::vector<Triangle> corners_; // of the records
    std::vector<std::int32_t> freeRecords_;
    std::vector<std::int32_t> goneRecords_; // free once the index has forgotten them
    std::vector<std::int32_t> order_;       // records as the array holds them
    std::vector<std::int32_t> young_;       // made by the last vertex, not in the index yet
    std::vector<std::int32_t> open_;        // in the index: a vertex can still meet them
    std::vector<std::int32_t> places_;
    std::vector<Removal> removed_; // for the vertex at hand
    std::vector<Edge> edges_;
    EdgePairs edgePairs_;
    std::optional<FirstInCircle> firstInCircle_; // made when first asked
    std::vector<Due> dues_;
    std::vector<std::int32_t> firstDue_; // of each vertex in dues_
    ExactCavity exactCavity_;
    bool beyondMending_ = false;
    std::int32_t previous_ = -1;  // the vertex inserted last
    std::int32_t stretchEnd_ = 0; // first vertex behind the index's horizon
};

} // namespace contour
