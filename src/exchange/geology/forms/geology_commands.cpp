#include "exchange/geology/forms/geology_commands.h"

#include "exchange/geology/forms/igs_geology_import_dialog.h"
#include "formkit/modal.h"
#include "hostkit/console.h"

void importGeologyCommand()
{
    runModalThen<IGSGeologyImportDialog>([](IGSGeologyImportDialog&, int result) {
        if (result == QDialog::Accepted)
            say("\n Импорт геологии завершен");
    });
}
