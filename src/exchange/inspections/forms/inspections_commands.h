// TERVA_EXPORT_INSPECTIONS, TERVA_IMPORT_INSPECTIONS. That there is a connection
// is seen to before.
#pragma once

void exportInspectionsCommand();
void importInspectionsCommand();
