// The list of all elements and the table of their measures: seconds to open,
// milliseconds a typed letter of the filter, statements beside both.
#include "elements/list/forms/element_list.h"
#include "elements/list/forms/hierarchy_combo.h"
#include "elements/measures/forms/element_measures_form.h"
#include "median_run.h"
#include "session/project_session.h"
#include "support/console_capture.h"
#include "support/position_session.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTableView>
#include <cstdio>
#include <functional>

namespace {

constexpr int runs = 5; // the median is told
bool missed = false;

void measure(const char* what, double bound, const std::function<void()>& work,
             const std::function<void()>& between = {})
{
    const auto shown = [&work] {
        work();
        QApplication::processEvents();
    };
    const MedianRun measured = medianRun(runs, shown, between);
    const bool within = measured.judged() <= bound;
    missed = missed || !within;
    std::printf("%-46s %7.3f s, processor %7.3f s (bound %.3f) %6d statements  %s\n", what, measured.seconds,
                measured.processor, bound, measured.statements, within ? "" : "MISSED");
    std::fflush(stdout);
}

void fillProject(PositionSession& database)
{
    database->exec("insert into positions (position_id, subobject_id, position) overriding system value select i, 1, "
                   "'П' || i from generate_series(9, 12) i on conflict do nothing;"
                   "insert into cycles (cycle_id, number, date_start, date_end) overriding system value select i, i, "
                   "date '2020-01-01' + 31 * i, date '2020-01-30' + 31 * i from generate_series(1, 20) i;"
                   "insert into dm_elements (element_id, type_id, element_name, state_id, position_id, x, y, z, h) "
                   "overriding system value select i, 'dm', 'ДМ-' || i, 'exist', 7 + i / 2001, i, i, 1, 0 "
                   "from generate_series(1, 10000) i;"
                   "insert into dm_meas (element_id, cycle_id, date, meas) select i, c, date '2020-01-05' + 31 * c, i "
                   "from generate_series(1, 2000) i, generate_series(1, 20) c;"
                   "analyze");
    session().reloadCycles();
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ConsoleCapture console;
    PositionSession database;
    fillProject(database);

    ElementList list;
    list.resize(1000, 600);
    list.show();
    auto* families = list.findChild<QComboBox*>("ElementCombo");
    families->setCurrentIndex(families->findText("Деформационные марки"));
    measure("list of 10,000 elements", 0.5, [&] { list.refresh(); });
    auto* filter = list.findChild<QLineEdit*>("filter");
    QString typed;
    for (const char* letter : {"Д", "М", "-", "9", "9"}) {
        const QString before = typed;
        typed += QString::fromUtf8(letter);
        const auto type = [&] { filter->setText(typed); };
        const auto erase = [&] {
            filter->setText(before);
            QApplication::processEvents();
        };
        erase();
        measure(qPrintable("  a letter more in its filter: " + typed), 0.030, type, erase);
        type();
        QApplication::processEvents();
        measure(qPrintable("  a letter less again: " + before), 0.030, erase, type);
    }

    // Half of the elements in one position, half in the other.
    database->exec("delete from dm_elements where element_id > 2000; update dm_elements set position_id = 8 where "
                   "element_id > 1000; analyze");
    measure("measures of 2,000 elements in 20 cycles", 1.5, [] {
        ElementMeasuresForm form;
        form.show();
    });
    ElementMeasuresForm form;
    form.show();
    auto* places = form.findChild<HierarchyCombo*>();
    const int everywhere = places->currentIndex();
    measure("  another place in them and back", 1.5, [&] {
        places->setCurrentIndex(places->count() - 1);
        places->setCurrentIndex(everywhere);
    });
    return missed ? 1 : 0;
}
