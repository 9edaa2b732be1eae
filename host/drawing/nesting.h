// How blocks of a drawing stand in each other. What shows, measures or copies a
// drawing goes down these steps, so their depth and number are bounded when a
// drawing is read.
#pragma once

#include <nrx/database.h>

struct BlockNesting {
    NcDbObjectId circle;   // a block that holds itself, directly or through others; null for none
    int depth = 0;         // blocks inside of blocks, from a space down
    double entities = 0.0; // of the fullest block or space, with all that its references show
};

// Costs a walk over all blocks, however they stand in each other.
NRX_API BlockNesting blockNesting(const NcDbDatabase& database);

// Why a drawing of such blocks is not opened; empty when it is.
NRX_API QString nestingFault(const NcDbDatabase& database);

// Definitions that are being shown or measured. A reference to one of them is a
// circle and is passed over: `entered()` is false then.
class NRX_API DefinitionEntry {
public:
    explicit DefinitionEntry(NcDbObjectId definition);
    ~DefinitionEntry();
    DefinitionEntry(const DefinitionEntry&) = delete;
    DefinitionEntry& operator=(const DefinitionEntry&) = delete;
    bool entered() const { return entered_; }

private:
    bool entered_;
};
