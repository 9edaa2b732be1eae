// Inserting new elements: one dialogue on the command line for all families.
#pragma once

#include <functional>
#include <optional>

/// Asks for the construction of a thermostabiliser; nothing when the user
/// closed the dialog without a choice.
using CatalogChooser = std::function<std::optional<int>()>;

/// Runs the insertion command of the kind: many elements with default values
/// and names by the family's numbering, or a single one with its own. Each
/// element becomes a row of the database and a block of the drawing; when the
/// row fails, the block is inserted all the same under the id 1001, marked, and
/// the line says so. A cancel
/// ends the command and leaves what was inserted so far.
void insertElements(int kind, const CatalogChooser& chooseCatalog);
