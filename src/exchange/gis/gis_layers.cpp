#include "exchange/gis/gis_layers.h"

#include "base/statement.h"
#include "elements/measures/measure_family.h"
#include "elements/measures/temperature_log.h"
#include "session/project_session.h"

#include <QDate>
#include <QHash>
#include <cmath>
#include <limits>
#include <vector>

namespace {

// A measured column in the words of the people who read the table.
struct Quantity {
    const char* column;
    const char* name;
    const char* unit;
};

struct MeasuredQuantities {
    FamilyKey family;
    std::vector<Quantity> quantities;
};

const char* const profileName = "Температура грунта";
const char* const degreesUnit = "°C";

const std::vector<Quantity>& quantitiesOf(FamilyKey family)
{
    static const FamilyTable<MeasuredQuantities, measuredFamilyCount> rows = {
        {FamilyKey::Dm, {{"meas", "Абсолютная отметка", "м"}}},
        {FamilyKey::Ts, {{"t_vozd", "Температура воздуха", degreesUnit}}},
        {FamilyKey::Rp, {{"meas", "Абсолютная отметка", "м"}}},
        {FamilyKey::Tss, {{"meas_density", "Плотность снега", ""}, {"meas_heigth", "Высота снега", ""}}},
        {FamilyKey::Ggs, {{"meas", "Уровень грунтовых вод", "м"}}},
        {FamilyKey::Tsg,
         {{"env_temp", "Температура воздуха", degreesUnit},
          {"exchanger_temp", "Температура теплообменника", degreesUnit}}},
    };
    return rows.find(family)->quantities;
}

QVariant numberAt(const sql::Result& rows, int row, int column)
{
    bool ok = false;
    const double number = rows.toDouble(row, column, &ok);
    return ok && std::isfinite(number) ? QVariant(number) : QVariant(QVariant::Double);
}

QVariant textAt(const sql::Result& rows, int row, int column)
{
    return rows.isNull(row, column) ? QVariant(QVariant::String) : QVariant(rows.getvalue(row, column));
}

QVariant wholeAt(const sql::Result& rows, int row, int column)
{
    return rows.isNull(row, column) ? QVariant(QVariant::Int) : QVariant(rows.toInt(row, column));
}

QVariant dateAt(const sql::Result& rows, int row, int column)
{
    return QDate::fromString(rows.getvalue(row, column), Qt::ISODate);
}

// --- elements ---------------------------------------------------------------------------

enum ElementColumn { Id, Name, Type, State, Object, Subobject, Position, X, Y, Z, H, East, North };

const char* const elementText =
    "select element_id, element_name, %2.name, states.note, object, subobject, position, x, y, z, h, %4 from %1 left "
    "join %2 using (type_id) left join states on states.state_id = %1.state_id join positions using (position_id) join "
    "subobjects using (subobject_id) join objects using (object_id) where project_id = %3 order by "
    "objects.appearence, subobjects.appearence, positions.appearence, element_name, element_id";
const char* const noDegrees = "null as east, null as north";
const char* const inDegrees = "ST_X(ST_Transform(ST_SetSRID(ST_MakePoint(x, y), 9999), 4326)) as east, "
                              "ST_Y(ST_Transform(ST_SetSRID(ST_MakePoint(x, y), 9999), 4326)) as north";

GisLayer emptyElements()
{
    return {"elements",
            "Элементы мониторинга",
            {{"element_id", GisColumn::Integer},
             {"family", GisColumn::Text},
             {"name", GisColumn::Text},
             {"type", GisColumn::Text},
             {"state", GisColumn::Text},
             {"object", GisColumn::Text},
             {"subobject", GisColumn::Text},
             {"position", GisColumn::Text},
             {"x", GisColumn::Real},
             {"y", GisColumn::Real},
             {"z", GisColumn::Real},
             {"h", GisColumn::Real}},
            {}};
}

GisFeature elementAt(const sql::Result& rows, int row, const Family& family)
{
    GisFeature feature;
    feature.values = {wholeAt(rows, row, Id), family.listName};
    for (const int column : {Name, Type, State, Object, Subobject, Position})
        feature.values << textAt(rows, row, column);
    for (const int column : {X, Y, Z, H})
        feature.values << numberAt(rows, row, column);
    const QVariant x = numberAt(rows, row, X), y = numberAt(rows, row, Y), z = numberAt(rows, row, Z);
    const double height = z.isNull() ? std::numeric_limits<double>::quiet_NaN() : z.toDouble();
    feature.placed = !x.isNull() && !y.isNull();
    feature.plan = {x.toDouble(), y.toDouble(), height};
    feature.degrees = {rows.toDouble(row, East), rows.toDouble(row, North), height};
    return feature;
}

// --- measures ---------------------------------------------------------------------------

enum MeasureColumn { Element, Cycle, Date, Serial, FirstValue };

// %3: the measured columns.
const char* const measureText =
    "select element_id, cycles.number, %1.date, devices.serial, %3 from %1 left join cycles using (cycle_id) left join "
    "devices using (device_id) join %2 using (element_id) join positions using (position_id) join subobjects using "
    "(subobject_id) join objects using (object_id) where project_id = %4 order by objects.appearence, "
    "subobjects.appearence, positions.appearence, element_name, element_id, %1.date, %5";

GisLayer emptyMeasures()
{
    return {"measures",
            "Измерения",
            {{"element_id", GisColumn::Integer},
             {"family", GisColumn::Text},
             {"name", GisColumn::Text},
             {"position", GisColumn::Text},
             {"cycle", GisColumn::Integer},
             {"date", GisColumn::Date},
             {"device", GisColumn::Text},
             {"quantity", GisColumn::Text},
             {"unit", GisColumn::Text},
             {"depth", GisColumn::Real},
             {"value", GisColumn::Real}},
            {}};
}

Statement measureStatement(const Family& family, int projectId)
{
    const MeasureFamily& measures = *measureFamily(family.key);
    QVector<Statement> columns;
    for (const Quantity& quantity : quantitiesOf(family.key))
        columns << compose("%1.%2", Identifier(family.measures), Identifier(quantity.column));
    if (family.hasProfile)
        columns << compose("%1.meas", Identifier(family.measures));
    return compose(measureText, Identifier(family.measures), Identifier(family.elements), joined(columns, ", "),
                   projectId, Identifier(measures.idColumn));
}

// One feature a value; absent values have none.
void appendValues(const sql::Result& rows, int row, const Family& family, const GisFeature& element, GisLayer& layer)
{
    GisFeature feature = element;
    feature.values = {wholeAt(rows, row, Element),  family.listName,
                      element.values[Name + 1], // the family stands before the name
                      element.values[Position + 1], wholeAt(rows, row, Cycle),
                      dateAt(rows, row, Date),      textAt(rows, row, Serial)};
    const int common = feature.values.size();
    const auto append = [&](const char* quantity, const char* unit, const QVariant& depth, const QVariant& value) {
        if (value.isNull())
            return;
        feature.values.resize(common);
        feature.values << quantity << unit << depth << value;
        layer.features.append(feature);
    };
    int column = FirstValue;
    const QVariant noDepth(QVariant::Double);
    for (const Quantity& quantity : quantitiesOf(family.key))
        append(quantity.name, quantity.unit, noDepth, numberAt(rows, row, column++));
    if (!family.hasProfile)
        return;
    TemperatureProfile profile;
    parseProfile(rows.getvalue(row, column), profile);
    for (const auto& [depth, temperature] : logOf(profile))
        append(profileName, degreesUnit, depth, std::isfinite(temperature) ? temperature : noDepth);
}

// --- the walk over the families -------------------------------------------------------------

class Reader {
public:
    Reader(int projectId, bool degrees, const GisProgress& progress)
        : projectId_(projectId), degrees_(degrees), progress_(progress)
    { }

