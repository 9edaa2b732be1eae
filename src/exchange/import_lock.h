#pragma once
// Two imports of one family at once would each find no measure for an element
// and a cycle, and both would insert one: no constraint refuses the second.

#include "elements/families/families.h"

/// Held by the database's session while it lives, for one family's measures.
class ImportLock {
public:
    explicit ImportLock(FamilyKey family);
    ~ImportLock();
    ImportLock(const ImportLock&) = delete;
    ImportLock& operator=(const ImportLock&) = delete;

    /// Another session imports these measures just now. A server that does not
    /// answer is not taken for one: the rows will tell of it.
    bool isTaken() const { return taken_; }

private:
    int number_;
    bool held_ = false;
    bool taken_ = false;
};
