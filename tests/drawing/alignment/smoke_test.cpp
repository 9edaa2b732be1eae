#include "drawing/alignment/alignment.h"
