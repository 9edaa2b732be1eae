// The objects of a drawing by handle: in order for those who go over all, and at
// once for those who look one up. Handles are given out one after the other, so
// nearly all of them stand in a table of pages; files may bring others.
#pragma once

#include <nrx/object.h>

#include <array>
#include <map>

class ObjectTable {
public:
    using Map = std::map<quint64, std::unique_ptr<NcDbObject>>;

    Map::const_iterator begin() const { return all_.begin(); }
    Map::const_iterator end() const { return all_.end(); }
    size_t size() const { return all_.size(); }

    // Null for a handle that nothing bears.
    NcDbObject* find(quint64 handle) const
    {
        if (handle < kPaged) {
            const size_t page = size_t(handle >> kPageBits);
            return page < pages_.size() && pages_[page] ? (*pages_[page])[handle & (kPageSize - 1)] : nullptr;
        }
        const auto found = all_.find(handle);
        return found == all_.end() ? nullptr : found->second.get();
    }

    // In the place of what bears the handle, if anything does; that is given back.
    std::unique_ptr<NcDbObject> put(quint64 handle, std::unique_ptr<NcDbObject> object)
    {
        enter(handle, object.get());
        std::swap(all_[handle], object);
        return object;
    }

    std::unique_ptr<NcDbObject> take(quint64 handle)
    {
        const auto found = all_.find(handle);
        if (found == all_.end())
            return nullptr;
        std::unique_ptr<NcDbObject> object = std::move(found->second);
        all_.erase(found);
        enter(handle, nullptr);
        return object;
    }

private:
    static constexpr int kPageBits = 9;
    static constexpr quint64 kPageSize = 1u << kPageBits;
    static constexpr quint64 kPaged = 1u << 26; // a larger handle costs a search
    using Page = std::array<NcDbObject*, kPageSize>;

    void enter(quint64 handle, NcDbObject* object)
    {
        if (handle >= kPaged)
            return;
        const size_t page = size_t(handle >> kPageBits);
        if (page >= pages_.size())
            pages_.resize(page + 1);
        if (!pages_[page])
            pages_[page] = std::make_unique<Page>(Page{});
        (*pages_[page])[handle & (kPageSize - 1)] = object;
    }

    Map all_;
    std::vector<std::unique_ptr<Page>> pages_;
};
