#include "exchange/inspections/forms/inspections_bulk_import_dialog.h"

#include "formkit/file_questions.h"
#include "formkit/widgets.h"

using namespace formkit;

InspectionsBulkImportDialog::InspectionsBulkImportDialog(QWidget* parent)
    : BulkExchangeDialog({"InspectionsBulkImportDialog", "Массовый импорт обследований",
                          "Выберите цикл для импорта:", "Выберите JSON файл:", "Импортировать"},
                         nullptr, parent)
{
    // Without a current cycle none is chosen: inspections must not land in a chance one.
    cycles()->setCurrentIndex(cycles()->findData(session().currentCycleId));
}

QString InspectionsBulkImportDialog::askPath()
{
    return askFileToOpen(
        this, {"Выберите JSON файл для импорта", "JSON Files (*.json *.md);;GZ files (*.gz);;All Files (*.*)", path()});
}
