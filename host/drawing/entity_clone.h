// Copies of entities, class by class.
#pragma once

#include "host_access.h"

#include <memory>

// What every entity carries over to its copy: properties, extension data and
// the groups that this system does not know.
void copyCommon(const NcDbEntity& from, NcDbEntity& to);

template <class Class, class Fill>
NcDbEntity* cloned(const Class& from, const Fill& fill)
{
    auto copy = std::make_unique<Class>();
    copyCommon(from, *copy);
    fill(*copy);
    return copy.release();
}
