// TERVA_IMPORT_DM_MEASURE, TERVA_IMPORT_RP_MEASURE, TERVA_IMPORT_TSS_MEASURE,
// TERVA_IMPORT_GGS_MEASURE, TERVA_IMPORT_TSG_MEASURE, TERVA_IMPORT_TS_MEASURE
#pragma once

// Each opens the import dialog of its family. That there is a connection is
// seen to before.
void importDeformationMarkMeasures();
void importBenchmarkMeasures();
void importSnowPointMeasures();
void importGroundwaterMeasures();
void importThermostabiliserMeasures();
void importThermalWellMeasures();

/// The catalogue of devices opens the import of devices by its button.
void installDevicesImport();
