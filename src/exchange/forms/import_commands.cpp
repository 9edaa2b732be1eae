#include "exchange/forms/import_commands.h"

#include "exchange/forms/family_import_dialogs.h"
#include "exchange/forms/ts_import_dialog.h"
#include "formkit/modal.h"

void importDeformationMarkMeasures() { runModal<DMImportCmdDialog>(); }

void importBenchmarkMeasures() { runModal<RPImportCmdDialog>(); }

void importSnowPointMeasures() { runModal<TSSImportCmdDialog>(); }

void importGroundwaterMeasures() { runModal<GGSImportCmdDialog>(); }

void importThermostabiliserMeasures() { runModal<TSGImportCmdDialog>(); }

void importThermalWellMeasures() { runModal<TSImportCmdDialog>(); }
