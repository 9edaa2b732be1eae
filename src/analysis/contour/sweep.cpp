#include "analysis/contour/sweep_run.h"

namespace contour {

std::vector<double> Sweep::verticalPlaces() const
{
    std::vector<double> ys(static_cast<std::size_t>(count_));
    for (std::int32_t i = 0; i < count_; ++i)
        ys[static_cast<std::size_t>(i)] = at(i).y;
    return ys;
}

bool Sweep::placeOuterTriangle()
{
    double yMin = at(0).y;
    double yMax = at(0).y;
    for (std::int32_t i = 1; i < count_; ++i) {
        yMin = std::min(yMin, at(i).y);
        yMax = std::max(yMax, at(i).y);
    }
    const double xMin = at(0).x;
    const double xMax = at(count_ - 1).x;
    const double size = std::max(xMax - xMin, yMax - yMin);
    if (!(size > 0.0))
        return false;
    const double xMiddle = (xMax + xMin) / 2.0;
    const double yMiddle = (yMax + yMin) / 2.0;
    Point3* corners = &vertices_[static_cast<std::size_t>(count_)];
    corners[0].x = xMiddle - 20.0 * size;
    corners[0].y = yMiddle - size;
    corners[1].x = xMiddle;
    corners[1].y = yMiddle + 20.0 * size;
    corners[2].x = xMiddle + 20.0 * size;
    corners[2].y = yMiddle - size;
    return true;
}

bool Sweep::run(const Tick& tick)
{
    if (!placeOuterTriangle())
        return false;
    startStretch(0);
    addTriangle({count_, count_ + 1, count_ + 2}, -1);
    for (std::int32_t vertex = 0; vertex < count_; ++vertex) {
        if (vertex % kTickEvery == 0 && !goesOn(tick, static_cast<double>(vertex) / count_))
            return false;
        if (repeats_[static_cast<std::size_t>(vertex)])
            continue;
        if (vertex >= stretchEnd_)
            startStretch(vertex);
        insert(vertex);
        previous_ = vertex;
        if (order_.size() > kTrianglesPerVertex * static_cast<std::size_t>(count_) + 4096)
            return false;
    }
    return true;
}

void Sweep::insert(std::int32_t vertex)
{
    findPlacesToGo(vertex);
    removePlaces();
    if (!beyondMending_ && !seesLoop(vertices_, edges_, at(vertex)))
        mendHole(vertex);
    forgetRemoved();
    const std::size_t before = order_.size();
    for (const Edge& e : edges_) {
        if (!e.isDropped())
            addTriangle({e.from, e.to, vertex}, vertex);
    }
    if (exactCavity_.hasBegun() && !beyondMending_)
        exactCavity_.fill({order_.begin() + static_cast<std::ptrdiff_t>(before), order_.end()});
}

// Computed circles contradict each other, and the new triangles would overlap.
void Sweep::mendHole(std::int32_t vertex)
{
    std::vector<std::int32_t> computed;
    for (const Removal& removal : removed_)
        computed.push_back(removal.id);
    takeBackRemovals();
    if (!exactCavity_.hasBegun())
        exactCavity_.begin(order_);
    std::vector<std::int32_t> hole = exactCavity_.around(vertex, order_.back(), order_);
    beyondMending_ = hole.empty();
    if (beyondMending_)
        hole = computed;
    places_.clear();
    for (std::int32_t id : hole) {
        record(id).goes = true;
        places_.push_back(record(id).place);
    }
    for (std::int32_t id : computed) {
        if (!record(id).goes && !record(id).indexed)
            settle(id, vertex);
    }
    std::sort(places_.begin(), places_.end());
    removePlaces();
}

// About the square root of the number of vertices in one stretch: the index is
// filled anew with what is open, which is of that order too as a rule.
void Sweep::startStretch(std::int32_t vertex)
{
    const auto length = static_cast<std::int32_t>(std::max(32.0, std::sqrt(static_cast<double>(count_))));
    stretchEnd_ = std::min(count_, vertex + length);
    index_.begin(at(stretchEnd_ - 1).x);
    freeRecords_.insert(freeRecords_.end(), goneRecords_.begin(), goneRecords_.end());
    goneRecords_.clear();
    std::size_t kept = 0;
    for (std::int32_t id : open_) {
        Record& r = record(id);
        if (r.place < 0)
            continue;
        const CircleIndex::Added added = index_.add(r.circle, id, at(vertex).x);
        if (added == CircleIndex::Added::Waits) {
            open_[kept++] = id;
        } else if (added == CircleIndex::Added::Crowded) {
            r.indexed = false;
            makeDue(id, vertex);
        }
    }
    open_.resize(kept);
}

// A triangle is passed, and left alone from then on, once a vertex after the one
// that made it lay wholly to the right of its circle.
bool Sweep::wasPassed(const Record& r) const
{
    return previous_ > r.born && at(previous_).x > r.circle.x + std::sqrt(r.circle.squaredRadius);
}

void Sweep::findPlacesToGo(std::int32_t vertex)
{
    places_.clear();
    index_.at(at(vertex).x, at(vertex).y, [&](std::int32_t id) {
        Record& r = record(id);
        if (r.place < 0)
            return false;
        if (!wasPassed(r)) {
            r.goes = true;
            places_.push_back(r.place);
        }
        return true;
    });
    findDueToGo(vertex);
    findYoungToGo(vertex);
    std::sort(places_.begin(), places_.end());
}

// Along a column of points most triangles go with the very next vertex; only
// those that outlive it are worth a place in the index.
void Sweep::findYoungToGo(std::int32_t vertex)
{
    for (std::int32_t id : young_) {
        Record& r = record(id);
        const double dx = at(vertex).x - r.circle.x;
        const double dy = at(vertex).y - r.circle.y;
        if (dx * dx + dy * dy <= r.circle.squaredRadius) {
            r.goes = true;
            places_.push_back(r.place);
        } else {
            settle(id, vertex);
        }
    }
    young_.clear();
}

void Sweep::settle(std::int32_t id, std::int32_t vertex)
{
    const CircleIndex::Added added = index_.add(record(id).circle, id, at(vertex).x);
    if (added == CircleIndex::Added::Crowded)
        makeDue(id, vertex + 1);
    if (added != CircleIndex::Added::Waits)
        return;
    record(id).indexed = true;
    open_.push_back(id);
}

void Sweep::makeDue(std::int32_t id, std::int32_t from)
{
    if (!firstInCircle_) {
        firstInCircle_.emplace(vertices_, count_, repeats_);
        firstDue_.assign(static_cast<std::size_t>(count_), -1);
    }
    Record& r = record(id);
    r.due = firstInCircle_->from(from, r.circle);
    if (r.due < 0)
        return;
    std::int32_t& first = firstDue_[static_cast<std::size_t>(r.due)];
    dues_.push_back({id, r.born, first});
    first = static_cast<std::int32_t>(dues_.size()) - 1;
}

// No vertex between a triangle's birth and this one lay in its circle. It stays
// if the sweep has passed it, and is then asked no more.
void Sweep::findDueToGo(std::int32_t vertex)
{
    if (!firstInCircle_)
        return;
    for (std::int32_t i = firstDue_[static_cast<std::size_t>(vertex)]; i >= 0;) {
        const Due& due = dues_[static_cast<std::size_t>(i)];
        Record& r = record(due.id);
        if (r.place >= 0 && r.due == vertex && r.born == due.born) {
            r.due = -1;
            if (!wasPassed(r)) {
                r.goes = true;
                places_.push_back(r.place);
            }
        }
        i = due.next;
    }
}

void Sweep::removePlaces()
{
    edges_.clear();
    removed_.clear();
    for (std::int32_t place : places_) {
        // Places beyond the end were the last one when something moved them away.
        if (place < static_cast<std::int32_t>(order_.size()))
            removeFrom(place);
    }
    edgePairs_.drop(&edges_);
}

// The last triangle moves into the place, and is the next to be looked at there.
void Sweep::removeFrom(std::int32_t place)
{
    bool again = true;
    while (again) {
        const std::int32_t id = order_[static_cast<std::size_t>(place)];
        Record& gone = record(id);
        const Triangle& t = corners_[static_cast<std::size_t>(id)];
        edges_.push_back({t.a, t.b});
        edges_.push_back({t.b, t.c});
        edges_.push_back({t.c, t.a});
        gone.place = -1;
        gone.goes = false;
        removed_.push_back({place, id});
        const std::int32_t moved = order_.back();
        order_.pop_back();
        again = false;
        if (moved != id) {
            order_[static_cast<std::size_t>(place)] = moved;
            record(moved).place = place;
            again = record(moved).goes;
        }
    }
}

void Sweep::takeBackRemovals()
{
    for (auto removal = removed_.rbegin(); removal != removed_.rend(); ++removal) {
        const auto end = static_cast<std::int32_t>(order_.size());
        order_.push_back(removal->id);
        if (removal->place != end) {
            std::swap(order_[static_cast<std::size_t>(removal->place)], order_.back());
            record(order_.back()).place = end;
        }
        record(removal->id).place = removal->place;
    }
    for (const Removal& removal : removed_)
        record(removal.id).goes = false;
}

void Sweep::forgetRemoved()
{
    if (exactCavity_.hasBegun() && !beyondMending_) {
        std::vector<std::int32_t> gone;
        for (const Removal& removal : removed_)
            gone.push_back(removal.id);
        exactCavity_.open(gone);
    }
    for (const Removal& removal : removed_)
        (record(removal.id).indexed ? goneRecords_ : freeRecords_).push_back(removal.id);
}

void Sweep::addTriangle(const Triangle& corners, std::int32_t vertex)
{
    std::int32_t id = 0;
    if (freeRecords_.empty()) {
        id = static_cast<std::int32_t>(records_.size());
        records_.emplace_back();
        corners_.emplace_back();
    } else {
        id = freeRecords_.back();
        freeRecords_.pop_back();
    }
    Record& r = record(id);
    corners_[static_cast<std::size_t>(id)] = corners;
    r.place = static_cast<std::int32_t>(order_.size());
    r.born = vertex;
    r.due = -1;
    r.indexed = false;
    r.goes = false;
    order_.push_back(id);
    if (circumcircle(at(corners.a), at(corners.b), at(corners.c), &r.circle))
        young_.push_back(id);
}

void Sweep::collect(std::vector<Triangle>* triangles) const
{
    triangles->reserve(order_.size());
    for (std::int32_t id : order_)
        triangles->push_back(corners_[static_cast<std::size_t>(id)]);
    const auto usesOuter = [this](const Triangle& t) { return t.a >= count_ || t.b >= count_ || t.c >= count_; };
    for (std::size_t i = 0; i < triangles->size();) {
        if (!usesOuter((*triangles)[i])) {
            ++i;
            continue;
        }
        (*triangles)[i] = triangles->back();
        triangles->pop_back();
    }
}

bool sweepTriangulation(PointList* vertices, std::int32_t vertexCount, const std::vector<char>& repeats,
                        std::vector<Triangle>* triangles, const Tick& tick)
{
    triangles->clear();
    Sweep sweep(*vertices, vertexCount, repeats);
    if (!sweep.run(tick))
        return false;
    sweep.collect(triangles);
    return true;
}

} // namespace contour
