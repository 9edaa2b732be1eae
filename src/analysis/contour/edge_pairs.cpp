#include "analysis/contour/edge_pairs.h"

#include <algorithm>

namespace contour {

namespace {

// Up to here looking at all pairs is sooner done.
constexpr std::size_t kFewEdges = 12;

bool same(const Edge& e, const Edge& f)
{
    return (e.from == f.from && e.to == f.to) || (e.from == f.to && e.to == f.from);
}

void dropAmongFew(std::vector<Edge>& edges)
{
    for (std::size_t j = 1; j < edges.size(); ++j) {
        for (std::size_t k = 0; k < j; ++k) {
            if (same(edges[k], edges[j])) {
                edges[k] = edges[j] = Edge();
                break;
            }
        }
    }
}

std::uint64_t keyOf(const Edge& e)
{
    const auto low = static_cast<std::uint64_t>(std::min(e.from, e.to));
    const auto high = static_cast<std::uint64_t>(std::max(e.from, e.to));
    return low << 32U | high;
}

} // namespace

void EdgePairs::makeRoomFor(std::size_t edges)
{
    if (slots_.size() >= 2 * edges)
        return;
    std::size_t size = 64;
    shift_ = 64 - 6;
    while (size < 4 * edges) {
        size *= 2;
        --shift_;
    }
    slots_.assign(size, Slot());
    list_ = 0;
}

void EdgePairs::drop(std::vector<Edge>* list)
{
    std::vector<Edge>& edges = *list;
    if (edges.size() <= kFewEdges) {
        dropAmongFew(edges);
        return;
    }
    makeRoomFor(edges.size());
    if (++list_ == 0) {
        slots_.assign(slots_.size(), Slot());
        list_ = 1;
    }
    for (std::size_t j = 0; j < edges.size(); ++j) {
        const std::uint64_t key = keyOf(edges[j]);
        std::size_t at = static_cast<std::size_t>(key * 0x9E3779B97F4A7C15ULL >> shift_);
        while (slots_[at].list == list_ && slots_[at].key != key)
            at = (at + 1) & (slots_.size() - 1);
        Slot& slot = slots_[at];
        if (slot.list == list_ && slot.edge >= 0) {
            edges[static_cast<std::size_t>(slot.edge)] = edges[j] = Edge();
            slot.edge = -1;
        } else {
            slot = {key, list_, static_cast<std::int32_t>(j)};
        }
    }
}

} // namespace contour
