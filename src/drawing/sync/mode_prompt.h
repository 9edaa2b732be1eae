// The question with which the synchronisation of a drawing begins.
#pragma once

#include "drawing/sync/sync_mode.h"

#include <optional>

/// Only a typed keyword is an answer: Enter and Esc give nothing.
std::optional<SyncMode> askSyncMode();
