// Handlers of the commands that need a window.
#pragma once

/// TERVA_GET_UCS
void storeUcsCommand();

/// TERVA_SET_UCS
void applyUcsCommand();

/// TERVA_DWG_TO_PG
void exportPlanCommand();

/// TERVA_DWG_BACKGROUND
void prepareBackgroundCommand();
