// Calls of the host that a test makes fail where no state of a drawing would.
#pragma once

#include <nrx/types.h>

struct HostFaults {
    bool tableIterators = false; // a symbol table gives no iterator
    bool sideTables = false;     // the block table of a drawing that is not the working one does not open
    bool cloning = false;        // nothing is cloned
};

NRX_API HostFaults& hostFaults();
