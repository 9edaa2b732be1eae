// What the module exports to the host.
#include "entry/module.h"

#include <nrx/application.h>

extern "C" {

// Tells the host which module this is.
Q_DECL_EXPORT extern const char _terva_module_id[] = "TERVA";

// Returns 0 for every message; only the first and the last of a module's life matter.
Q_DECL_EXPORT int ncrxEntryPoint(int message, void* packet)
{
    if (message == kInitAppMsg)
        initialiseModule(packet);
    else if (message == kUnloadAppMsg)
        unloadModule();
    return 0;
}

// Samples that the host's module template names; the system does not use them.
Q_DECL_EXPORT void HelloUIDialogcmd() { }
Q_DECL_EXPORT bool showDialog(void* /*parent*/) { return true; }

} // extern "C"
