#pragma once
// How passports are reached: from the list of elements, and by a double click on
// an element's block.

/// From now on both open passports; until removePassports().
void installPassports();
void removePassports();
