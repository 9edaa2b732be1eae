// TERVA_IMPORT_GEOLOGY. That there is a connection is seen to before.
#pragma once

void importGeologyCommand();
