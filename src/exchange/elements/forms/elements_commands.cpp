#include "exchange/elements/forms/elements_commands.h"

#include "exchange/elements/forms/import_elements_dialog.h"
#include "formkit/modal.h"

void importElementsCommand() { runModal<ImportElementsDialog>(); }
