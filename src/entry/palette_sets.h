// The module's palette sets: made on first use, shown and hidden by their
// commands, destroyed on unload.
#pragma once

#include "drawing/inspector/forms/object_inspector.h"

#include <memory>

class hostUiPaletteSet;

// In the order in which they are destroyed.
enum class PaletteSlot {
    Sample,       // HELLOQTPALETTE
    SecondSample, // "UI pal set": no command opens it
    ProjectSettings,
    ProjectExplorer,
    ObjectInspector,
    ElementList
};
constexpr int kPaletteSlotCount = 6;

// Makes and shows the set on first use. Later refreshes its forms, then shows
// it if it is hidden and hides it if it is visible.
void togglePaletteSet(PaletteSlot slot);

// The palette of the object inspector: made when its page is asked for, shown and
// hidden by the inspector's switch.
InspectorPlace inspectorPlace();

// Null until the set was opened.
hostUiPaletteSet* paletteSet(PaletteSlot slot);

// Refreshes the forms of every set that exists: settings, explorer, element list,
// object inspector.
void refreshAllPaletteSets();
void refreshExplorerPaletteSet();

// Destroys what exists, in the order of the slots.
void destroyPaletteSets();
