// Names what is wrong with a drawing.
#pragma once

#include <nrx/database.h>

#include <QString>
#include <vector>

struct AuditFinding {
    enum Rule {
        WrongHandle,   // an object does not bear the handle or drawing it is kept under, or the seed is not free
        MissingTable,  // a table, a space, the group dictionary or the layer "0" is not there
        EmptyName,     // a record without a name
        DoubledName,   // two living records of a table share a name
        MissingRecord, // a table lists an object that is not there or none of its records
        MissingOwner,  // the owner is no object of the drawing, or does not list the object
        MissingEntity, // a block or reference lists an object that is not there or of another class, or one twice
        MissingLayer,  // an entity lies on a layer that is not in the table
        MissingBlock,  // a reference's definition is not there or erased
        BlockInItself, // a definition holds a reference to itself, directly or through others
        AttributeWithoutDefinition, // the tag is not defined in the reference's block
        DynamicProperty,    // a value names no parameter or is not allowed, or a rule names no parameter or entity
        EmptyGroup,         // a group without living members
        MissingGroupMember, // a group names an object that is not there
        DrawOrder,          // the draw order names an entity of another block, or one twice
        BadNumber,          // extents that are not finite, or a size below zero
        EmptyHatch,         // a hatch without loops
        StaleIndex          // the index and a plain walk disagree
    };
    Rule rule;
    NcDbObjectId object;
    QString text; // for the user
};

// Empty for a sound drawing. Walks all of it; erased objects are passed over.
NRX_API std::vector<AuditFinding> audit(const NcDbDatabase& database);
