// What every test program reads; compiled as tests are, without optimising.
#include "../../tests/support/printing.h"
#include "widgets.h"

#include <gtest/gtest.h>
