#pragma once
// Charts of an element's measures over time, as pictures.

#include "elements/measures/measures_of_element.h"

#include <QPixmap>

/// Null for a family whose measures are no series over time, and without any
/// measure that has a date and a number.
QPixmap measurePicture(FamilyKey family, const Measures& measures, const QSize& size, double ratio = 1.0);
