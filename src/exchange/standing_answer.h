// A question of an import that the user may answer once for all rows.
#pragma once

#include "exchange/measure_import.h"

#include <optional>

class StandingAnswer {
public:
    /// Whether the user agrees; asks unless an answer for all was given.
    bool agrees(const ImportQuestion& ask, const QString& text);

private:
    std::optional<bool> forAll_;
};
