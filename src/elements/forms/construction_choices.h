#pragma once
// The types of thermostabilisers as a combo box offers them.

#include "formkit/choices.h"

/// "name (note)"; the id is that of the catalogue.
formkit::Choices constructionChoices();
