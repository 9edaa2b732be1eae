// Which elements an alignment turns: those of the current position, or all of
// the drawing.
#pragma once

#include "elements/element_block.h"

#include <QMap>
#include <QSet>
#include <optional>

class AlignmentScope {
public:
    /// Every element of the drawing.
    AlignmentScope() = default;
    /// The elements of the current position, by the rows of six families: the
    /// engineering-geological wells are never among them. Nothing when the
    /// database does not answer.
    static std::optional<AlignmentScope> ofCurrentPosition();

    bool contains(const ElementBlock& element) const;

private:
    bool everything_ = true;
    QMap<FamilyKey, QSet<int>> ids_; ///< keys are unique within a family only
};

/// Asks on the command line and prints the answer. Nothing, with its message
/// where there is one, when the user gave no keyword, no position is current
/// or the database does not answer.
std::optional<AlignmentScope> askAlignmentScope();
