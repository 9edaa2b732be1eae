// Turning an element's block while its label keeps its look on the sheet.
#pragma once

#include "elements/element_block.h"

struct ElementTurn {
    enum class Marker {
        Keep, ///< its own rotation makes up for the block's
        Align ///< it follows the block
    };

    double angle = 0.0; ///< rotation of the block afterwards, radians
    Marker marker = Marker::Align;
    double labelScale = 1.0; ///< what the label's vectors are multiplied by
};

/// Changes the record only. Of the vectors of the label those are turned whose
/// both properties the kind has; "Угол1" gets 6 decimals, vectors get 4.
void turnElement(ElementBlock& element, const ElementTurn& turn);
