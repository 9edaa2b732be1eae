// The module's life: what happens when the host loads and unloads it.
#pragma once

// Unlocks the module, tries a connection with the session as it stands and
// registers the commands.
void initialiseModule(void* packet);

// Removes the commands and destroys the palette sets. The project is neither
// saved nor closed.
void unloadModule();
