// Properties of each class of entities, as rows.
#pragma once

#include "entity_properties.h"

#include <functional>

struct PropertyRow {
    const char* key;
    const char* caption;
    EntityProperty::Kind kind;
    std::function<QVariant(const NcDbEntity&)> read;
    std::function<bool(NcDbEntity&, const QVariant&)> write; // none: the property is only told
};

struct PropertyClass {
    const NcRxClass* cls;
    const char* name; // what a user calls it
    std::vector<PropertyRow> rows;
};

// Of the entity's own class; null for one that has nothing of its own to show.
const PropertyClass* propertyClassOf(const NcDbEntity& entity);
// Layer, colour, line type: every entity's.
const std::vector<PropertyRow>& commonRows();
