#pragma once
// The catalogues behind the buttons "..." of other forms.

class QWidget;

enum class CatalogueKind { Cycles, Devices, Performers };

/// Opens the catalogue in a box of its own and waits for its end.
void openCatalogue(CatalogueKind kind, QWidget* parent);
