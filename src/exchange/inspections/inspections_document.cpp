#include "exchange/inspections/inspections_document.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "exchange/inspections/inspection_families.h"
#include "exchange/inspections/json_rows.h"
#include "session/project_session.h"

#include <QJsonDocument>

namespace {

constexpr int familyShare = 1000;             // of the progress
constexpr qint64 mostPhotoBytes = 1000000000; // the document is built in memory, a text of it may not pass 2 GiB

QJsonArray coordinatesOf(const QString& geoJson)
{
    return QJsonDocument::fromJson(geoJson.toUtf8()).object().value(QLatin1String("coordinates")).toArray();
}

Statement ofAnalytic(bool analyticOnly, const char* condition) { return analyticOnly ? condition : ""; }

} // namespace

InspectionsDocument::InspectionsDocument(const InspectionsTask& task, const ExchangeProgress& progress)
    : task_(task), progress_(progress)
{ }

InspectionsDocument::State InspectionsDocument::build()
{
    root_.insert(QStringLiteral("version"), QStringLiteral("1.0"));
    if (!addLists() || !readContours())
        return state_;
    int step = 0;
    for (const ExchangedFamily& family : exchangedFamilies()) {
        if (!readFamily(family, step++))
            return state_;
    }
    buildProject();
    return state_;
}

bool InspectionsDocument::isGood(const sql::Result& rows)
{
    if (rows.isTuples())
        return true;
    problem_ = rows.errorMessage();
    state_ = State::Failed;
    return false;
}

bool InspectionsDocument::isUsable(const sql::Result& rows, const char* what)
{
    if (!rows.isTuples() && session().connection.isOk())
        remarks_ << fill("%1: %2", what, rows.errorMessage().trimmed());
    return rows.isTuples() || session().connection.isOk() || isGood(rows);
}

bool InspectionsDocument::goOn(int step, int row, int rows)
{
    const int inStep = rows > 0 ? int(qint64(familyShare) * row / rows) : 0;
    if (!progress_ || progress_(step * familyShare + inStep, measuredFamilyCount * familyShare))
        return true;
    state_ = State::GivenUp;
    return false;
}

bool InspectionsDocument::addLists()
{
    const sql::Result cycles = session().run("SELECT cycle_id, number, date_start, date_end, (cycle_status = 1) as "
                                             "is_current FROM public.cycles ORDER BY number");
    const sql::Result states = session().run("SELECT state_id, note, colorindex FROM public.states");
    const sql::Result plots =
        session().run("SELECT id, ST_AsGeoJSON(ST_Transform(geom, 4326), 7) as geojson FROM public.geometries");
    if (!isGood(cycles) || !isGood(states) || !isUsable(plots, "Основания"))
        return false;
    root_.insert(QStringLiteral("cycles"), rowObjects(cycles));
    root_.insert(QStringLiteral("states"), rowObjects(states));
    QJsonArray subbases;
    for (int i = 0; i < plots.ntuples(); ++i) {
        subbases.append(QJsonObject{{QStringLiteral("id"), fieldValue(plots, i, 0)},
                                    {QStringLiteral("coordinates"), coordinatesOf(plots.getvalue(i, 1))}});
    }
    root_.insert(QStringLiteral("subbases"), subbases);
    return true;
}

// A later contour of a position replaces an earlier one.
bool InspectionsDocument::readContours()
{
    const sql::Result rows = session().run(
        compose("SELECT position_id, ST_AsGeoJSON(ST_Transform(geom, 4326), 7) as geojson FROM public.contours JOIN "
                "public.positions USING(position_id) JOIN public.subobjects USING(subobject_id) JOIN public.objects "
                "USING(object_id) WHERE objects.project_id = %1%2",
                task_.projectId, ofAnalytic(task_.analyticOnly, " AND positions.position_type = 1")));
    if (!isUsable(rows, "Контуры"))
        return false;
    for (int i = 0; i < rows.ntuples(); ++i)
        contours_.insert(rows.getvalue(i, 0), coordinatesOf(rows.getvalue(i, 1)));
    return true;
}

