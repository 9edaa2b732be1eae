#include "entry/module.h"

#include "elements/passports/forms/passport_opening.h"
#include "entry/command_table.h"
#include "entry/palette_sets.h"
#include "exchange/forms/import_commands.h"
#include "hostkit/console.h"
#include "session/forms/busy_box.h"
#include "session/forms/palette_refresh.h"
#include "session/forms/project_file_dialogs.h"
#include "session/project_session.h"

#include <nrx/application.h>

void initialiseModule(void* packet)
{
    GetDynamicLinker()->unlockApplication(packet);
    GetDynamicLinker()->setMultiDocumentAware(packet);
    installProjectDialogs();
    installBusyBox();
    installDevicesImport();
    setPaletteRefresh({refreshAllPaletteSets, refreshExplorerPaletteSet});
    // Without an open project the parameters are empty and this fails in silence.
    if (session().connect())
        say(QStringLiteral("\nСоединение с базой данных выполнено"));
    installPassports();
    registerCommands();
}

void unloadModule()
{
    removeCommands();
    removePassports();
    removeBusyBox();
    setPaletteRefresh({});
    destroyPaletteSets();
    removeObjectInspector();
}
