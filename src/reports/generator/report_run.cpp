#include "reports/generator/report_run.h"

#include "database/sql/failed_statements.h"
#include "reports/templates/position_state_template.h"
#include "reports/templates/table_documents.h"
#include "reports/templates/ts_passport_template.h"

#include <QDir>
#include <QFileInfo>

namespace {

struct SeriesWords {
    ReportKey key;
    const char* start; ///< %1 is the folder
    const char* end;
};

const SeriesWords kSeries[] = {
    {ReportKey::WellPassport, "Начата генерация пасспортов ТС (Папка '%1')", "Завершена генерация пасспортов ТС"},
    {ReportKey::PositionState, "Начата генерация ведомостей технического состояния позиций",
     "Закончена генерация ведомостей технического состояния позиций"},
};

const SeriesWords* seriesOf(const ExportTemplateClass& document)
{
    for (const SeriesWords& words : kSeries) {
        if (words.key == document.kind().key)
            return &words;
    }
    return nullptr;
}

void sayStopped() { sayLine(QStringLiteral("Генерация остановлена пользователем")); }

ReportOutcome runSeries(ExportTemplateClass& document, const SeriesWords& words)
{
    const QString start = QString::fromUtf8(words.start);
    const QString folder = QDir::toNativeSeparators(document.parameters.folder);
    sayLine(start.contains(QLatin1String("%1")) ? start.arg(folder) : start);
    const ReportOutcome outcome = document.generateAll();
    if (outcome == ReportOutcome::Stopped)
        sayStopped();
    sayLine(QString::fromUtf8(words.end));
    return outcome;
}

} // namespace

std::vector<std::unique_ptr<ExportTemplateClass>> makeReportClasses()
{
    std::vector<std::unique_ptr<ExportTemplateClass>> documents;
    documents.push_back(std::make_unique<ExportTemplateClass>());
    documents.push_back(std::make_unique<TSPassportExportTemplate>());
    documents.push_back(std::make_unique<DeformationExportTemplateClass>());
    documents.push_back(std::make_unique<TemperaturesExportTemplateClass>());
    documents.push_back(std::make_unique<TempDiffExportTemplateClass>());
    documents.push_back(std::make_unique<InspectionsExportTemplateClass>());
    documents.push_back(std::make_unique<ElementListExportTemplateClass>());
    documents.push_back(std::make_unique<PositionStateExportTemplate>());
    documents.push_back(std::make_unique<PositionAnalyticExportTemplateClass>());
    return documents;
}

bool goesIntoFolder(const ExportTemplateClass& document) { return seriesOf(document) != nullptr; }

bool isFolder(const QString& folder) { return !folder.isEmpty() && QFileInfo(folder).isDir(); }

namespace {

ReportOutcome runOne(ExportTemplateClass& document, const QString& path)
{
    if (const SeriesWords* words = seriesOf(document))
        return runSeries(document, *words);
    const QString shown = QDir::toNativeSeparators(path);
    const bool plain = document.kind().key == ReportKey::Common;
    if (!plain)
        sayLine(QStringLiteral("Начата генерация документа '%1'").arg(shown));
    const ReportOutcome outcome = document.exportFile(path);
    if (outcome == ReportOutcome::Stopped)
        sayStopped();
    else if (outcome == ReportOutcome::Made && !plain)
        sayLine(QStringLiteral("Генерация документа '%1' завершена").arg(shown));
    return outcome;
}

} // namespace

ReportOutcome runReport(ExportTemplateClass& document, const QString& path)
{
    const int before = sql::failedStatements();
    const ReportOutcome outcome = runOne(document, path);
    // What is not read is left out of a document, which cannot say so by itself.
    const int failed = sql::failedStatements() - before;
    if (failed > 0)
        sayLine(QStringLiteral("Часть данных не прочитана из базы: отказов %1. Проверьте документы").arg(failed));
    return outcome;
}
