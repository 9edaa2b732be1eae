// Prints what a whole build of a map costs, step by step, beside the plain
// statement of the same steps and CGAL's Delaunay triangulation of the points.

#include "analysis/contour/contour_build.h"
#include "delaunay_yardstick.h"
#include "kinds.h"
#include "plain_contour_set.h"

#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

namespace {

using contour::BuildInput;
using contour::BuildParameters;
using contour::BuildStep;
using geometry::PointList;

constexpr std::size_t kMostForPlain = 1000;

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
        std::map<BuildStep, double> spent; // a step may be taken twice
        const double start = clockMs(CLOCK_PROCESS_CPUTIME_ID);
        const double startElapsed = clockMs(CLOCK_MONOTONIC);
        const contour::BuildResult built = buildContours(input, parameters, [&](BuildStep step, double done) {
            const double now = clockMs(CLOCK_PROCESS_CPUTIME_ID);
            const auto begun = started.find(step);
            if (done == 0.0 && begun == started.end()) {
                started.emplace(step, now);
            } else if (done == 1.0 && begun != started.end()) {
                spent[step] += now - begun->second;
                started.erase(begun);
            }
            return true;
        });
        whole.push_back(clockMs(CLOCK_PROCESS_CPUTIME_ID) - start);
        elapsed.push_back(clockMs(CLOCK_MONOTONIC) - startElapsed);
        for (const auto& [step, time] : spent)
            steps[step].push_back(time);
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
    malloc_trim(0); // what earlier builds left would count
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

// What is wanted of a kind at one of its sizes; zero where nothing is.
struct Bar {
    std::size_t size;
    double ms;
    double timesCgal;
    double growth; // exponent, from the size before
    long megabytes;
    double prepareShare = 0.0; // of the whole
};

struct Kind {
    const char* title;
    PointList (*points)(std::size_t);
    bool smoothLines;
    std::vector<std::size_t> sizes;
    std::vector<Bar> bars;
    contour::Method method = contour::Method::Triangulation;
    PointList (*border)(std::size_t) = nullptr; // none: the hull
    bool exactEdges = false;
};

struct Row {
    std::size_t size;
    Measured ours;
    double cgal;
    double growth;
    long peak;
};

std::vector<std::string>& missedBars()
{
    static std::vector<std::string> list;
    return list;
}

// Every bar is printed, met or not; those that are missed once more at the end.
void printBar(const Kind& kind, const Row& row, const char* what, double measured, double wanted, int digits)
{
    if (!(wanted > 0.0))
        return;
    const bool missed = measured > wanted;
    char text[160];
    std::snprintf(text, sizeof text, "%s %.*f, wanted at most %.*f", what, digits, measured, digits, wanted);
    std::printf("    %s: %s\n", missed ? "MISSED" : "met", text);
    if (!missed)
        return;
    const std::string title = kind.title;
    missedBars().push_back(title.substr(0, title.find(':')) + ", " + std::to_string(row.size) + " points: " + text);
}

void printBars(const Kind& kind, const Row& row)
{
    for (const Bar& bar : kind.bars) {
        if (bar.size != row.size)
            continue;
        printBar(kind, row, "milliseconds", row.ours.whole, bar.ms, 0);
        if (row.cgal > 0.0)
            printBar(kind, row, "times CGAL", row.ours.whole / row.cgal, bar.timesCgal, 1);
        else if (bar.timesCgal > 0.0)
            std::printf("    not measured: times CGAL, which is not installed\n");
        printBar(kind, row, "growth, exponent", row.growth, bar.growth, 2);
        printBar(kind, row, "megabytes", static_cast<double>(row.peak), static_cast<double>(bar.megabytes), 0);
        const auto prepare = row.ours.steps.find(BuildStep::Prepare);
        const double share = prepare == row.ours.steps.end() ? 0.0 : prepare->second / row.ours.whole;
        printBar(kind, row, "share of prepare", share, bar.prepareShare, 2);
    }
}

void printMissed()
{
    std::printf("\n%zu bars missed\n", missedBars().size());
    for (const std::string& bar : missedBars())
        std::printf("  %s\n", bar.c_str());
}

void printHead(const char* title)
{
    std::printf("\n%s\n%8s %8s %8s %8s %8s %8s %8s | %8s %8s %6s %6s | %9s %8s %6s | %7s %6s\n", title, "points",
                "prepare", "grid", "triang.", "lines", "smooth", "rings", "whole", "elapsed", "growth", "MB", "plain",
                "CGAL", "ratio", "lines", "rings");
}

void printRow(const Row& row, double plain)
{
    std::printf("%8zu", row.size);
    for (BuildStep step : {BuildStep::Prepare, BuildStep::Grid, BuildStep::Triangulate, BuildStep::Isolines,
                           BuildStep::Lines, BuildStep::Rings}) {
        const auto found = row.ours.steps.find(step);
        std::printf(" %8.1f", found == row.ours.steps.end() ? 0.0 : found->second);
    }
    std::printf(" | %8.1f %8.1f", row.ours.whole, row.ours.elapsed);
    if (row.growth != 0.0)
        std::printf(" n^%4.2f", row.growth);
    else
        std::printf(" %6s", "");
    std::printf(" %6ld |", row.peak);
    if (plain >= 0.0)
        std::printf(" %9.0f", plain);
    else
        std::printf(" %9s", "-");
    std::printf(" %8.1f", row.cgal);
    if (row.cgal > 0.0)
        std::printf(" %6.1f", row.ours.whole / row.cgal);
    else
        std::printf(" %6s", "-");
    std::printf(" | %7zu %6zu\n", row.ours.lines, row.ours.rings);
}

int runsFor(std::size_t points)
{
    if (points <= 3000)
        return 7;
    return points <= 200000 ? 3 : 1;
}

void benchKind(const Kind& kind)
{
    printHead(kind.title);
    double lastWhole = 0.0;
    double lastSize = 0.0;
    for (std::size_t n : kind.sizes) {
        BuildInput input = inputOf(kind.points(n));
        BuildParameters parameters = parametersOf(kind.smoothLines);
        parameters.method = kind.method;
        if (kind.border)
            input.bounds = kind.border(n);
        input.exactEdges = kind.exactEdges;
        Row row;
        row.size = n;
        row.peak = peakMegabytes(input, parameters);
        row.ours = measure(input, parameters, runsFor(n));
        row.cgal = kHaveCgal ? medianMs(runsFor(n), [&] { delaunayTriangles(*input.points); }) : 0.0;
        const auto size = static_cast<double>(input.points->size());
        row.growth = lastSize > 0.0 ? std::log(row.ours.whole / lastWhole) / std::log(size / lastSize) : 0.0;
        printRow(row, n <= kMostForPlain ? medianMs(1, [&] { reference::plainBuild(input, parameters); }) : -1.0);
        printBars(kind, row);
        std::fflush(stdout);
        lastWhole = row.ours.whole;
        lastSize = size;
    }
}

const std::vector<Kind>& allKinds()
{
    using contour::Method;
    static const std::vector<Kind> list{
        {"smooth: random places, smooth field, lines as traced",
         kinds::smooth,
         false,
         {1000, 10000, 100000, 1000000},
         {{10000, 60, 0, 0, 0}, {100000, 1000, 5, 1.2, 500}, {1000000, 0, 6, 1.2, 300}}},
        {"defaults: the same, lines smoothed", kinds::smooth, true, {1000, 10000, 100000}, {{100000, 0, 0, 1.2, 0}}},
        {"noise: every value random, lines smoothed",
         kinds::noise,
         true,
         {1000, 10000, 100000},
         {{100000, 4000, 0, 1.2, 700}}},
        {"grid: all circles tie", kinds::grid, false, {1000, 10000, 100000}, {{100000, 0, 0, 1.2, 0}}},
        {"stacked: columns of readings a thousandth wide",
         kinds::stacked,
         false,
         {10000, 20000, 40000},
         {{40000, 0, 0, 1.2, 0}}},
        {"slanted: along a slope, a well on each side",
         kinds::slanted,
         false,
         {10000, 20000, 40000, 160000},
         {{40000, 0, 0, 1.2, 0}, {160000, 1000, 0, 1.2, 0}}},
        {"level: along x, a thousandth wide", kinds::level, false, {10000, 20000, 40000}, {{40000, 0, 0, 1.2, 0}}},
        {"edges: two parallel edges of a road", kinds::edges, false, {1000, 2000, 4000}, {{4000, 0, 0, 1.2, 0}}},
        {"boreholes: twenty, values down each", kinds::boreholes, false, {1000, 3000, 10000}, {{10000, 0, 0, 1.2, 0}}},
        {"circle: marks round a tank", kinds::circle, false, {250, 500, 1000}, {{1000, 0, 0, 1.2, 0}}},
        {"IDW: smooth places with a grid, 15 neighbours",
         kinds::smooth,
         false,
         {1000, 4000, 16000},
         {{16000, 0, 0, 1.2, 0}},
         Method::InverseDistance},
        {"border: 500 sides, exact; prepare is to be a fifth of the whole",
         kinds::smooth,
         false,
         {1000, 10000, 100000},
         {{100000, 0, 0, 1.2, 0, 0.2}},
         Method::Triangulation,
         kinds::longBorder,
         true},
    };
    return list;
}

} // namespace

// The kinds named on the line, by the word before the colon; all without.
int main(int count, char** words)
{
    std::printf("Whole build of a map, 15 levels, hull as border unless said. Milliseconds of processor time,\n"
                "medians; \"elapsed\" is by the wall clock, \"growth\" from the size before, \"ratio\" of the whole\n"
                "build to CGAL's triangulation alone. The plain statement is run up to %zu points.\n",
                kMostForPlain);
    for (const Kind& kind : allKinds()) {
        const std::string title = kind.title;
        const std::string name = title.substr(0, title.find(':'));
        if (count == 1 || std::find(words + 1, words + count, name) != words + count)
            benchKind(kind);
    }
    printMissed();
    return 0;
}
