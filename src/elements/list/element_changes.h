#pragma once
// What the element list does to many elements at once. Each change of an
// element goes to the console, done or not.

#include "elements/list/element_list_model.h"

#include <functional>

/// The one family of the elements; null when there are several, or none.
const ListFamily* commonFamily(const ListedElements& elements);

void changeType(const ListedElements& elements, const QString& typeId);
void changeState(const ListedElements& elements, const QString& stateId);
/// An element whose name is taken in the position is passed over.
void moveToPosition(const ListedElements& elements, int positionId);

/// Asked for an element that could not be deleted: whether what belongs to it
/// is cleared and the deletion tried again.
using ClearQuestion = std::function<bool(const QString& text)>;
void deleteElements(const ListedElements& elements, const ClearQuestion& mayClear);

/// The question before; the names are joined by ", ".
QString deletionQuestion(const ListedElements& elements);

/// Moves the view to the element's place and picks its block, if there is one.
void showInDrawing(const ListedElement& element);
