// What a module asks of palette sets, call by call, with every number: a window
// shows less than that.
#pragma once

#include <nrx/palettes.h>

#include <QString>
#include <functional>

using PaletteWatch = std::function<void(const QString& call)>;

// Hears every call from now on; an empty one hears none.
NRX_API void setPaletteWatch(PaletteWatch watch);
