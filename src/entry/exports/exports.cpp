// What the module exports to the host.
#include "entry/desk.h"
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

// For a host that shows what the user works on; texts are UTF-8.
Q_DECL_EXPORT void terva_desk_state(void (*tell)(void* context, const char* key, const char* value), void* context)
{
    tellDesk([=](const QString& key, const QString& value) {
        tell(context, key.toUtf8().constData(), value.toUtf8().constData());
    });
}
Q_DECL_EXPORT bool terva_drawing_not_stored(const char* path) { return isDrawingNotStored(QString::fromUtf8(path)); }
Q_DECL_EXPORT void terva_open_project(const char* path) { openProjectOfDesk(QString::fromUtf8(path)); }

} // extern "C"
