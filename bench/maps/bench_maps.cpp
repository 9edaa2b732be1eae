// Reading the elements of a large map, alone and by its form: 20,000 marks, 5,000 wells
// with logs of 20 depths; two cycles among five. Beside it what a statement an element and
// cycle takes, as the yardstick.
#include "analysis/maps/deformation_marks.h"
#include "analysis/maps/forms/deformation_map_form.h"
#include "analysis/maps/forms/temperature_diff_map_form.h"
#include "analysis/maps/temperature_differences.h"
#include "bench_project.h"
#include "spent_time.h"

#include <nrx/application.h>

#include <QApplication>

namespace {

constexpr double kReadBound = 1.0;
constexpr double kFormBound = 2.0;

const char* const kContent =
    "insert into cycles (cycle_id, number, date_start, date_end) overriding system value "
    "select i, i, date '2020-01-01' + 365 * i, date '2020-01-31' + 365 * i from generate_series(1, 5) i;"
    "insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
    "overriding system value select i, 'dm', 'М' || i, 'exist', 1, 10 * (i % 141), 10 * (i / 141), 0, 0 "
    "from generate_series(1, 20000) i;"
    "insert into dm_meas (element_id, cycle_id, date, meas) select i, c, '2022-01-10', 100 - c * (i % 13) * 0.01 "
    "from generate_series(1, 5) c, generate_series(1, 20000) i;"
    "insert into ts_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
    "overriding system value select i, 'ts', 'Т' || i, 'exist', 1, 10 * (i % 71), 10 * (i / 71), 0, 0 "
    "from generate_series(1, 5000) i;"
    "insert into ts_meas (element_id, cycle_id, date, meas) select i, c, '2023-01-10', "
    "(select string_agg(d || ':' || round((-1.5 + (i * c % 7) * 0.2)::numeric, 2), '|' order by d) "
    "from generate_series(1, 20) d) from generate_series(1, 5) c, generate_series(1, 5000) i;";

Epochs epochs()
{
    Epochs chosen;
    chosen.base = 1;
    chosen.current = 5;
    return chosen;
}

MapPlace place()
{
    MapPlace chosen;
    chosen.positionId = 1;
    return chosen;
}

template <class Map>
bool read(const char* what, size_t expected)
{
    const SpentTimer timer;
    Map map;
    const bool whole = map.load(place(), epochs()) == Loaded::All && map.rows.size() == expected;
    return reportSpent(what, timer.spent(), kReadBound) && whole;
}

void readOneByOne(const char* what, const char* statement, int elements)
{
    const SpentTimer timer;
    for (int element = 1; element <= elements; ++element) {
        for (const int cycle : {epochs().base, epochs().current})
            session().run(compose(statement, element, cycle));
    }
    reportSpent(what, timer.spent(), HUGE_VAL);
}

template <class Form>
bool open(const char* what, size_t expected)
{
    const SpentTimer timer;
    const Form form;
    const SpentTime spent = timer.spent();
    return reportSpent(what, spent, kFormBound) && form.usedRows().size() == expected;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    ncDocManagerPtr()->appContextNewDocument(QString()); // the forms list its layers
    const BenchProject project(kContent);
    project.chooseCycles(1, 5);
    const bool marks = read<DeformationMarks>("20,000 marks read", 20000);
    const bool markForm = open<DeformationMapForm>("their form", 20000);
    readOneByOne("yardstick: a statement each", "select meas from dm_meas where element_id = %1 and cycle_id = %2",
                 20000);
    const bool wells = read<TemperatureDifferences>("5,000 wells read", 5000);
    const bool wellForm = open<TemperatureDiffMapForm>("their form", 5000);
    readOneByOne("yardstick: a statement each",
                 "select meas, meas_ts_id from ts_meas where element_id=%1 and cycle_id=%2", 5000);
    return marks && markForm && wells && wellForm ? 0 : 1;
}
