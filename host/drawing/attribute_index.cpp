#include "attribute_index.h"

#include "host_access.h"

uint qHash(const AttributeIndex::Key& key, uint seed)
{
    return ::qHash(key.definition, seed) ^ ::qHash(key.tag, seed + 1) ^ (::qHash(key.value, seed + 2) * 31u);
}

namespace {

template <class Map, class Key>
void removeFrom(Map& map, const Key& key, quint64 sequence)
{
    const auto found = map.find(key);
    if (found == map.end())
        return;
    found->erase(sequence);
    if (found->empty())
        map.erase(found);
}

template <class Map, class Key>
std::vector<quint64> handlesAt(const Map& map, const Key& key)
{
    std::vector<quint64> handles;
    const auto found = map.constFind(key);
    if (found != map.constEnd())
        for (const auto& entry : *found)
            handles.push_back(entry.second);
    return handles;
}

} // namespace

void AttributeIndex::clear()
{
    byText_.clear();
    byDefinition_.clear();
    inModelSpace_.clear();
    entries_.clear();
}

void AttributeIndex::remove(quint64 handle)
{
    const auto found = entries_.find(handle);
    if (found == entries_.end())
        return;
    removeFrom(byDefinition_, found->definition, found->sequence);
    if (found->inModelSpace)
        removeFrom(inModelSpace_, found->definition, found->sequence);
    for (const Key& key : found->keys)
        removeFrom(byText_, key, found->sequence);
    entries_.erase(found);
}

void AttributeIndex::refresh(const NcDbBlockReference& reference)
{
    const NcObjectData& data = HostAccess::data(reference);
    remove(data.handle);
    if (data.erased)
        return;
    Entry entry;
    entry.definition = HostAccess::definition(reference).handle();
    entry.sequence = data.sequence;
    entry.inModelSpace = data.owner == HostAccess::data(*data.database).modelSpace;
    byDefinition_[entry.definition][entry.sequence] = data.handle;
    if (entry.inModelSpace) {
        inModelSpace_[entry.definition][entry.sequence] = data.handle;
        for (NcDbObjectId id : HostAccess::attributes(reference)) {
            const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
            if (!attribute || attribute->isErased())
                continue;
            entry.keys.push_back({entry.definition, attribute->tag(), attribute->textString()});
            byText_[entry.keys.back()][entry.sequence] = data.handle;
        }
    }
    entries_.insert(data.handle, entry);
}

std::vector<quint64> AttributeIndex::find(quint64 definition, const QString& tag, const QString& value) const
{
    return tag.isEmpty() ? handlesAt(inModelSpace_, definition) : handlesAt(byText_, Key{definition, tag, value});
}

std::vector<quint64> AttributeIndex::references(quint64 definition) const
{
    return handlesAt(byDefinition_, definition);
}
