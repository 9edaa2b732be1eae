#pragma once
// The reference catalogues as data: what each list shows, how an entry is
// edited, and what keeps it from being deleted.

#include "formkit/catalogue_list.h"

formkit::Catalogue cyclesCatalogue();
formkit::Catalogue devicesCatalogue();
formkit::Catalogue performersCatalogue();
formkit::Catalogue statesCatalogue();

formkit::Record cycleRecord();
formkit::Record deviceRecord();
formkit::Record performerRecord();
formkit::Record stateRecord();
