// Which triangles make room for a vertex.

#include "analysis/contour/sweep_run.h"

namespace contour {

namespace {

// Doubts are shares of the map's squared extent. Where one triangle of so many is
// in doubt more is taken on trust, and more neighbours are asked for it, up to a
// limit. Where many are asked that do not go, neighbours are no good.
constexpr float kLeastTrust = Mesh::kNoDoubt;
constexpr float kMostTrust = 1e-8F;
constexpr float kTrustGrows = 4.0F;
constexpr std::int32_t kDoubtedOf = 64;
constexpr std::int32_t kDoubtedAtOnce = 64;
constexpr std::int32_t kAskedAVertex = 128; // beside three for each that goes
constexpr std::int32_t kVerticesAWatch = 256;

// Vertices that the tree is asked about at first, and how many times as many as
// a triangle has outlived then.
constexpr std::int32_t kFirstLook = 256;
constexpr std::int32_t kLookGrows = 32;

// A triangle that outlives so many stretches as a rule stays for long, and is
// left to the tree where more than so many for each vertex of a stretch are open.
constexpr std::int32_t kStretchesInIndex = 4;
constexpr std::size_t kOpenAVertex = 4;

// So many vertices tell how their y are spread.
constexpr std::size_t kVerticesABand = 16;

} // namespace

Sweep::Sweep(PointList& vertices, std::int32_t count, const std::vector<char>& repeats)
    : vertices_(vertices),
      count_(count),
      repeats_(repeats),
      mesh_(vertices, count),
      index_(someVerticalPlaces(), static_cast<std::size_t>(count)),
      lastIn_(index_.bandCount(), -1),
      trust_(kLeastTrust),
      stretchLength_(static_cast<std::int32_t>(std::max(32.0, std::sqrt(static_cast<double>(count)))))
{
    order_.reserve(2 * vertices.size());
    reach_ = 2.0 * static_cast<double>(trust_) * mesh_.scale();
}

// Taken at random, since vertices of grids repeat in steps.
std::vector<double> Sweep::someVerticalPlaces() const
{
    const auto all = static_cast<std::size_t>(count_);
    const std::size_t wanted = kVerticesABand * CircleIndex::bandCountFor(all);
    std::vector<double> ys;
    if (wanted >= all) {
        for (std::int32_t i = 0; i < count_; ++i)
            ys.push_back(at(i).y);
        return ys;
    }
    ys.reserve(wanted);
    std::uint64_t state = 88172645463325252ULL;
    for (std::size_t i = 0; i < wanted; ++i) {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        ys.push_back(vertices_[static_cast<std::size_t>((state >> 33U) % all)].y);
    }
    return ys;
}

// About the square root of the number of vertices in one stretch: the index is
// filled anew with what is open, which is of that order too as a rule.
void Sweep::startStretch(std::int32_t vertex)
{
    stretchEnd_ = std::min(count_, vertex + stretchLength_);
    index_.begin(at(stretchEnd_ - 1).x);
    for (std::int32_t id : gone_)
        mesh_.release(id);
    gone_.clear();
    const std::int32_t old = open_.size() > kOpenAVertex * static_cast<std::size_t>(stretchLength_)
        ? vertex - kStretchesInIndex * stretchLength_
        : -1;
    std::size_t kept = 0;
    for (std::int32_t id : open_) {
        MeshTriangle& t = mesh_[id];
        if (t.place < 0)
            continue;
        if (asksNeighbours_ && doubtOf(t) <= trust_) { // trust has grown
            t.due = kByNeighbours;
            continue;
        }
        const CircleIndex::Added added =
            t.corners.c < old ? CircleIndex::Added::Crowded : index_.add(t.circle, id, at(vertex).x);
        if (added == CircleIndex::Added::Waits) {
            open_[kept++] = id;
            continue;
        }
        t.due = kUnasked;
        if (added == CircleIndex::Added::Crowded)
            makeDue(id, vertex);
    }
    open_.resize(kept);
}

// A triangle is passed, and left alone from then on, once a vertex after the one
// that made it lay wholly to the right of its circle.
bool Sweep::wasPassed(const MeshTriangle& t) const
{
    return previous_ > t.corners.c && at(previous_).x > t.circle.x
        && at(previous_).x > t.circle.x + std::sqrt(t.circle.squaredRadius);
}

void Sweep::goes(MeshTriangle& t, std::int32_t vertex)
{
    if (t.mark == goesWith(vertex))
        return;
    t.mark = goesWith(vertex);
    places_.push_back(t.place);
}

bool Sweep::holds(const MeshTriangle& t, const Point3& p)
{
    const double dx = p.x - t.circle.x;
    const double dy = p.y - t.circle.y;
    return dx * dx + dy * dy <= t.circle.squaredRadius;
}

void Sweep::findPlacesToGo(std::int32_t vertex)
{
    places_.clear();
    contradicted_ = false;
    if (asksNeighbours_ && !findByNeighbours(vertex))
        stopAskingNeighbours(vertex);
    if (!contradicted_)
        findIndexedToGo(vertex);
    findDueToGo(vertex);
    findYoungToGo(vertex);
    std::sort(places_.begin(), places_.end());
}

void Sweep::findIndexedToGo(std::int32_t vertex)
{
    index_.at(at(vertex).x, at(vertex).y, [&](std::int32_t id) {
        MeshTriangle& t = mesh_[id];
        if (t.place < 0)
            return false;
        if (!wasPassed(t))
            goes(t, vertex);
        return true;
    });
}

// At the last vertex or at the last one that came at about the same height,
// whichever is nearer.
std::int32_t Sweep::placeToStart(std::int32_t vertex) const
{
    const Point3& p = at(vertex);
    const auto squaredDistance = [&](std::int32_t other) {
        const double dx = at(other).x - p.x;
        const double dy = at(other).y - p.y;
        return dx * dx + dy * dy;
    };
    std::int32_t last = lastIn_[index_.bandOf(p.y)];
    if (last < 0 || squaredDistance(previous_) < squaredDistance(last))
        last = previous_;
    const std::int32_t near = last < 0 ? -1 : mesh_.at(last);
    return near < 0 || mesh_[near].place < 0 ? order_.back() : near;
}

// False when the vertex lies in no triangle, so that there is none to begin with.
// Those that go hang together with the first one if they are a hole that the
// vertex sees the whole rim of. Points on a circle are near all triangles: it is
// enough then to come upon one that goes and lies apart.
bool Sweep::findByNeighbours(std::int32_t vertex)
{
    const std::int32_t holder = mesh_.walk(at(vertex), placeToStart(vertex), order_, [&](MeshTriangle& t) {
        return holds(t, at(vertex)) && doubtOf(t) <= trust_;
    });
    if (holder < 0 || asksTooMany())
        return false;
    going_.clear();
    near_.clear();
    const auto ask = [&](std::int32_t id) {
        if (id >= 0 && mesh_[id].mark < seenBy(vertex) && isNear(mesh_[id], vertex))
            (mesh_[id].mark == goesWith(vertex) ? going_ : near_).push_back(id);
    };
    const auto askAround = [&](std::int32_t id) {
        for (std::int32_t beside : mesh_[id].beside)
            ask(beside);
    };
    isNear(mesh_[holder], vertex);
    const bool firstGoes = mesh_[holder].mark == goesWith(vertex);
    (firstGoes ? going_ : near_).push_back(holder);
    std::size_t around = 0;
    std::size_t aroundNear = 0;
    while (!contradicted_ && (around < going_.size() || aroundNear < near_.size())) {
        if (around == going_.size())
            askAround(near_[aroundNear++]);
        else if (firstGoes && aroundNear > 0)
            contradicted_ = true;
        else
            askAround(going_[around++]);
    }
    asked_ += static_cast<std::int32_t>(near_.size()) - 2 * static_cast<std::int32_t>(going_.size());
    return true;
}

bool Sweep::asksTooMany()
{
    if (++watched_ < kVerticesAWatch)
        return false;
    const bool tooMany = asked_ > kAskedAVertex * watched_;
    watched_ = 0;
    asked_ = 0;
    return tooMany;
}

// Whether the circle holds the vertex, or might where it and those of all
// triangles that are found in this way are computed as badly as can be.
bool Sweep::isNear(MeshTriangle& t, std::int32_t vertex)
{
    t.mark = seenBy(vertex);
    const double dx = at(vertex).x - t.circle.x;
    const double dy = at(vertex).y - t.circle.y;
    const double squaredDistance = dx * dx + dy * dy;
    if (squaredDistance <= t.circle.squaredRadius) {
        if (!wasPassed(t))
            goes(t, vertex);
        return true;
    }
    const double power = squaredDistance - t.circle.squaredRadius;
    return !(power > reach_) || !(power > reach_ + static_cast<double>(doubtOf(t)) * mesh_.scale());
}

// From the vertex on all are found as those in doubt.
void Sweep::stopAskingNeighbours(std::int32_t from)
{
    if (!asksNeighbours_)
        return;
    asksNeighbours_ = false;
    for (std::int32_t id : order_) {
        if (mesh_[id].due == kByNeighbours) {
            mesh_[id].due = kUnasked;
            settle(id, from);
        }
    }
}

bool Sweep::isTrusted(MeshTriangle& t)
{
    const bool trusted = doubtOf(t) <= trust_;
    ++made_;
    doubted_ += !trusted && t.doubt <= kMostTrust ? 1 : 0;
    if (trust_ * kTrustGrows <= kMostTrust && doubted_ >= kDoubtedAtOnce + made_ / kDoubtedOf) {
        trust_ *= kTrustGrows;
        reach_ = 2.0 * static_cast<double>(trust_) * mesh_.scale();
        made_ = 0;
        doubted_ = 0;
    }
    return trusted;
}

// Along a column of points most triangles go with the very next vertex; only
// those that outlive it are worth a judgement or a place in the index.
void Sweep::findYoungToGo(std::int32_t vertex)
{
    for (std::int32_t id : young_) {
        MeshTriangle& t = mesh_[id];
        if (t.mark == goesWith(vertex))
            continue;
        if (asksNeighbours_ && isTrusted(t))
            t.due = kByNeighbours;
        else if (holds(t, at(vertex)))
            goes(t, vertex);
        else
            settle(id, vertex + 1);
    }
    young_.clear();
}

// From the vertex on it is found by the index or by the tree.
void Sweep::settle(std::int32_t id, std::int32_t from)
{
    if (from >= count_)
        return;
    const CircleIndex::Added added = index_.add(mesh_[id].circle, id, at(from).x);
    if (added == CircleIndex::Added::Crowded)
        makeDue(id, from);
    if (added != CircleIndex::Added::Waits)
        return;
    mesh_[id].due = kIndexed;
    open_.push_back(id);
}

// The tree is asked about a few vertices first: most triangles are gone by then,
// and those of points in a row cost a look at each of all the others.
void Sweep::makeDue(std::int32_t id, std::int32_t from)
{
    if (!firstInCircle_) {
        firstInCircle_.emplace(vertices_, count_, repeats_);
        firstDue_.assign(static_cast<std::size_t>(count_), -1);
    }
    MeshTriangle& t = mesh_[id];
    const std::int32_t age = from - std::min(t.corners.c, from);
    const std::int32_t look = std::max(kFirstLook, std::min(age, count_ / kLookGrows) * kLookGrows);
    std::int32_t end = from + std::min(look, count_ - from);
    while (end < count_ && repeats_[static_cast<std::size_t>(end)])
        ++end; // it will not be looked at
    std::int32_t due = firstInCircle_->from(from, end, t.circle);
    if (due < 0)
        due = end; // asked again
    if (due >= count_)
        return;
    t.due = due;
    std::int32_t& first = firstDue_[static_cast<std::size_t>(due)];
    dues_.push_back({id, t.corners.c, first});
    first = static_cast<std::int32_t>(dues_.size()) - 1;
}

// No vertex between a triangle's birth and this one lay in its circle. It stays
// if the sweep has passed it, and is then asked no more.
void Sweep::findDueToGo(std::int32_t vertex)
{
    if (!firstInCircle_)
        return;
    for (std::int32_t i = firstDue_[static_cast<std::size_t>(vertex)]; i >= 0;) {
        const Due due = dues_[static_cast<std::size_t>(i)];
        MeshTriangle& t = mesh_[due.id];
        if (t.place >= 0 && t.due == vertex && t.corners.c == due.born) {
            t.due = kUnasked;
            if (!wasPassed(t)) {
                if (holds(t, at(vertex)))
                    goes(t, vertex);
                else
                    makeDue(due.id, vertex + 1);
            }
        }
        i = due.next;
    }
}

} // namespace contour