bool InspectionsDocument::readFamily(const ExchangedFamily& family, int step)
{
    ByElement inspections;
    return goOn(step, 0, 0) && readInspections(family, step, inspections) && readElements(family, inspections);
}

bool InspectionsDocument::readInspections(const ExchangedFamily& family, int step, ByElement& inspections)
{
    const sql::Result rows = session().run(
        compose("SELECT %1 FROM %2 JOIN public.%3_elements e ON i.element_id = e.element_id JOIN public.positions p ON "
                "e.position_id = p.position_id JOIN public.subobjects s USING(subobject_id) JOIN public.objects o "
                "USING(object_id) WHERE o.project_id = %4 AND i.cycle_id = %5%6",
                family.inspectionColumns, family.inspectionSource, Identifier(family.prefix), task_.projectId,
                task_.cycleId, ofAnalytic(task_.analyticOnly, " AND p.position_type = 1")));
    if (!isGood(rows))
        return false;
    for (int i = 0; i < rows.ntuples(); ++i) {
        QJsonObject inspection = rowObject(rows, i);
        const QString element = inspection.value(QLatin1String("element_id")).toString();
        const QJsonArray files = filesOf(family, element.toInt());
        if (!files.isEmpty())
            inspection.insert(QStringLiteral("photos"), files);
        else
            photoBytes_ += inspection.value(QLatin1String("photos")).toString().size();
        if (photoBytes_ > mostPhotoBytes) {
            problem_ = QStringLiteral("фотографии цикла занимают больше 1 ГБ");
            state_ = State::Failed;
        }
        if (state_ != State::Built || !goOn(step, i, rows.ntuples()))
            return false;
        inspections[element].append(inspection);
    }
    return true;
}

QJsonArray InspectionsDocument::filesOf(const ExchangedFamily& family, int elementId)
{
    const sql::Result rows = session().run(compose("SELECT content as photo FROM public.%1_files WHERE element_id = %2",
                                                   Identifier(family.prefix), elementId));
    QJsonArray files;
    if (!isGood(rows))
        return files;
    for (int i = 0; i < rows.ntuples(); ++i) {
        files.append(fieldValue(rows, i, 0));
        photoBytes_ += files.last().toString().size();
    }
    return files;
}

bool InspectionsDocument::readElements(const ExchangedFamily& family, const ByElement& inspections)
{
    const sql::Result rows = session().run(
        compose("SELECT e.element_id, e.position_id, e.element_name, e.state_id, "
                "ROUND(ST_X(ST_Transform(e.geom, 4326))::numeric, 7) as lon, "
                "ROUND(ST_Y(ST_Transform(e.geom, 4326))::numeric, 7) as lat, e.z, %1 FROM public.%2_elements e "
                "JOIN public.positions p USING(position_id) JOIN public.subobjects s USING(subobject_id) JOIN "
                "public.objects o USING(object_id) WHERE o.project_id = %3",
                family.elementColumns, Identifier(family.prefix), task_.projectId));
    if (!isGood(rows))
        return false;
    for (int i = 0; i < rows.ntuples(); ++i) {
        QJsonObject element = rowObject(rows, i);
        element.insert(QStringLiteral("element_category"), family.prefix);
        element.insert(QStringLiteral("inspections"),
                       inspections.value(element.value(QLatin1String("element_id")).toString()));
        elements_[element.value(QLatin1String("position_id")).toString()][family.prefix].append(element);
    }
    return true;
}

bool InspectionsDocument::buildProject()
{
    const sql::Result rows = session().run(
        compose("SELECT project_id as id, name, location as description FROM public.projects WHERE project_id = %1",
                task_.projectId));
    if (!isGood(rows))
        return false;
    QJsonObject project;
    if (rows.hasRow()) {
        project = rowObject(rows, 0);
        addMeanPosition(project);
        QJsonArray objects;
        if (!objectsOf(objects))
            return false;
        project.insert(QStringLiteral("objects"), objects);
    }
    project.insert(QStringLiteral("status"), QStringLiteral("normal"));
    root_.insert(QStringLiteral("project"), project);
    return true;
}

