#pragma once
// The state of one sweep; used by its own units alone.

#include "analysis/contour/circle_index.h"
#include "analysis/contour/first_in_circle.h"
#include "analysis/contour/mesh.h"
#include "analysis/contour/sweep.h"

#include <algorithm>
#include <optional>

namespace contour {

constexpr std::size_t kTrianglesPerVertex = 16;
constexpr std::int32_t kTickEvery = 4096;

// The plain sweep asks every triangle not yet passed whether the vertex lies in
// its circle. Here the triangles that can answer yes are found in one of two
// ways, and the array's order is kept by replaying the removals alone: what the
// array does depends only on which of its places are to go.
//
// Triangles whose circles are computed well are found from neighbour to
// neighbour, beginning with the one that the vertex lies in: from any triangle
// on the way towards the vertex its power falls from circle to circle, so those
// that hold the vertex, or nearly hold it, hang together. Circles of flat
// triangles are computed so badly that they may hold what they should not; these
// wait in an index by y, or, where it is crowded, for a vertex told by a tree.
class Sweep {
public:
    Sweep(PointList& vertices, std::int32_t count, const std::vector<char>& repeats);

    bool run(const Tick& tick);
    void collect(std::vector<Triangle>* triangles) const;

private:
    // A triangle's `due` when it is no vertex: that which it goes with, where
    // the index was crowded.
    enum : std::int32_t {
        kUnasked = -1, // not settled yet, or waits for nothing any more
        kIndexed = -2,
        kByNeighbours = -3,
    };

    // A removal, so that it can be taken back.
    struct Removal {
        std::int32_t place;
        std::int32_t id;
    };

    // A triangle waiting for its vertex; the number may be another's by then.
    struct Due {
        std::int32_t id;
        std::int32_t born;
        std::int32_t next;
    };

    // Marks of triangles, for the vertex at hand.
    static std::int32_t seenBy(std::int32_t vertex) { return 2 * vertex; }
    static std::int32_t goesWith(std::int32_t vertex) { return 2 * vertex + 1; }

    std::vector<double> someVerticalPlaces() const;
    void startStretch(std::int32_t vertex);
    void findPlacesToGo(std::int32_t vertex);
    std::int32_t placeToStart(std::int32_t vertex) const;
    static bool holds(const MeshTriangle& t, const Point3& p);
    bool findByNeighbours(std::int32_t vertex);
    bool isNear(MeshTriangle& t, std::int32_t vertex);
    void stopAskingNeighbours(std::int32_t from);
    void findYoungToGo(std::int32_t vertex);
    void findIndexedToGo(std::int32_t vertex);
    void findDueToGo(std::int32_t vertex);
    void makeDue(std::int32_t id, std::int32_t from);
    void settle(std::int32_t id, std::int32_t from);
    bool wasPassed(const MeshTriangle& t) const;
    void goes(MeshTriangle& t, std::int32_t vertex);
    void insert(std::int32_t vertex);
    void removePlaces(std::int32_t vertex);
    void removeFrom(std::int32_t place, std::int32_t mark);
    void takeBackRemovals();
    void mendHole(std::int32_t vertex);
    void forgetRemoved();
    void addTriangle(const Triangle& corners);
    float doubtOf(MeshTriangle& t) const { return t.doubt < 0.0F ? mesh_.judge(t) : t.doubt; }
    bool isTrusted(MeshTriangle& t);
    bool asksTooMany();

    const Point3& at(std::int32_t vertex) const { return vertices_[static_cast<std::size_t>(vertex)]; }

    PointList& vertices_;
    std::int32_t count_;
    const std::vector<char>& repeats_; // vertices at the place of another one
    Mesh mesh_;
    CircleIndex index_;
    std::vector<std::int32_t> lastIn_; // of each band of the index, the last vertex
    std::vector<std::int32_t> gone_;   // free once the index has forgotten them
    std::vector<std::int32_t> order_;  // triangles as the array holds them
    std::vector<std::int32_t> young_;  // made by the last vertex
    std::vector<std::int32_t> open_;   // in the index: a vertex can still meet them
    std::vector<std::int32_t> going_;  // found by neighbours for the vertex at hand
    std::vector<std::int32_t> near_;   // the same, may go by rounding alone
    std::vector<std::int32_t> places_;
    std::vector<Removal> removed_; // for the vertex at hand
    std::vector<Edge> edges_;
    EdgePairs edgePairs_;
    std::optional<FirstInCircle> firstInCircle_; // made when first asked
    std::vector<Due> dues_;
    std::vector<std::int32_t> firstDue_; // of each vertex in dues_
    bool asksNeighbours_ = true;
    bool contradicted_ = false; // those that go are no hole, whatever others go
    bool beyondMending_ = false;
    float trust_;                // the doubt up to which triangles are found by neighbours
    double reach_ = 0.0;         // twice that, in squared lengths
    std::int32_t made_ = 0;      // at this trust
    std::int32_t doubted_ = 0;   // of these
    std::int32_t watched_ = 0;   // vertices, since it was last seen whether too many are asked
    std::int32_t asked_ = 0;     // for them, less three for each that goes
    std::int32_t previous_ = -1; // the vertex inserted last
    const std::int32_t stretchLength_;
    std::int32_t stretchEnd_ = 0; // first vertex behind the index's horizon
};

} // namespace contour
