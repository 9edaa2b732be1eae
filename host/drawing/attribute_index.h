// Finds references of a block by the text of an attribute.
#pragma once

#include <nrx/object.h>

#include <QHash>
#include <QString>
#include <map>
#include <vector>

class NcDbBlockReference;

// Which references in model space carry which attribute texts, and which
// references use a block at all. A reference is entered anew whenever it or an
// attribute of it changes; the cost is that of its own attributes (and the
// logarithm of how many share a key), never that of the drawing.
class NRX_API AttributeIndex {
public:
    void clear();
    // Enters the reference as it is now; takes it out when it is erased.
    void refresh(const NcDbBlockReference& reference);
    // Takes a reference out that is not there any more.
    void forget(quint64 handle) { remove(handle); }

    // Handles in the order of creation. An empty tag finds all references of
    // the block in model space.
    std::vector<quint64> find(quint64 definition, const QString& tag, const QString& value) const;
    // References of the block in any block.
    std::vector<quint64> references(quint64 definition) const;

    struct Key {
        quint64 definition;
        QString tag, value;
        bool operator==(const Key& o) const { return definition == o.definition && tag == o.tag && value == o.value; }
    };

private:
    using Ordered = std::map<quint64, quint64>; // handle by order of creation
    struct Entry {
        quint64 definition = 0, sequence = 0;
        bool inModelSpace = false;
        std::vector<Key> keys;
    };

    void remove(quint64 handle);

    QHash<Key, Ordered> byText_;
    QHash<quint64, Ordered> byDefinition_, inModelSpace_;
    QHash<quint64, Entry> entries_;
};

uint qHash(const AttributeIndex::Key& key, uint seed = 0);
