#pragma once
// The fields of a project, as its creation and its settings show them.

#include "formkit/field_pane.h"

/// Name, code, organization, description.
formkit::FieldList projectDataFields();

/// The project's folders; a choice starts at the field's value.
formkit::FieldList projectFolderFields();

/// A palette is narrow: each caption stands above its field.
void putCaptionsAbove(formkit::FieldPane& pane);
