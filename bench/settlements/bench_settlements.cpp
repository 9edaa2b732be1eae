// The settlement form over 20,000 marks: a line of 2,000 vertices that catches
// all of them, and one that catches a tenth; seconds, the best of five.
#include "analysis/profiles/epure.h"
#include "analysis/settlements/forms/settlements_map_form.h"
#include "bench_project.h"
#include "session/project_session.h"

#include <QApplication>
#include <QElapsedTimer>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace {

constexpr double secondsBound = 0.5;
constexpr int vertices = 2000;

// Along a wave of 20 km, up to 0.9 m beside it.
const char* const content =
    "insert into cycles (cycle_id, number, date_start, date_end) overriding system value values "
    "(1, 1, '2022-01-01', '2022-01-31'), (2, 2, '2023-01-01', '2023-01-31');"
    "insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
    "overriding system value select i, 'dm', 'М' || i, 'exist', 1, i, 200 * sin(i / 300.0) + 0.1 * (i % 10) - 0.45, "
    "0, 0 from generate_series(1, 20000) i;"
    "insert into dm_meas (element_id, cycle_id, date, meas) select i, c, '2022-01-10', 100 - c * (i % 13) * 0.01 "
    "from generate_series(1, 20000) i, generate_series(1, 2) c;";

ProfileLine wave(double from, double to)
{
    std::vector<LineVertex> line;
    for (int i = 0; i <= vertices; ++i) {
        const double x = from + (to - from) * i / vertices;
        line.push_back({x, 200.0 * std::sin(x / 300.0), 0.0});
    }
    return ProfileLine(line, false);
}

int caught(const SettlementsMapForm& form)
{
    return form.findChild<QTableWidget*>(QStringLiteral("SettlesTable"))->rowCount();
}

bool measure(const char* what, const ProfileLine& line, int expected)
{
    double best = INFINITY, processor = INFINITY;
    int rows = 0;
    for (int run = 0; run < 5; ++run) {
        QElapsedTimer clock;
        clock.start();
        const std::clock_t before = std::clock();
        SettlementsMapForm form;
        form.setLine(line);
        best = std::min(best, double(clock.nsecsElapsed()) / 1e9);
        processor = std::min(processor, double(std::clock() - before) / CLOCKS_PER_SEC);
        rows = caught(form);
    }
    const bool held = best <= secondsBound && rows == expected;
    std::printf("%-28s %6d of 20000 marks  %6.3f s, of the processor's %6.3f s  %s\n", what, rows, best, processor,
                held ? "" : "MISSED");
    return held;
}

// For the eye: what the form spends on reading and catching alone.
void measureLoad(const ProfileLine& line)
{
    QElapsedTimer clock;
    clock.start();
    DeformationProfileClass profile;
    profile.load(line, 1.0, 1, {1, 2, false});
    const double read = double(clock.nsecsElapsed()) / 1e9;
    clock.restart();
    const size_t places = placesOnLine(profile, line, 1.0).size();
    std::printf("%-28s %6.3f s, places of the epure (%zu) %.3f s\n", "reading and catching", read, places,
                double(clock.nsecsElapsed()) / 1e9);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const BenchProject project(content);
    project.chooseCycles(1, 2);
    const bool all = measure("a line along all marks", wave(0.0, 20001.0), 20000);
    // And the mark half a metre behind either end.
    const bool some = measure("a line along a tenth", wave(9000.5, 11000.5), 2002);
    measureLoad(wave(0.0, 20001.0));
    return all && some ? 0 : 1;
}
