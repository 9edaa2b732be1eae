#include "host_faults.h"

HostFaults& hostFaults()
{
    static HostFaults faults;
    return faults;
}
