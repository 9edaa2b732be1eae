// Prints what a whole build of a map costs, step by step, beside the plain
// statement of the same steps and CGAL's Delaunay triangulation of the points.

#include "analysis/contour/contour_build.h"
#include "delaunay_yardstick.h"
#include "plain_contour_set.h"
#include "samples.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>

namespace {

using contour::BuildInput;
using contour::BuildParameters;
using contour::BuildStep;
using geometry::PointList;

constexpr std::size_t kMostForPlain = 3000;

// Everything here runs in one thread, so its processor time is what it takes on
// a machine with nothing else to do.
double clockMs(clockid_t clock)
{
    timespec t{};
    clock_gettime(clock, &t);
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_nsec) * 1e-6;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

template <class Work>
double medianMs(int runs, Work work)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        const double start = clockMs(CLOCK_PROCESS_CPUTIME_ID);
        work();
        times.push_back(clockMs(CLOCK_PROCESS_CPUTIME_ID) - start);
    }
    return median(times);
}

PointList smooth(std::size_t n) { return samples::smoothField(1, static_cast<int>(n), 1000.0); }

PointList noise(std::size_t n)
{
    PointList points = smooth(n);
    samples::Random random(5);
    for (geometry::Point3& p : points)
        p.z = random.in(-12, 12);
    return points;
}

PointList grid(std::size_t n)
{
    const int side = static_cast<int>(std::lround(std::sqrt(static_cast<double>(n))));
    PointList points;
    for (int i = 0; i < side; ++i)
        for (int j = 0; j < side; ++j)
            points.push_back({i * 1.0, j * 1.0, 9 * std::sin(i * 0.05) * std::cos(j * 0.03)});
    return points;
}

PointList boreholes(std::size_t n)
{
    PointList points;
    for (std::size_t i = 0; i < n; ++i) {
        const double well = static_cast<double>(i % 20);
        const double depth = -0.5 * static_cast<double>(i / 20);
        points.push_back({well * 10.0, depth, 9 * std::sin(well * 0.5) * std::cos(depth * 0.006)});
    }
    return points;
}

BuildInput inputOf(PointList points)
{
    BuildInput input;
    input.points = std::move(points);
    for (int i = 0; i < 15; ++i)
        input.levels.push_back(-10.5 + 1.5 * i);
    return input;
}

BuildParameters parametersOf(bool smoothLines)
{
    BuildParameters parameters;
    parameters.calculateBoundary = true;
    parameters.smoothLines = smoothLines;
    return parameters;
}

struct Measured {
    std::map<BuildStep, double> steps;
    double whole = 0.0;
    double elapsed = 0.0;
    std::size_t lines = 0;
    std::size_t rings = 0;
};

Measured measure(const BuildInput& input, const BuildParameters& parameters, int runs)
{
    std::map<BuildStep, std::vector<double>> steps;
    std::vector<double> whole;
    std::vector<double> elapsed;
    Measured result;
    for (int i = 0; i < runs; ++i) {
        std::map<BuildStep, double> started;
        const double start = clockMs(CLOCK_PROCESS_CPUTIME_ID);
        const double startElapsed = clockMs(CLOCK_MONOTONIC);
        const contour::BuildResult built = buildContours(input, parameters, [&](BuildStep step, double done) {
            const double now = clockMs(CLOCK_PROCESS_CPUTIME_ID);
            if (done == 0.0)
                started.emplace(step, now);
            else if (done == 1.0)
                steps[step].push_back(now - started[step]);
            return true;
        });
        whole.push_back(clockMs(CLOCK_PROCESS_CPUTIME_ID) - start);
        elapsed.push_back(clockMs(CLOCK_MONOTONIC) - startElapsed);
        result.lines = built.contours.lines.size();
        result.rings = built.contours.rings.size();
    }
    for (const auto& [step, times] : steps)
        result.steps[step] = median(times);
    result.whole = median(whole);
    result.elapsed = median(elapsed);
    return result;
}

// Peak of a process that does one build; what the bench holds itself counts too.
long peakMegabytes(const BuildInput& input, const BuildParameters& parameters)
{
    const pid_t child = fork();
    if (child < 0)
        return -1;
    if (child == 0) {
        buildContours(input, parameters);
        _exit(0);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    return usage.ru_maxrss / 1024;
}

void printHead(const char* title)
{
    std::printf("\n%s\n%8s %8s %8s %8s %8s %8s | %8s %8s %6s %6s | %9s %8s | %7s %6s\n", title, "points", "prepare",
                "triang.", "lines", "smooth", "rings", "whole", "elapsed", "growth", "MB", "plain", "CGAL", "lines",
                "rings");
}

void benchKind(const char* title, PointList (*points)(std::size_t), bool smoothLines,
               const std::vector<std::size_t>& sizes)
{
    printHead(title);
    double lastWhole = 0.0;
    double lastSize = 0.0;
    for (std::size_t n : sizes) {
        const BuildInput input = inputOf(points(n));
        const BuildParameters parameters = parametersOf(smoothLines);
        const auto size = static_cast<double>(input.points->size());
        const long peak = peakMegabytes(input, parameters);
        const Measured ours = measure(input, parameters, n > 50000 ? 5 : 9);
        const double cgal = medianMs(5, [&] { delaunayTriangles(*input.points); });
        std::printf("%8zu", input.points->size());
        for (BuildStep step :
             {BuildStep::Prepare, BuildStep::Triangulate, BuildStep::Isolines, BuildStep::Lines, BuildStep::Rings})
            std::printf(" %8.1f", ours.steps.at(step));
        std::printf(" | %8.1f %8.1f", ours.whole, ours.elapsed);
        if (lastSize > 0.0)
            std::printf(" n^%4.2f", std::log(ours.whole / lastWhole) / std::log(size / lastSize));
        else
            std::printf(" %6s", "");
        std::printf(" %6ld |", peak);
        if (n <= kMostForPlain)
            std::printf(" %9.0f", medianMs(1, [&] { reference::plainBuild(input, parameters); }));
        else
            std::printf(" %9s", "-");
        std::printf(" %8.1f | %7zu %6zu\n", cgal, ours.lines, ours.rings);
        std::fflush(stdout);
        lastWhole = ours.whole;
        lastSize = size;
    }
}

} // namespace

int main()
{
    std::printf("Whole build of a map, hull as border, 15 levels. Milliseconds of processor time,\n"
                "medians; \"elapsed\" is by the wall clock. Targets: 60 ms at 10000 points, 1000 ms\n"
                "and 500 MB at 100000. The plain statement is run up to %zu points.\n",
                kMostForPlain);
    benchKind("Random places, smooth field, lines as traced", smooth, false, {1000, 3000, 10000, 30000, 100000});
    benchKind("The same, lines smoothed (the dialog's defaults)", smooth, true, {1000, 3000, 10000, 30000, 100000});
    benchKind("Random places, every value random: as many lines as can be", noise, false,
              {1000, 3000, 10000, 30000, 100000});
    benchKind("Square grid, all circles tie", grid, false, {1000, 3000, 10000, 30000, 100000});
    benchKind("Twenty boreholes, values down each", boreholes, false, {1000, 3000, 10000});
    return 0;
}
