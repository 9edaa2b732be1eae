#include "analysis/contour/sweep_run.h"

namespace contour {

namespace {

bool placeOuterTriangle(PointList& vertices, std::int32_t count)
{
    const auto end = vertices.begin() + count;
    double yMin = vertices[0].y;
    double yMax = vertices[0].y;
    for (auto v = vertices.begin(); v != end; ++v) {
        yMin = std::min(yMin, v->y);
        yMax = std::max(yMax, v->y);
    }
    const double xMin = vertices[0].x;
    const double xMax = (end - 1)->x;
    const double size = std::max(xMax - xMin, yMax - yMin);
    if (!(size > 0.0))
        return false;
    const double xMiddle = (xMax + xMin) / 2.0;
    const double yMiddle = (yMax + yMin) / 2.0;
    end[0].x = xMiddle - 20.0 * size;
    end[0].y = yMiddle - size;
    end[1].x = xMiddle;
    end[1].y = yMiddle + 20.0 * size;
    end[2].x = xMiddle + 20.0 * size;
    end[2].y = yMiddle - size;
    return true;
}

} // namespace

bool Sweep::run(const Tick& tick)
{
    startStretch(0);
    addTriangle({count_, count_ + 1, count_ + 2});
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
    removePlaces(vertex);
    if (contradicted_ || (!beyondMending_ && !seesLoop(vertices_, edges_, at(vertex))))
        mendHole(vertex);
    forgetRemoved();
    const std::size_t before = order_.size();
    for (const Edge& e : edges_) {
        if (!e.isDropped())
            addTriangle({e.from, e.to, vertex});
    }
    if (!beyondMending_)
        mesh_.link(edges_, order_.data() + before);
    lastIn_[index_.bandOf(at(vertex).y)] = vertex;
}

// Computed circles contradict each other, and the new triangles would overlap.
void Sweep::mendHole(std::int32_t vertex)
{
    std::vector<std::int32_t> computed;
    for (const Removal& removal : removed_)
        computed.push_back(removal.id);
    takeBackRemovals();
    const std::int32_t holder =
        mesh_.walk(at(vertex), placeToStart(vertex), order_, [](MeshTriangle&) { return false; });
    std::vector<std::int32_t> hole = mesh_.exactHole(at(vertex), holder, goesWith(vertex));
    beyondMending_ = hole.empty();
    if (beyondMending_) {
        stopAskingNeighbours(vertex + 1);
        hole = computed;
    }
    places_.clear();
    for (std::int32_t id : hole) {
        mesh_[id].mark = goesWith(vertex);
        places_.push_back(mesh_[id].place);
    }
    for (std::int32_t id : computed) {
        if (mesh_[id].mark != goesWith(vertex) && mesh_[id].due == kUnasked)
            settle(id, vertex + 1);
    }
    std::sort(places_.begin(), places_.end());
    removePlaces(vertex);
}

void Sweep::removePlaces(std::int32_t vertex)
{
    edges_.clear();
    removed_.clear();
    for (std::int32_t place : places_) {
        // Places beyond the end were the last one when something moved them away.
        if (place < static_cast<std::int32_t>(order_.size()))
            removeFrom(place, goesWith(vertex));
    }
    if (beyondMending_)
        edgePairs_.drop(&edges_);
}

// The last triangle moves into the place, and is the next to be looked at there.
// Sides between two triangles that go are left out, as long as it is known who
// is whose neighbour.
void Sweep::removeFrom(std::int32_t place, std::int32_t mark)
{
    bool again = true;
    while (again) {
        const std::int32_t id = order_[static_cast<std::size_t>(place)];
        MeshTriangle& gone = mesh_[id];
        const std::int32_t loop[] = {gone.corners.a, gone.corners.b, gone.corners.c, gone.corners.a};
        for (std::size_t i = 0; i < 3; ++i) {
            const std::int32_t across = gone.beside[i];
            if (beyondMending_ || across < 0 || mesh_[across].mark != mark)
                edges_.push_back({loop[i], loop[i + 1], across});
        }
        gone.place = -1;
        removed_.push_back({place, id});
        const std::int32_t moved = order_.back();
        order_.pop_back();
        again = false;
        if (moved != id) {
            order_[static_cast<std::size_t>(place)] = moved;
            mesh_[moved].place = place;
            again = mesh_[moved].mark == mark;
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
            mesh_[order_.back()].place = end;
        }
        mesh_[removal->id].place = removal->place;
    }
    for (const Removal& removal : removed_)
        mesh_[removal.id].mark = -1;
}

void Sweep::forgetRemoved()
{
    for (const Removal& removal : removed_) {
        if (mesh_[removal.id].due == kIndexed)
            gone_.push_back(removal.id);
        else
            mesh_.release(removal.id);
    }
}

void Sweep::addTriangle(const Triangle& corners)
{
    const std::int32_t id = mesh_.add(corners);
    MeshTriangle& t = mesh_[id];
    t.place = static_cast<std::int32_t>(order_.size());
    order_.push_back(id);
    t.due = kUnasked;
    if (!std::isnan(t.circle.squaredRadius))
        young_.push_back(id);
}

void Sweep::collect(std::vector<Triangle>* triangles) const
{
    triangles->reserve(order_.size());
    for (std::int32_t id : order_)
        triangles->push_back(mesh_[id].corners);
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
    if (!placeOuterTriangle(*vertices, vertexCount))
        return false;
    Sweep sweep(*vertices, vertexCount, repeats);
    if (!sweep.run(tick))
        return false;
    sweep.collect(triangles);
    return true;
}

} // namespace contour
