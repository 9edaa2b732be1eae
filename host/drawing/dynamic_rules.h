// What the rules of a dynamic block do to an entity.
#pragma once

#include "dynamic_definition.h"

// Present values of the parameters of one reference.
class DynamicValues {
public:
    DynamicValues(const DynamicDefinition& definition, const NcDbBlockReference& reference)
        : definition_(definition), reference_(reference)
    { }

    QString printed(const QString& name) const { return dynamicValue(reference_, name); }
    double number(const QString& name) const { return printed(name).toDouble(); }
    // Value less default; 0 for a parameter that does not exist.
    double change(const QString& name) const;

private:
    const DynamicDefinition& definition_;
    const NcDbBlockReference& reference_;
};

// The entity must be outside any drawing. Rules that its class has no use for
// do nothing.
void applyBinding(const DynamicBinding& binding, const DynamicValues& values, NcDbEntity& entity);
