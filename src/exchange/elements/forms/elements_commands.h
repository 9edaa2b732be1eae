// TERVA_IMPORT_ELEMENTS. That there is a connection is seen to before.
#pragma once

void importElementsCommand();
