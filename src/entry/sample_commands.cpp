#include "entry/sample_commands.h"

#include "entry/palette_sets.h"
#include "hostkit/console.h"

#include <nrx/application.h>

#include <QMessageBox>

void helloModalDialog()
{
    say(QStringLiteral("\nHello, hostQt.dll!\n"));
    QMessageBox::information(ndsw_ncadMainWnd(), QString(),
                             QStringLiteral("Hello, hostQt.dll (based on qtwinmigrate\\examples\\qtdll)!"));
}

void helloPalette() { togglePaletteSet(PaletteSlot::Sample); }