    GisLayers read()
    {
        layers_.elements = emptyElements();
        layers_.measures = emptyMeasures();
        int step = 0;
        for (const Family& family : families()) {
            const int first = layers_.elements.features.size();
            if (!goOn(step++) || !readElements(family))
                break;
            if (!goOn(step++) || (!family.measures.isEmpty() && !readMeasures(family, first)))
                break;
        }
        return layers_;
    }

private:
    bool goOn(int step)
    {
        if (!progress_ || progress_(step, 2 * familyCount))
            return true;
        layers_.state = GisLayers::State::GivenUp;
        return false;
    }

    bool isRead(const sql::Result& rows)
    {
        if (rows.isTuples())
            return true;
        layers_.state = GisLayers::State::Failed;
        layers_.problem = (rows.isNullResult() ? session().connection.errorMessage() : rows.errorMessage()).trimmed();
        return false;
    }

    bool readElements(const Family& family)
    {
        const sql::Result rows =
            session().run(compose(elementText, Identifier(family.elements), Identifier(family.types), projectId_,
                                  degrees_ ? inDegrees : noDegrees));
        if (!isRead(rows))
            return false;
        for (int row = 0; row < rows.ntuples(); ++row)
            layers_.elements.features.append(elementAt(rows, row, family));
        return true;
    }

    // `first`: where the family's elements begin.
    bool readMeasures(const Family& family, int first)
    {
        const sql::Result rows = session().run(measureStatement(family, projectId_));
        if (!isRead(rows))
            return false;
        QHash<int, int> places;
        const QVector<GisFeature>& elements = layers_.elements.features;
        for (int i = first; i < elements.size(); ++i)
            places.insert(elements[i].values[0].toInt(), i);
        for (int row = 0; row < rows.ntuples(); ++row) {
            // An element that came meanwhile has no place yet.
            const int place = places.value(rows.toInt(row, Element), -1);
            if (place != -1)
                appendValues(rows, row, family, elements[place], layers_.measures);
        }
        return true;
    }

    int projectId_;
    bool degrees_;
    const GisProgress& progress_;
    GisLayers layers_;
};

} // namespace

GisLayers readGisLayers(int projectId, bool degrees, const GisProgress& progress)
{
    return Reader(projectId, degrees, progress).read();
}
