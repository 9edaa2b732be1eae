// A module that has stored none of the drawings whose names say so.
#include <nrx/application.h>

#include <QByteArray>

extern "C" {

Q_DECL_EXPORT int ncrxEntryPoint(int /*message*/, void* packet)
{
    GetDynamicLinker()->unlockApplication(packet);
    return 0;
}

Q_DECL_EXPORT bool terva_drawing_not_stored(const char* path) { return QByteArray(path).contains("not-stored"); }

} // extern "C"
