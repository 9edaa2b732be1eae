// Grading a project of 1,000 positions with 20,000 marks, 5,000 wells and 1,000
// profiles: seconds and statements, grading and storing apart.
#include "analysis/grading/position_measures.h"
#include "analysis/grading/stored_grades.h"
#include "bench_project.h"
#include "session/project_session.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <cstdio>

namespace {

constexpr int positions = 1000;
constexpr double secondsBound = 15.0;

// All of it by the server itself: 20 marks, 5 wells and a profile of 10 points a position.
const char* const content =
    "insert into cycles (cycle_id, number, date_start, date_end) overriding system value values "
    "(1, 1, '2022-01-01', '2022-01-31'), (2, 2, '2023-01-01', '2023-01-31');"
    "insert into positions_attributes (position_id, temperature_deep_min, temperature_deep_max, temperature_h, "
    "temperature_bf, base_depth, averagediff, relativediff) select i, 1, 10, -1, -0.5, 5, 10, 0.004 "
    "from generate_series(1, 1000) i;"
    "insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
    "overriding system value select i, 'dm', 'М' || i, 'exist', 1 + i % 1000, i, i, 0, 0 "
    "from generate_series(1, 20000) i;"
    "insert into dm_meas (element_id, cycle_id, date, meas) select i, c, '2022-01-10', 100 - c * (i % 13) * 0.01 "
    "from generate_series(1, 20000) i, generate_series(1, 2) c;"
    "insert into ts_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
    "overriding system value select i, 'ts', 'Т' || i, 'exist', 1 + i % 1000, i, i, 0, 0 "
    "from generate_series(1, 5000) i;"
    "insert into ts_meas (element_id, cycle_id, date, meas) select i, 2, '2023-01-10', "
    "(select string_agg(d || ':' || round((-1.5 + (i % 7) * 0.2)::numeric, 2), '|' order by d) "
    "from generate_series(1, 20) d) from generate_series(1, 5000) i;"
    "insert into deformation_profiles (profile_id, position_id, profile_name) overriding system value "
    "select i, i, 'Профиль' from generate_series(1, 1000) i;"
    "insert into deformation_profiles_points (profile_id, element_id, param, dist) "
    "select position_id, element_id, element_id / 1000, 10 from dm_elements where element_id <= 10000;";

constexpr int statementsEach = 5; // attributes, counts, wells, marks, profiles

bool report(const char* what, double seconds, int statements)
{
    std::printf("%-24s %6d positions  %7.2f s  %6d statements  %s\n", what, positions, seconds, statements,
                seconds <= secondsBound ? "" : "MISSED");
    return seconds <= secondsBound;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const BenchProject project(content, positions);

    QElapsedTimer clock;
    clock.start();
    std::vector<PositionGrades> grades;
    std::array<int, kGradeCount> states{};
    for (const ListedPosition& position : listPositions()) {
        grades.push_back(gradedPosition(position.id, 1, 2));
        ++states[size_t(grades.back().grade)];
    }
    const bool graded = report("grading", clock.elapsed() / 1000.0, 1 + statementsEach * positions);
    std::printf("states 0 to 5: %d %d %d %d %d %d\n", states[0], states[1], states[2], states[3], states[4], states[5]);

    clock.restart();
    int stored = 0;
    for (const PositionGrades& position : grades)
        stored += storeGrades(position, nullptr) ? 1 : 0;
    const bool kept = report("storing", clock.elapsed() / 1000.0, 2 * positions);
    return graded && kept && stored == positions ? 0 : 1;
}
