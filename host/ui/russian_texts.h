// Russian captions of the toolkit's own boxes.
#pragma once

#include <nrx/types.h>

// Installs them for the whole program, whatever languages the machine has.
NRX_API void installRussianTexts();
