#pragma once

#include "analysis/contour/contour_build.h"

#include <cstdint>
#include <random>
#include <string>

// Inputs of many shapes, each the same for one seed on every machine.
namespace samples {

using contour::BuildInput;
using contour::BuildParameters;
using geometry::Point3;
using geometry::PointList;

class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) { }

    // The library's own distributions differ between makers.
    double unit() { return static_cast<double>(engine_()) / 4294967296.0; }
    double in(double from, double to) { return from + (to - from) * unit(); }
    int below(int count) { return static_cast<int>(unit() * count); }
    bool chance(double probability) { return unit() < probability; }

private:
    std::mt19937 engine_;
};

struct Sample {
    std::string name;
    BuildInput input;
    BuildParameters parameters;
};

// Every kind of point set and every option turns up within the first 60 seeds.
Sample sampleOf(std::uint32_t seed);

// Points of a smooth field in a square of the given side.
PointList smoothField(std::uint32_t seed, int count, double side);

constexpr int kPointKinds = 14;
PointList pointsOfKind(int kind, Random& random, int count);

} // namespace samples
