// The catalogues behind the combo boxes of an import.
#pragma once

class QWidget;

enum class Catalogue { Cycles, Devices, Performers };

/// Opens the catalogue in a box of its own and waits for its end.
void openCatalogue(Catalogue catalogue, QWidget* parent);
