#pragma once

// TERVA_SETTLEMENTS: asks for a line, shows how the marks along it have settled,
// and draws their epure on it.
void showSettlements();
