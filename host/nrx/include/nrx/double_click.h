// What a double click on something drawn opens.
#pragma once

#include "object.h"

// Told of a double click on an entity while no command runs. The first that
// shows something says true; the host's own editor then stays away.
class NRX_API NcDoubleClickReactor {
public:
    virtual ~NcDoubleClickReactor() = default;
    virtual bool doubleClicked(NcDbObjectId entity) = 0;
};
// The reactor is not owned; it is taken out before it goes.
NRX_API void ncedAddDoubleClickReactor(NcDoubleClickReactor* reactor);
NRX_API void ncedRemoveDoubleClickReactor(NcDoubleClickReactor* reactor);
