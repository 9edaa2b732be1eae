#include "exchange/inspections/forms/inspections_bulk_export_dialog.h"

#include "formkit/file_questions.h"
#include "formkit/widgets.h"

#include <QDir>

using namespace formkit;

InspectionsBulkExportDialog::InspectionsBulkExportDialog(QWidget* parent)
    : InspectionsBulkExportDialog(check("AnalyticOnly", "Только аналитические позиции (type=1)"), parent)
{ }

InspectionsBulkExportDialog::InspectionsBulkExportDialog(QCheckBox* analytic, QWidget* parent)
    : BulkExchangeDialog({"InspectionsBulkExportDialog", "Массовый экспорт инспекций",
                          "Выберите цикл для экспорта:", "Путь для сохранения:", "Экспортировать"},
                         analytic, parent),
      analytic_(analytic)
{
    choose(cycles(), session().currentCycleId);
    setPath(QDir::currentPath() + QStringLiteral("/inspections_export.json.gz"));
}

bool InspectionsBulkExportDialog::analyticOnly() const { return analytic_->isChecked(); }

QString InspectionsBulkExportDialog::askPath()
{
    return askFileToSave(this,
                         {"Сохранить экспорт", "GZIP Archive (*.gz);;JSON files (*.json);;All files (*.*)", path()});
}
