// A profile of 200 wells with 20 readings each, and epures of 200 marks: reading
// them from the server, setting them out, the isotherms, and drawing it all.
#include "analysis/contour/contour_build.h"
#include "analysis/levels/level_map.h"
#include "analysis/maps/map_drawing.h"
#include "analysis/profiles/deformation_table.h"
#include "analysis/profiles/epure.h"
#include "analysis/profiles/section_frame.h"
#include "bench_project.h"
#include "hostkit/layers.h"
#include "session/project_session.h"

#include <nrx/application.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <cstdio>

namespace {

constexpr double secondsBound = 0.5;

const char* const content =
    "insert into cycles (cycle_id, number, date_start, date_end) overriding system value values "
    "(1, 1, '2022-01-01', '2022-01-31'), (2, 2, '2023-01-01', '2023-01-31');"
    "insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
    "overriding system value select i, 'dm', 'М' || i, 'exist', 1 + (i - 1) / 200, (i - 1) % 200 * 10, (i % 3) * 0.3, "
    "0, 0 from generate_series(1, 4000) i;"
    "insert into dm_meas (element_id, cycle_id, date, meas) select i, c, '2022-01-10', 100 - c * (i % 13) * 0.01 "
    "from generate_series(1, 4000) i, generate_series(1, 2) c;"
    "insert into ts_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
    "overriding system value select i, 'ts', 'Т' || i, 'exist', 1 + (i - 1) / 200, (i - 1) % 200 * 10, (i % 3) * 0.3, "
    "100 + (i % 7) * 0.2, 0.5 from generate_series(1, 4000) i;"
    "insert into ts_meas (element_id, cycle_id, date, meas) select i, c, '2023-01-10', "
    "(select string_agg(d || ':' || round((c - 4 * sin(i * 0.05) * exp(-d * 0.1) - 0.1 * (i % 5))::numeric, 2), '|' "
    "order by d) from generate_series(1, 20) d) from generate_series(1, 4000) i, generate_series(1, 2) c;";

class Clock {
public:
    Clock() { clock_.start(); }
    void tell(const char* what)
    {
        const double seconds = double(clock_.nsecsElapsed() - told_) * 1e-9;
        told_ = clock_.nsecsElapsed();
        std::printf("  %-28s %7.3f s\n", what, seconds);
    }
    bool report(const char* what) const
    {
        const double seconds = double(clock_.nsecsElapsed()) * 1e-9;
        std::printf("%-30s %7.3f s  %s\n", what, seconds, seconds <= secondsBound ? "" : "MISSED");
        return seconds <= secondsBound;
    }

private:
    QElapsedTimer clock_;
    qint64 told_ = 0;
};

ProfileLine alongTheWells() { return ProfileLine({{0, 0, 0}, {1000, 0, 0}, {2000, 0, 0}}, false); }

bool benchSection(bool difference)
{
    Clock clock;
    std::vector<SectionWell> wells, before;
    loadSectionWells(2, {1, {}}, wells);
    if (difference) {
        loadSectionWells(1, {1, {}}, before);
        subtract(before, wells);
    }
    keepCaught(wells, alongTheWells(), 1.0);
    clock.tell("reading");
    const size_t count = wells.size();
    const TemperatureSection section(std::move(wells), alongTheWells().length(), SectionView());
    const LevelMap levels(LevelMap::Temperature);
    contour::BuildInput input;
    input.points = section.points();
    input.bounds = section.outline();
    input.exactEdges = true;
    input.levels = levels.levels();
    const contour::BuildResult built = contour::buildContours(input, {});
    clock.tell("isotherms");
    drawHatches(built.contours.hatchBands(), levels, QStringLiteral("0"));
    clock.tell("hatches");
    const SectionFrame frame = sectionFrame(section, {"2", "2", difference});
    clock.tell("frame");
    const size_t drawn = drawSketch(frame.sketch, QStringLiteral("TERVA_PROF_")).size();
    clock.tell("drawing");
    std::printf("  %zu wells, %zu readings, %zu entities, %d labels left out\n", count, input.points->size(), drawn,
                frame.leftOut);
    return clock.report(difference ? "difference of 200 wells" : "section of 200 wells") && count == 200;
}

bool benchEpure()
{
    Clock clock;
    DeformationProfileClass profile;
    profile.load(alongTheWells(), 1.0, 1, {1, 2, false});
    clock.tell("reading");
    const Sketch sketch = epureSketch({profile}, {0, -1000, 2.0, " Цикл 2"}, settlementLimit(1));
    clock.tell("setting out");
    drawSketch(sketch, QStringLiteral("TERVA_DEF_"));
    clock.tell("drawing");
    return clock.report("epures of 200 marks") && profile.points.size() == 200;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const BenchProject project(content, 20);
    ncDocManagerPtr()->appContextNewDocument(QString());
    const bool section = benchSection(false);
    const bool difference = benchSection(true);
    const bool epure = benchEpure();
    return section && difference && epure ? 0 : 1;
}
