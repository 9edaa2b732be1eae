#include "reports/templates/file_series.h"

#include "hostkit/console.h"
#include "reports/docx/docx_merger.h"
#include "reports/templates/cell_texts.h"

#include <QDir>
#include <QFileInfo>

namespace {

QString shown(const QString& path) { return QDir::toNativeSeparators(path); }

} // namespace

FileSeries::FileSeries(const ReportParameters& parameters, const QString& mergedName)
    : parameters_(parameters), mergedPath_(parameters.folder + QLatin1Char('/') + mergedName)
{ }

ReportOutcome FileSeries::run(const QVector<int>& ids, const std::function<QString(int)>& make,
                              const std::function<ReportOutcome(const QString&)>& write)
{
    for (int i = 0; i < ids.size(); ++i) {
        const QString name = make(ids[i]);
        if (!parameters_.goOn(i, ids.size(), name)) {
            tellEnd(ids.size());
            return ReportOutcome::Stopped;
        }
        if (name.isNull()) {
            sayLine(QStringLiteral("Запись с ID:%1 не найдена").arg(ids[i]));
            continue;
        }
        const QString path = cells::documentPath(parameters_.folder, name);
        // Two of one name, and a file from before, are both there already.
        if (QFileInfo::exists(path) && (!parameters_.overwrite || made_.contains(path))) {
            sayLine(QStringLiteral("Файл '%1' уже существует").arg(shown(path)));
            if (!present_.contains(path))
                present_.append(path);
            continue;
        }
        const ReportOutcome outcome = write(path);
        if (outcome == ReportOutcome::Stopped) {
            tellEnd(ids.size());
            return outcome;
        }
        if (outcome != ReportOutcome::Made)
            continue;
        sayLine(QStringLiteral("Создан файл '%1'").arg(shown(path)));
        made_.append(path);
        present_.append(path);
    }
    if (parameters_.merge && present_.size() >= 2)
        merge();
    tellEnd(ids.size());
    return made_.size() == ids.size() ? ReportOutcome::Made : ReportOutcome::Missing;
}

void FileSeries::merge() const
{
    if (DocxMerger(present_).merge(mergedPath_, parameters_.overwrite))
        say(QStringLiteral("\nСоздан объединенный файл: '%1'").arg(shown(mergedPath_)));
    else
        say(QStringLiteral("\nОшибка при создании объединенного файла"));
}

void FileSeries::tellEnd(int asked) const
{
    sayLine(QStringLiteral("Создано документов: %1 из %2").arg(made_.size()).arg(asked));
}
