// What the tests of the charts ask of an axis, and the number that no axis holds.
#pragma once

#include "charts/plotter/plot_items.h"

#include <gtest/gtest.h>

#include <limits>

constexpr double infinity = std::numeric_limits<double>::infinity();

inline void expectRange(const PlotAxis& axis, double from, double to)
{
    EXPECT_DOUBLE_EQ(axis.minimum, from);
    EXPECT_DOUBLE_EQ(axis.maximum, to);
}
