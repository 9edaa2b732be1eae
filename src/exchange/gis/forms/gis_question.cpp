#include "exchange/gis/forms/gis_question.h"

#include "exchange/gis/gis_export.h"
#include "formkit/boxes.h"
#include "formkit/file_questions.h"
#include "formkit/progress_box.h"
#include "session/project_session.h"

#include <QDir>

using namespace formkit;

namespace {

const char* const title = "Экспорт в ГИС";

QString packageFilter() { return QStringLiteral("GeoPackage (*.gpkg)"); }
QString jsonFilter() { return QStringLiteral("GeoJSON (*.geojson)"); }

GisExport exportShown(QWidget* parent, GisFormat format, const QString& path)
{
    ProgressBox box(parent, "Выгрузка", "Чтение элементов и измерений...");
    return exportToGis(format, session().projectId, path,
                       [&box](int done, int total) { return box.step(done, total); });
}

} // namespace

void askAndExportToGis(QWidget* parent)
{
    if (!session().checkConnection())
        return warn(parent, "Не установлено соединение с базой данных");
    QString chosen = packageFilter();
    const QString path = askFileToSave(parent,
                                       {title, packageFilter() + QStringLiteral(";;") + jsonFilter(),
                                        QDir(session().workDir).filePath("monitoring"), &chosen});
    if (path.isEmpty())
        return;
    // A suffix that the user typed says more than the list below the name.
    const bool asJson = path.endsWith(QLatin1String("json"), Qt::CaseInsensitive)
        || (chosen == jsonFilter() && !path.endsWith(QLatin1String(".gpkg"), Qt::CaseInsensitive));
    const GisExport done = exportShown(parent, asJson ? GisFormat::GeoJson : GisFormat::GeoPackage, path);
    if (done.written)
        inform(parent, done.message, title);
    else
        warn(parent, done.message);
}
