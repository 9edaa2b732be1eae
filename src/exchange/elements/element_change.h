// What a record changes about an element that exists.
#pragma once

#include "elements/element_block.h"
#include "exchange/elements/element_records.h"

/// Takes over what the record gives; the place in the plan only when told to.
/// A new rotation of the marker turns the leader along, a new burial depth
/// gives the leg that draws it its length.
void takeRecord(ElementBlock& element, const ElementRecord& record, bool withPlace);

/// Reads the element, changes it after the record and writes its row, all its
/// columns, and its block if it is in the working drawing. False when there is
/// no such row, or when it is refused.
bool changeElement(const QString& typeId, int id, const ElementRecord& record, bool withPlace, int positionId,
                   const StateColors& colors);
