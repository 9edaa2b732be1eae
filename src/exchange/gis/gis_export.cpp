#include "exchange/gis/gis_export.h"

#include "base/placeholders.h"
#include "exchange/gis/geojson_file.h"
#include "exchange/gis/geopackage.h"
#include "exchange/gis/projection_text.h"
#include "files/written_file.h"
#include "session/project_session.h"

#include <QDir>
#include <QFileInfo>

namespace {

struct File {
    QString path;
    QByteArray bytes;
};

GisExport failed(const QString& message) { return {false, message, {}}; }

GisExport write(const QVector<File>& files, const GisLayers& layers)
{
    QStringList paths;
    for (const File& file : files) {
        QString problem;
        if (!saveFile(file.path, file.bytes, &problem))
            return {false, fill("Не удалось записать файл %1: %2", QDir::toNativeSeparators(file.path), problem),
                    paths};
        paths << QDir::toNativeSeparators(file.path);
    }
    return {true,
            fill("Выгружено элементов: %1, значений измерений: %2\n%3", layers.elements.features.size(),
                 layers.measures.features.size(), paths.join('\n')),
            paths};
}

QString measuresPath(const QString& path)
{
    const QFileInfo file(path);
    const QString suffix = file.suffix().isEmpty() ? QString() : '.' + file.suffix();
    return file.dir().filePath(file.completeBaseName() + "-measures" + suffix);
}

} // namespace

GisExport exportToGis(GisFormat format, int projectId, const QString& path, const GisProgress& progress)
{
    const QString& proj4Text = session().proj4Text;
    const GisLayers layers = readGisLayers(projectId, format == GisFormat::GeoJson, progress);
    if (layers.state == GisLayers::State::GivenUp)
        return failed("Экспорт прерван, файл не записан");
    if (layers.state == GisLayers::State::Failed) {
        return failed(
            format == GisFormat::GeoJson && session().connection.isOk()
                ? fill("Координаты не пересчитаны в широту и долготу, проверьте систему координат проекта: %1",
                       layers.problem)
                : fill("Экспорт не выполнен: %1", layers.problem));
    }
    if (format == GisFormat::GeoJson) {
        return write(
            {{path, geoJson(layers.elements, proj4Text)}, {measuresPath(path), geoJson(layers.measures, proj4Text)}},
            layers);
    }
    const GeoPackage package =
        geoPackage({&layers.elements, &layers.measures}, projectionWkt(proj4Text, session().projectName), proj4Text);
    if (package.bytes.isEmpty())
        return failed(fill("Экспорт не выполнен: %1", package.problem));
    return write({{path, package.bytes}}, layers);
}
