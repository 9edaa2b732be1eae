#pragma once
// Opening an element's passport, by whoever shows elements. The passports say
// at start how they are opened.

#include "elements/families/families.h"

#include <functional>

class QWidget;

using PassportOpener = std::function<void(FamilyKey family, int elementId, QWidget* parent)>;

void setPassportOpener(PassportOpener opener);

/// While no passport is there, says so.
void openPassport(FamilyKey family, int elementId, QWidget* parent);
