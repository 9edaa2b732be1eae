#include "entry/sample_commands.h"

#include "entry/palette_sets.h"
#include "formkit/boxes.h"
#include "hostkit/console.h"

#include <nrx/application.h>

void helloModalDialog()
{
    say(QStringLiteral("\nHello, hostQt.dll!\n"));
    formkit::inform(ndsw_ncadMainWnd(), QStringLiteral("Hello, hostQt.dll (based on qtwinmigrate\\examples\\qtdll)!"),
                    QString());
}

void helloPalette() { togglePaletteSet(PaletteSlot::Sample); }
