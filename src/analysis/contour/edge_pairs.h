#pragma once

#include <cstdint>
#include <vector>

namespace contour {

struct Edge {
    std::int32_t from = -1;
    std::int32_t to = -1;
    std::int32_t across = -1; // of a hole's edge: the triangle on its other side

    bool isDropped() const { return from < 0; }
};

// Drops edges that occur twice, in either direction, both copies: of several
// equal ones the first and the second, then the third and the fourth. Keeps its
// memory from one list to the next.
class EdgePairs {
public:
    void drop(std::vector<Edge>* edges);

private:
    struct Slot {
        std::uint64_t key = 0;
        std::uint32_t list = 0; // that the slot was last used for
        std::int32_t edge = -1; // waiting for its twin; -1: the twin has come
    };

    void makeRoomFor(std::size_t edges);

    std::vector<Slot> slots_;
    std::uint32_t list_ = 0;
    unsigned shift_ = 64;
};

} // namespace contour
