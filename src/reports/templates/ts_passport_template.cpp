#include "reports/templates/ts_passport_template.h"

#include "base/text.h"
#include "files/written_file.h"
#include "reports/docx/picture_bytes.h"
#include "reports/templates/file_series.h"
#include "reports/templates/well_tables.h"
#include "session/project_session.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cmath>

namespace {

constexpr int passportDecimals = 2;

struct PassportPicture {
    const char* variable;
    const char* file; ///< in the folder of the run while the document is made
};

// In the order in which they are made.
const PassportPicture kPictures[] = {
    {"17_ts_temp_diagramm", "chart.png"}, {"171_ts_temp_geol_diagramm", "chart_geol.png"},
    {"19_ts_img_abris", "abris.png"},     {"20_ts_img_photo", "photo.png"},
    {"18_ts_img_col", "col.png"},
};

} // namespace

void TSPassportExportTemplate::setNumber(const char* variable, double value)
{
    setVariable(QString::fromLatin1(variable), std::isfinite(value) ? fixed(value, passportDecimals) : QString());
}

bool TSPassportExportTemplate::takeWell(int elementId)
{
    if (!well_.load(elementId))
        return false;
    setVariable(QStringLiteral("10_ts_name"), well_.name);
    setVariable(QStringLiteral("101_ts_position"), well_.position);
    setNumber("11_ts_z", well_.z);
    setNumber("12_ts_h", well_.h);
    setNumber("13_ts_deep", well_.sensorDepth());
    setNumber("131_ts_heihgth", well_.sensorDepth() + (std::isfinite(well_.h) ? well_.h : 0.0));
    setNumber("132_ts_depth", well_.depth);
    setNumber("133_ts_projdepth", well_.projectedDepth);
    setNumber("14_ts_x", well_.x);
    setNumber("15_ts_y", well_.y);
    if (!parameters.cycles.isEmpty())
        well_.keepCycles(parameters.cycles);

    pictures_ = {{QStringLiteral("18_ts_img_col"), well_.column},
                 {QStringLiteral("19_ts_img_abris"), well_.layout},
                 {QStringLiteral("20_ts_img_photo"), well_.photo}};
    takeChart("17_ts_temp_diagramm", false);
    takeChart("171_ts_temp_geol_diagramm", true);
    return true;
}

// A chart costs time: only those are made that a tag receives.
void TSPassportExportTemplate::takeChart(const char* variable, bool withGeology)
{
    const QString name = QString::fromLatin1(variable);
    if (isUsed(name))
        pictures_.insert(name, docx::pngBytes(temperaturePicture(well_, withGeology)));
}

bool TSPassportExportTemplate::buildTable(const QString& variable, DocxTable& table, DocxTemplate&)
{
    if (variable == QLatin1String("22_ts_htbl_meas"))
        fillLyingTable(table, well_);
    if (variable == QLatin1String("23_ts_vtbl_meas"))
        fillStandingTable(table, well_);
    return true;
}

QString TSPassportExportTemplate::savePicture(const QString& name, const QByteArray& png)
{
    if (!docx::isWholePng(png))
        return {};
    for (const QString& folder : {parameters.folder, spareFolder_}) {
        QString path = folder + QLatin1Char('/') + name;
        // A file of the user's own under that name stays what it is.
        if (folder.isEmpty() || QFile::exists(path) || !saveFile(path, png))
            continue;
        pictureFiles_.append(path);
        return path;
    }
    sayLine(QStringLiteral("Не удалось записать файл '%1'")
                .arg(QDir::toNativeSeparators(parameters.folder + QLatin1Char('/') + name)));
    return {};
}

void TSPassportExportTemplate::fillDocument(DocxTemplate* document)
{
    ExportTemplateClass::fillDocument(document);
    for (const PassportPicture& row : kPictures) {
        const QString variable = QString::fromLatin1(row.variable);
        const QString tag = tagOf(variable);
        if (tag.isEmpty() || document->tagTypes.value(tag) != DocxTemplate::Picture)
            continue;
        const QString path = savePicture(QString::fromLatin1(row.file), pictures_.value(variable));
        if (!path.isEmpty())
            document->setPngFile(tag, path);
    }
}

ReportOutcome TSPassportExportTemplate::generateAll()
{
    const QTemporaryDir spare;
    spareFolder_ = spare.path();
    const auto make = [this](int id) { return takeWell(id) ? QStringLiteral("") + well_.name : QString(); };
    const auto write = [this](const QString& path) {
        const ReportOutcome outcome = exportFile(path);
        for (const QString& picture : qAsConst(pictureFiles_))
            QFile::remove(picture);
        pictureFiles_.clear();
        return outcome;
    };
    return FileSeries(parameters, QStringLiteral("Общий_паспорт_термоскважин.docx"))
        .run(parameters.elements, make, write);
}
