#include "exchange/inspections/inspections_exchange.h"

#include "base/placeholders.h"
#include "exchange/inspections/gzip_file.h"
#include "hostkit/console.h"

#include <QJsonDocument>

namespace {

bool writeDocument(const QString& path, const QJsonObject& root)
{
    const GzipOutcome outcome = writeGzip(path, QJsonDocument(root).toJson(QJsonDocument::Compact));
    switch (outcome.state) {
    case GzipState::Done: say(fill("\nЭкспорт (Tree) успешно завершен: %1\n", path)); return true;
    case GzipState::NotWritten:
        say(fill("Ошибка записи в GZIP: %1 (Код: %2)\n", outcome.problem, outcome.code));
        return false;
    case GzipState::NotClosed: say(fill("Ошибка при закрытии GZIP файла (Код: %1)\n", outcome.code)); return false;
    default: say(fill("Ошибка: Не удалось открыть файл для записи: %1\n", path)); return false;
    }
}

} // namespace

bool exportInspections(const InspectionsTask& task, const QString& path, const ExchangeProgress& progress)
{
    say("\nНачало экспорта (Иерархическая структура)...\n");
    InspectionsDocument document(task, progress);
    const InspectionsDocument::State state = document.build();
    for (const QString& remark : document.remarks())
        say(fill("\nНе выгружено: %1\n", remark));
    switch (state) {
    case InspectionsDocument::State::GivenUp: say("\nЭкспорт прерван, файл не записан.\n"); return false;
    case InspectionsDocument::State::Failed:
        say(fill("\nОшибка: Экспорт не выполнен: %1\n", document.problem().trimmed()));
        return false;
    case InspectionsDocument::State::Built: break;
    }
    const QString suffix = QStringLiteral(".gz");
    return writeDocument(path.endsWith(suffix) ? path : path + suffix, document.root());
}
