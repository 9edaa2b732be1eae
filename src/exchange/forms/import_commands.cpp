#include "exchange/forms/import_commands.h"

#include "database/catalogues/forms/catalogue_forms.h"
#include "exchange/forms/devices_import_form.h"
#include "exchange/forms/family_import_dialogs.h"
#include "exchange/forms/ts_import_dialog.h"
#include "formkit/modal.h"

void importDeformationMarkMeasures() { runModal<DMImportCmdDialog>(); }

void importBenchmarkMeasures() { runModal<RPImportCmdDialog>(); }

void importSnowPointMeasures() { runModal<TSSImportCmdDialog>(); }

void importGroundwaterMeasures() { runModal<GGSImportCmdDialog>(); }

void importThermostabiliserMeasures() { runModal<TSGImportCmdDialog>(); }

void importThermalWellMeasures() { runModal<TSImportCmdDialog>(); }

void installDevicesImport()
{
    setDevicesImport([](QWidget* parent) { DevicesImportForm(parent).exec(); });
}