// Only wells and marks count: the other families stand beside them.
void InspectionsDocument::addMeanPosition(QJsonObject& project)
{
    const sql::Result rows = session().run(
        compose("SELECT ROUND(AVG(ST_X(ST_Transform(geom, 4326)))::numeric, 7) as lon, "
                "ROUND(AVG(ST_Y(ST_Transform(geom, 4326)))::numeric, 7) as lat FROM (   SELECT geom FROM ts_elements e "
                "JOIN public.positions p USING(position_id) WHERE position_id IN (SELECT position_id FROM positions "
                "JOIN subobjects USING(subobject_id) JOIN objects USING(object_id) WHERE project_id = %1 %2)   UNION "
                "ALL   SELECT geom FROM dm_elements e JOIN public.positions p USING(position_id) WHERE position_id IN "
                "(SELECT position_id FROM positions JOIN subobjects USING(subobject_id) JOIN objects USING(object_id) "
                "WHERE project_id = %1 %2) ) as all_geoms",
                task_.projectId, ofAnalytic(task_.analyticOnly, "AND position_type = 1")));
    if (!isUsable(rows, "Середина проекта") || !rows.hasRow())
        return;
    if (!rows.isNull(0, 0))
        project.insert(QStringLiteral("longitude"), fieldValue(rows, 0, 0));
    if (!rows.isNull(0, 1))
        project.insert(QStringLiteral("latitude"), fieldValue(rows, 0, 1));
}

bool InspectionsDocument::objectsOf(QJsonArray& objects)
{
    const sql::Result rows = session().run(compose("SELECT object_id as id, object as name, appearence as appearance "
                                                   "FROM public.objects WHERE project_id = %1",
                                                   task_.projectId));
    if (!isGood(rows))
        return false;
    for (int i = 0; i < rows.ntuples(); ++i) {
        QJsonObject object = rowObject(rows, i);
        QJsonArray subobjects;
        if (!subobjectsOf(rows.getvalue(i, 0), subobjects))
            return false;
        object.insert(QStringLiteral("subobjects"), subobjects);
        objects.append(object);
    }
    return true;
}

bool InspectionsDocument::subobjectsOf(const QString& object, QJsonArray& subobjects)
{
    const sql::Result rows =
        session().run(compose("SELECT subobject_id as id, subobject as name, appearence as appearance FROM "
                              "public.subobjects WHERE object_id = %1",
                              Numeral(object)));
    if (!isGood(rows))
        return false;
    for (int i = 0; i < rows.ntuples(); ++i) {
        QJsonObject subobject = rowObject(rows, i);
        QJsonArray positions;
        if (!positionsOf(rows.getvalue(i, 0), positions))
            return false;
        subobject.insert(QStringLiteral("positions"), positions);
        subobjects.append(subobject);
    }
    return true;
}

bool InspectionsDocument::positionsOf(const QString& subobject, QJsonArray& positions)
{
    const sql::Result rows = session().run(
        compose("SELECT position_id as id, position as name, appearence as appearance, position_type FROM "
                "public.positions WHERE subobject_id = %1%2",
                Numeral(subobject), ofAnalytic(task_.analyticOnly, " AND position_type = 1")));
    if (!isGood(rows))
        return false;
    for (int i = 0; i < rows.ntuples(); ++i) {
        QJsonObject position = rowObject(rows, i);
        const QString id = rows.getvalue(i, 0);
        position.insert(QStringLiteral("coordinates"), contours_.value(id));
        const QHash<QString, QJsonArray> families = elements_.value(id);
        for (auto family = families.begin(); family != families.end(); ++family)
            position.insert(family.key(), family.value());
        positions.append(position);
    }
    return true;
}
