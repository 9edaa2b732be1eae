#include "drawing/forms/insertion_commands.h"

#include "drawing/forms/enumerator_form.h"
#include "drawing/forms/tsg_catalog_selector.h"
#include "drawing/insertion.h"
#include "drawing/insertion_family.h"
#include "formkit/modal.h"

#include <functional>

void insertKind(int kind) { insertElements(kind, &TSGCatalogSelector::choose); }

void editNumbering(FamilyKey family) { runModal<EnumeratorForm>(std::ref(enumeratorOf(family))); }
