#include "exchange/inspections/forms/inspections_commands.h"

#include "exchange/inspections/forms/inspections_bulk_export_dialog.h"
#include "exchange/inspections/forms/inspections_bulk_import_dialog.h"
#include "exchange/inspections/inspections_exchange.h"
#include "formkit/modal.h"
#include "formkit/progress_box.h"
#include "hostkit/console.h"
#include "session/project_session.h"

namespace {

bool isChosen(int cycleId)
{
    if (cycleId == -1)
        say("\nОшибка: Цикл не выбран.\n");
    return cycleId != -1;
}

ExchangeProgress shownIn(formkit::ProgressBox& box)
{
    return [&box](int done, int total) { return box.step(done, total); };
}

} // namespace

void exportInspectionsCommand()
{
    InspectionsTask task;
    QString path;
    const auto take = [&](const InspectionsBulkExportDialog& form, int result) {
        path = result == QDialog::Accepted ? form.path() : QString();
        task = {session().projectId, form.cycleId(), form.analyticOnly()};
    };
    runModalThen<InspectionsBulkExportDialog>(take);
    if (path.isEmpty() || !isChosen(task.cycleId))
        return;
    formkit::ProgressBox box(nullptr, "Массовый экспорт инспекций", "Экспорт инспекций...");
    exportInspections(task, path, shownIn(box));
}

void importInspectionsCommand()
{
    int cycleId = -1;
    QString path;
    const auto take = [&](const InspectionsBulkImportDialog& form, int result) {
        path = result == QDialog::Accepted ? form.path() : QString();
        cycleId = form.cycleId();
    };
    runModalThen<InspectionsBulkImportDialog>(take);
    if (path.isEmpty() || !isChosen(cycleId))
        return;
    formkit::ProgressBox box(nullptr, "Массовый импорт обследований", "Импорт обследований...");
    importInspections(path, cycleId, shownIn(box));
}
