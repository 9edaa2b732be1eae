#include "elements/passports/passport_family.h"

#include "base/placeholders.h"

#include <algorithm>

namespace {

constexpr auto Plain = PassportGroup::Plain;
constexpr auto Survey = PassportGroup::Survey;
constexpr auto Place = PassportGroup::Place;
constexpr auto Number = PassportFieldKind::Number;

const char* const usualUpdate = "update %10 set (type_id, element_name, state_id, position_id, x, y, z, h) = "
                                "('%1','%2','%3',%4,%5,%6,%7,%8) where element_id=%9";
const char* const usualInspectorUpdate =
    "update %10 set(type_id, element_name, state_id, position_id , x, y, z, h) = ('%1', '%2', '%3',%4, %5, %6, %7, %8) "
    "where element_id = %9";

// The captions of a family's fields, for those that do not call them as all others do.
struct Captions {
    QString name = QStringLiteral("Имя");
    QString type = QStringLiteral("Тип конструкции");
    QString position = QStringLiteral("Позиция");
    QString state = QStringLiteral("Состояние");
    QString x = QStringLiteral("X");
    QString y = QStringLiteral("Y");
    QString z = QStringLiteral("Абс. Отметка");
    QString h = QStringLiteral("Высота на землей"); // users know the caption so
};

QVector<PassportField> fieldsWith(const QVector<PassportField>& extra, const Captions& words = {},
                                  PassportGroup survey = Survey, PassportGroup place = Place)
{
    QVector<PassportField> fields = {
        {"ElementName", words.name, PassportFieldKind::Text, Plain, ElementName},
        {"TypeCombo", words.type, PassportFieldKind::Type, survey, TypeId},
        {"PositionCombo", words.position, PassportFieldKind::Position, Plain, PositionId},
        {"StateCombo", words.state, PassportFieldKind::State, Plain, StateId},
        {"X", words.x, Number, place, PlaceX},
        {"Y", words.y, Number, place, PlaceY},
        {"Z", words.z, Number, place, PlaceZ},
        {"H", words.h, Number, place, Height},
    };
    return fields + extra;
}

QVector<MeasureTitle> titlesWith(const QVector<MeasureTitle>& values)
{
    return QVector<MeasureTitle>{{MeasurePart::Cycle, QStringLiteral("Цикл")}} + values
        + QVector<MeasureTitle>{{MeasurePart::Date, QStringLiteral("Дата")},
                                {MeasurePart::Device, QStringLiteral("Прибор")},
                                {MeasurePart::Performer, QStringLiteral("Исполнитель")}};
}

// What a family has that is told nowhere else; heirs of this row change it.
PassportFamily usual(FamilyKey key)
{
    PassportFamily row{};
    row.family = key;
    row.passportName = ::family(key).shortKey + QStringLiteral("ElementPassport");
    row.inspectorName = ::family(key).shortKey + QStringLiteral("ElementInspector");
    row.fields = fieldsWith({});
    row.extraColumns = "";
    row.update = usualUpdate;
    row.inspectorUpdate = usualInspectorUpdate;
    row.inspectorTaken = QStringLiteral("Изменяемое имя '%1' уже есть в базе");
    row.thirdPicture = QStringLiteral("Общий вид");
    return row;
}

PassportFamily marks()
{
    PassportFamily row = usual(FamilyKey::Dm);
    row.plainTitle = "Пасспорт деформмационной марки"; // seen only until the row is read
    row.title = "Паспорт деформационной марки %1";
    row.whose = "деформационной марки";
    row.measures = "select meas_dm_id, cycle_id, device_id, date,  meas from dm_meas where element_id=%1 order by date";
    row.measureTitles = titlesWith({{MeasurePart::FirstValue, "Абсолютная \n отметка"}});
    row.inspectionRows = QStringList{
        "marknumber", "markmark", "constructintegrity", "railset", "h_railset", "inspectresult", "note", "state_id"};
    return row;
}

PassportFamily thermalWells()
{
    PassportFamily row = usual(FamilyKey::Ts);
    row.plainTitle = "Пасспорт термоскважины";
    row.title = "Паспорт термоскважины %1";
    row.whose = "термоскважины";
    row.fields = fieldsWith({{"DepthProj", "Проектная глубина", Number, Survey, FirstExtra},
                             {"Depth", "Глубина", Number, Survey, FirstExtra + 1}});
    row.extraColumns = ",depth_proj,depth";
    row.update = "update %12 set (type_id, element_name, state_id, position_id, x, y, z, h,depth_proj,depth) = "
                 "('%1','%2','%3',%4,%5,%6,%7,%8,'%10','%11') where element_id=%9";
    row.inspectorExtra = "update ts_elements set(depth_proj, depth) = ('%1', '%2') where element_id = %3";
    row.measures =
        "select meas_ts_id, cycle_id, device_id, date, t_vozd, meas from ts_meas where element_id=%1 order by date";
    row.inspectionRows = QStringList{"namemarked",  "protectcase",   "casecover", "ttcover", "insulation", "iceinpipe",
                                     "waterinpipe", "inspectresult", "depth",     "h",       "note",       "state_id"};
    row.thirdPicture = "Колонка";
    return row;
}

PassportFamily benchmarks()
{
    PassportFamily row = usual(FamilyKey::Rp);
    row.plainTitle = "Паспорт репера";
    row.title = "Паспорт репера %1";
    row.whose = "репера";
    row.inspectorUpdate = "update %10 set(type_id, element_name, state_id,position_id , x, y, z, h) = ('%1', '%2', "
                          "'%3',%4, %5, %6, %7, %8) where element_id = %9";
    row.inspectorTaken = "Изменяемое имя уже есть в базе";
    row.measures = "select meas_rp_id, cycle_id, device_id, date,  meas from rp_meas where element_id=%1 order by date";
    row.measureTitles =
        titlesWith({{MeasurePart::FirstValue, "Абсолютная \n отметка"}, {MeasurePart::SecondValue, "Точность"}});
    row.inspectionRows = QStringList{"fence",         "protectpit", "protectpitcover", "protectpipe", "sealing", "mark",
                                     "inspectresult", "note",       "state_id"};
    return row;
}

PassportFamily groundwaterWells()
{
    PassportFamily row = usual(FamilyKey::Ggs);
    row.plainTitle = "Паспорт гидрогеологической скважины";
    row.loading = "Пассорт гидрогеологической скважины %1";
    row.title = "Паспорт гидрогеологической скважины %1";
    row.whose = "гидрогеологической скважины";
    row.measures = "select meas_id, cycle_id, device_id, date,  meas from ggs_meas where element_id=%1 order by date";
    row.measureTitles = titlesWith({{MeasurePart::FirstValue, "Уровень ГВ"}});
    row.inspectionRows = QStringList{"namemarked",  "protectcase",   "casecover", "ttcover", "insulation", "iceinpipe",
                                     "waterinpipe", "inspectresult", "meas",      "h",       "note",       "state_id"};
    return row;
}

PassportFamily geologicalWells()
{
    PassportFamily row = usual(FamilyKey::Igs);
    row.plainTitle = "Паспорт геологической скважины";
    row.title = "Паспорт геологической скважины: %1";
    row.whose = "геологической скважины";
    row.fields = fieldsWith({},
                            {"Название:", "Тип:", "Позиция:", "Состояние:", "Координата X:", "Координата Y:",
                             "Абсолютная отметка устья:", "Высота:"},
                            Plain, Plain);
    row.thirdPicture.clear();
    return row;
}

PassportFamily snowPoints()
{
    PassportFamily row = usual(FamilyKey::Tss);
    row.plainTitle = "Паспорт точки снегомерной съемки";
    row.title = "Паспорт точки снегомерной съемки  %1"; // two blanks: users know it so
    row.whose = "точки снегомерной съемки";
    row.measures = "select meas_id, cycle_id, device_id, date,  meas_density, meas_heigth from tss_meas where "
                   "element_id=%1 order by date";
    row.measureTitles =
        titlesWith({{MeasurePart::FirstValue, "Плотность СП"}, {MeasurePart::SecondValue, "Высота СП"}});
    row.inspectionRows = QStringList{"inspectresult", "note", "state_id"};
    return row;
}

PassportFamily thermostabilisers()
{
    PassportFamily row = usual(FamilyKey::Tsg);
    row.plainTitle = "Паспорт термостабилизационного элемента";
    row.title = "Паспорт термостабилизационного элемента %1";
    row.whose = "термостабилизационного элемента";
    row.fields = fieldsWith({{"E", "Заглубление", Number, Place, FirstExtra},
                             {"CatalogList", "Тип СОУ", PassportFieldKind::Construction, Survey, FirstExtra + 1}});
    row.extraColumns = ",e,catalog_id";
    row.update = "update %12 set (type_id, element_name, state_id, position_id, x, y, z, h,e,catalog_id) = "
                 "('%1','%2','%3',%4,%5,%6,%7,%8,%10,%11) where element_id=%9";
    row.inspectorExtra = "update tsg_elements set(e, catalog_id) = (%1, %2) where element_id = %3";
    row.measures = "select meas_id, cycle_id, device_id, date,  env_temp, exchanger_temp from tsg_meas where "
                   "element_id=%1 order by date";
    row.measureTitles = titlesWith(
        {{MeasurePart::FirstValue, "Температура воздуха"}, {MeasurePart::SecondValue, "Температура обменника"}});
    row.inspectionRows = QStringList{"integrity", "inspectresult", "note", "state_id"};
    return row;
}

} // namespace

int PassportFamily::extraCount() const
{
    return int(std::count_if(fields.begin(), fields.end(),
                             [](const PassportField& field) { return field.column >= FirstExtra; }));
}

const FamilyTable<PassportFamily>& passportFamilies()
{
    static const FamilyTable<PassportFamily> rows = {
        marks(), thermalWells(), benchmarks(), groundwaterWells(), geologicalWells(), snowPoints(), thermostabilisers(),
    };
    return rows;
}

const PassportFamily& passportFamily(FamilyKey family) { return passportFamilies()[family]; }

QString inspectionMessage(const PassportFamily& family, InspectionChange change, const QString& elementName)
{
    static const char* const messages[] = {
        "Для %1 %2 успешно создана ведомость обследования",
        "Для %1 %2 обновлена ведомость обследования",
        "Для %1 %2 создана ведомость обследования",
        "Для %1 %2 удалена ведомость обследования",
    };
    return fill(QString::fromUtf8(messages[int(change)]), family.whose, elementName);
}
