#include "elements/geology/forms/geology_commands.h"

#include "elements/geology/forms/ege_catalog_form.h"
#include "elements/geology/forms/tsg_catalog_form.h"
#include "formkit/modal.h"

void openGroundCatalogue() { runModal<EGECatalogForm>(); }

void openThermostabiliserCatalogue() { runModal<TSGCatalogForm>(); }
