#pragma once
// TERVA_EGE and TERVA_TSG_CATALOG. That there is a connection is seen to before.

void openGroundCatalogue();
void openThermostabiliserCatalogue();
