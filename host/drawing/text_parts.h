// What texts, attribute definitions and attributes share.
#pragma once

#include <nrx/entity.h>

// Place, text, height, rotation, width factor and alignment.
void copyText(const NcDbText& from, NcDbText& to);
