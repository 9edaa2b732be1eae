#include "property_rows.h"

#include "edit_operations.h"
#include "host_access.h"

#include <cmath>

namespace {

using Kind = EntityProperty::Kind;

constexpr double kDegree = M_PI / 180.0;

double degreesOf(double radians)
{
    const double turned = std::fmod(radians / kDegree, 360.0);
    return turned < 0.0 ? turned + 360.0 : turned;
}

template <class T>
const T& as(const NcDbEntity& entity)
{
    return static_cast<const T&>(entity);
}

// A row that is only told.
template <class T, class Read>
PropertyRow told(const char* key, const char* caption, Kind kind, Read read)
{
    return {key, caption, kind, [read](const NcDbEntity& entity) { return QVariant(read(as<T>(entity))); }, nullptr};
}

// A number that a getter and a setter of the class hold; `least` bounds it from below.
template <class T, class Read, class Write>
PropertyRow number(const char* key, const char* caption, Read read, Write write, double least = -1e300)
{
    return {key, caption, EntityProperty::Number,
            [read](const NcDbEntity& entity) { return QVariant((as<T>(entity).*read)()); },
            [write, least](NcDbEntity& entity, const QVariant& value) {
                if (!(value.toDouble() > least))
                    return false;
                (static_cast<T&>(entity).*write)(value.toDouble());
                return true;
            }};
}

template <class T, class Read, class Write>
PropertyRow angle(const char* key, const char* caption, Read read, Write write)
{
    return {key, caption, EntityProperty::Angle,
            [read](const NcDbEntity& entity) { return QVariant(degreesOf((as<T>(entity).*read)())); },
            [write](NcDbEntity& entity, const QVariant& value) {
                (static_cast<T&>(entity).*write)(value.toDouble() * kDegree);
                return true;
            }};
}

template <class T, class Read, class Write>
PropertyRow flag(const char* key, const char* caption, Read read, Write write)
{
    return {key, caption, EntityProperty::Flag,
            [read](const NcDbEntity& entity) { return QVariant((as<T>(entity).*read)()); },
            [write](NcDbEntity& entity, const QVariant& value) {
                (static_cast<T&>(entity).*write)(value.toBool());
                return true;
            }};
}

template <class T, class Read, class Write>
PropertyRow coordinate(const char* key, const char* caption, double NcGePoint3d::*axis, Read read, Write write)
{
    return {key, caption, EntityProperty::Number,
            [read, axis](const NcDbEntity& entity) { return QVariant((as<T>(entity).*read)().*axis); },
            [read, write, axis](NcDbEntity& entity, const QVariant& value) {
                NcGePoint3d p = (as<T>(entity).*read)();
                p.*axis = value.toDouble();
                (static_cast<T&>(entity).*write)(p);
                return true;
            }};
}

// The three coordinates of a point; keys and captions stand one after another.
template <class T, class Read, class Write>
void addPoint(std::vector<PropertyRow>& rows, const std::array<const char*, 6>& names, Read read, Write write)
{
    rows.push_back(coordinate<T>(names[0], names[1], &NcGePoint3d::x, read, write));
    rows.push_back(coordinate<T>(names[2], names[3], &NcGePoint3d::y, read, write));
    rows.push_back(coordinate<T>(names[4], names[5], &NcGePoint3d::z, read, write));
}

const std::array<const char*, 6> kPlace = {"x", "X", "y", "Y", "z", "Z"};
const std::array<const char*, 6> kCenter = {"center.x", "Центр X", "center.y", "Центр Y", "center.z", "Центр Z"};

void addFigures(std::vector<PropertyRow>& rows)
{
    const auto figure = [](double AreaFigures::*part) {
        return [part](const NcDbEntity& entity) {
            AreaFigures figures;
            return areaOf(entity, figures) ? QVariant(figures.*part) : QVariant();
        };
    };
    rows.push_back({"area", "Площадь", EntityProperty::Number, figure(&AreaFigures::area), nullptr});
    rows.push_back({"length", "Длина контура", EntityProperty::Number, figure(&AreaFigures::length), nullptr});
}

PropertyClass pointClass()
{
    PropertyClass made{NcDbPoint::desc(), "Точка", {}};
    addPoint<NcDbPoint>(made.rows, kPlace, &NcDbPoint::position, &NcDbPoint::setPosition);
    return made;
}

PropertyClass lineClass()
{
    PropertyClass made{NcDbLine::desc(), "Отрезок", {}};
    addPoint<NcDbLine>(made.rows, {"start.x", "Начало X", "start.y", "Начало Y", "start.z", "Начало Z"},
                       &NcDbLine::startPoint, &NcDbLine::setStartPoint);
    addPoint<NcDbLine>(made.rows, {"end.x", "Конец X", "end.y", "Конец Y", "end.z", "Конец Z"}, &NcDbLine::endPoint,
                       &NcDbLine::setEndPoint);
    made.rows.push_back(told<NcDbLine>("length", "Длина", EntityProperty::Number, [](const NcDbLine& line) {
        return (line.endPoint() - line.startPoint()).length();
    }));
    made.rows.push_back(told<NcDbLine>("direction", "Направление", EntityProperty::Angle, [](const NcDbLine& line) {
        const NcGeVector3d along = line.endPoint() - line.startPoint();
        return degreesOf(std::atan2(along.y, along.x));
    }));
    return made;
}

PropertyClass circleClass()
{
    PropertyClass made{NcDbCircle::desc(), "Окружность", {}};
    addPoint<NcDbCircle>(made.rows, kCenter, &NcDbCircle::center, &NcDbCircle::setCenter);
    made.rows.push_back(number<NcDbCircle>("radius", "Радиус", &NcDbCircle::radius, &NcDbCircle::setRadius, 0.0));
    addFigures(made.rows);
    return made;
}

PropertyClass arcClass()
{
    PropertyClass made{NcDbArc::desc(), "Дуга", {}};
    const auto place = [](NcDbArc& arc, const NcGePoint3d& p) {
        arc.set(p, arc.radius(), arc.startAngle(), arc.endAngle());
    };
    for (const auto& axis : {std::make_pair("center.x", &NcGePoint3d::x), std::make_pair("center.y", &NcGePoint3d::y)})
        made.rows.push_back({axis.first, axis.second == &NcGePoint3d::x ? "Центр X" : "Центр Y", EntityProperty::Number,
                             [axis](const NcDbEntity& e) { return QVariant(as<NcDbArc>(e).center().*axis.second); },
                             [axis, place](NcDbEntity& e, const QVariant& value) {
                                 NcGePoint3d p = as<NcDbArc>(e).center();
                                 p.*axis.second = value.toDouble();
                                 place(static_cast<NcDbArc&>(e), p);
                                 return true;
                             }});
    made.rows.push_back({"radius", "Радиус", EntityProperty::Number,
                         [](const NcDbEntity& e) { return QVariant(as<NcDbArc>(e).radius()); },
                         [](NcDbEntity& e, const QVariant& value) {
                             auto& arc = static_cast<NcDbArc&>(e);
                             if (!(value.toDouble() > 0.0))
                                 return false;
                             arc.set(arc.center(), value.toDouble(), arc.startAngle(), arc.endAngle());
                             return true;
                         }});
    made.rows.push_back({"from", "Начальный угол", EntityProperty::Angle,
                         [](const NcDbEntity& e) { return QVariant(degreesOf(as<NcDbArc>(e).startAngle())); },
                         [](NcDbEntity& e, const QVariant& value) {
                             auto& arc = static_cast<NcDbArc&>(e);
                             arc.set(arc.center(), arc.radius(), value.toDouble() * kDegree, arc.endAngle());
                             return true;
                         }});
    made.rows.push_back({"to", "Конечный угол", EntityProperty::Angle,
                         [](const NcDbEntity& e) { return QVariant(degreesOf(as<NcDbArc>(e).endAngle())); },
                         [](NcDbEntity& e, const QVariant& value) {
                             auto& arc = static_cast<NcDbArc&>(e);
                             arc.set(arc.center(), arc.radius(), arc.startAngle(), value.toDouble() * kDegree);
                             return true;
                         }});
    return made;
}

// The width of a line, where all its parts have the same; else nothing to show.
QVariant widthOf(const NcDbPolyline& line)
{
    double first = 0.0, start = 0.0, end = 0.0;
    line.getWidthsAt(0, first, end);
    for (int i = 0; i < line.numVerts(); ++i) {
        line.getWidthsAt(i, start, end);
        if (start != first || end != first)
            return {};
    }
    return first;
}

PropertyClass polylineClass()
{
    PropertyClass made{NcDbPolyline::desc(), "Полилиния", {}};
    made.rows.push_back(flag<NcDbPolyline>("closed", "Замкнута", &NcDbPolyline::isClosed, &NcDbPolyline::setClosed));
    made.rows.push_back(
        number<NcDbPolyline>("elevation", "Отметка", &NcDbPolyline::elevation, &NcDbPolyline::setElevation));
    made.rows.push_back(
        {"width", "Ширина", EntityProperty::Number, [](const NcDbEntity& e) { return widthOf(as<NcDbPolyline>(e)); },
         [](NcDbEntity& e, const QVariant& value) {
             return value.toDouble() >= 0.0 && isOk(static_cast<NcDbPolyline&>(e).setConstantWidth(value.toDouble()));
         }});
    made.rows.push_back(told<NcDbPolyline>("vertices", "Вершин", EntityProperty::Count,
                                           [](const NcDbPolyline& line) { return line.numVerts(); }));
    addFigures(made.rows);
    return made;
}

PropertyClass oldPolylineClass()
{
    PropertyClass made{NcDb2dPolyline::desc(), "Полилиния", {}};
    made.rows.push_back(
        flag<NcDb2dPolyline>("closed", "Замкнута", &NcDb2dPolyline::isClosed, &NcDb2dPolyline::setClosed));
    made.rows.push_back(told<NcDb2dPolyline>("vertices", "Вершин", EntityProperty::Count,
                                             [](const NcDb2dPolyline& line) { return line.numVerts(); }));
    addFigures(made.rows);
    return made;
}

// A text is held by its alignment point unless it begins at its place.
NcGePoint3d heldAt(const NcDbText& text)
{
    const bool plain = text.horizontalMode() == NcDbText::kTextLeft && text.verticalMode() == NcDbText::kTextBase;
    return plain ? text.position() : text.alignmentPoint();
}

PropertyClass textClass()
{
    PropertyClass made{NcDbText::desc(), "Текст", {}};
    made.rows.push_back({"contents", "Содержание", EntityProperty::Text,
                         [](const NcDbEntity& e) { return QVariant(as<NcDbText>(e).textString()); },
                         [](NcDbEntity& e, const QVariant& value) {
                             return isOk(static_cast<NcDbText&>(e).setTextString(value.toString()));
                         }});
    made.rows.push_back(number<NcDbText>("height", "Высота", &NcDbText::height, &NcDbText::setHeight, 0.0));
    made.rows.push_back(angle<NcDbText>("rotation", "Поворот", &NcDbText::rotation, &NcDbText::setRotation));
    made.rows.push_back(
        number<NcDbText>("widthFactor", "Сжатие", &NcDbText::widthFactor, &NcDbText::setWidthFactor, 0.0));
    for (const auto& axis : {std::make_pair("x", &NcGePoint3d::x), std::make_pair("y", &NcGePoint3d::y)})
        made.rows.push_back({axis.first, axis.second == &NcGePoint3d::x ? "X" : "Y", EntityProperty::Number,
                             [axis](const NcDbEntity& e) { return QVariant(heldAt(as<NcDbText>(e)).*axis.second); },
                             [axis](NcDbEntity& e, const QVariant& value) {
                                 NcGePoint3d to = heldAt(as<NcDbText>(e));
                                 const NcGePoint3d from = to;
                                 to.*axis.second = value.toDouble();
                                 return isOk(e.transformBy(NcGeMatrix3d::translation(to - from)));
                             }});
    return made;
}

PropertyClass mtextClass()
{
    PropertyClass made{NcDbMText::desc(), "Многострочный текст", {}};
    made.rows.push_back({"lines", "Содержание", EntityProperty::Lines,
                         [](const NcDbEntity& e) {
                             return QVariant(QString(as<NcDbMText>(e).contents()).replace(QLatin1String("\\P"), "\n"));
                         },
                         [](NcDbEntity& e, const QVariant& value) {
                             static_cast<NcDbMText&>(e).setContents(value.toString().replace('\n', "\\P"));
                             return true;
                         }});
    made.rows.push_back(number<NcDbMText>("height", "Высота", &NcDbMText::textHeight, &NcDbMText::setTextHeight, 0.0));
    made.rows.push_back(number<NcDbMText>("textWidth", "Ширина строки", &NcDbMText::width, &NcDbMText::setWidth));
    made.rows.push_back(angle<NcDbMText>("rotation", "Поворот", &NcDbMText::rotation, &NcDbMText::setRotation));
    made.rows.push_back(
        flag<NcDbMText>("ground", "Подложка", &NcDbMText::backgroundFillOn, &NcDbMText::setBackgroundFill));
    addPoint<NcDbMText>(made.rows, kPlace, &NcDbMText::location, &NcDbMText::setLocation);
    return made;
}

PropertyClass tableClass()
{
    PropertyClass made{NcDbTable::desc(), "Таблица", {}};
    addPoint<NcDbTable>(made.rows, kPlace, &NcDbTable::position, &NcDbTable::setPosition);
    made.rows.push_back(told<NcDbTable>("rows", "Строк", EntityProperty::Count,
                                        [](const NcDbTable& table) { return table.numRows(); }));
    made.rows.push_back(told<NcDbTable>("columns", "Столбцов", EntityProperty::Count,
                                        [](const NcDbTable& table) { return table.numColumns(); }));
    return made;
}

PropertyClass hatchClass()
{
    PropertyClass made{NcDbHatch::desc(), "Штриховка", {}};
    made.rows.push_back(told<NcDbHatch>("pattern", "Образец", EntityProperty::Text,
                                        [](const NcDbHatch& hatch) { return hatch.patternName(); }));
    made.rows.push_back(number<NcDbHatch>("patternScale", "Масштаб образца", &NcDbHatch::patternScale,
                                          &NcDbHatch::setPatternScale, 0.0));
    made.rows.push_back(told<NcDbHatch>("loops", "Контуров", EntityProperty::Count,
                                        [](const NcDbHatch& hatch) { return hatch.numLoops(); }));
    addFigures(made.rows);
    return made;
}

PropertyRow scaleRow(const char* key, const char* caption, double NcScale3d::*axis)
{
    return {key, caption, EntityProperty::Number,
            [axis](const NcDbEntity& e) { return QVariant(as<NcDbBlockReference>(e).scaleFactors().*axis); },
            [axis](NcDbEntity& e, const QVariant& value) {
                auto& reference = static_cast<NcDbBlockReference&>(e);
                NcScale3d scale = reference.scaleFactors();
                scale.*axis = value.toDouble();
                return value.toDouble() != 0.0 && isOk(reference.setScaleFactors(scale));
            }};
}

PropertyClass referenceClass()
{
    PropertyClass made{NcDbBlockReference::desc(), "Блок", {}};
    addPoint<NcDbBlockReference>(made.rows, kPlace, &NcDbBlockReference::position, &NcDbBlockReference::setPosition);
    made.rows.push_back(angle<NcDbBlockReference>("rotation", "Поворот", &NcDbBlockReference::rotation,
                                                  &NcDbBlockReference::setRotation));
    made.rows.push_back(scaleRow("scale.x", "Масштаб X", &NcScale3d::sx));
    made.rows.push_back(scaleRow("scale.y", "Масштаб Y", &NcScale3d::sy));
    made.rows.push_back(scaleRow("scale.z", "Масштаб Z", &NcScale3d::sz));
    return made;
}

PropertyClass viewportClass()
{
    PropertyClass made{NcDbViewport::desc(), "Видовой экран", {}};
    made.rows.push_back(told<NcDbViewport>("width", "Ширина", EntityProperty::Number,
                                           [](const NcDbViewport& window) { return window.width(); }));
    made.rows.push_back(told<NcDbViewport>("height", "Высота", EntityProperty::Number,
                                           [](const NcDbViewport& window) { return window.height(); }));
    return made;
}

} // namespace

const PropertyClass* propertyClassOf(const NcDbEntity& entity)
{
    static const std::vector<PropertyClass> classes = {
        pointClass(), lineClass(),  circleClass(), arcClass(),   polylineClass(),  oldPolylineClass(),
        textClass(),  mtextClass(), tableClass(),  hatchClass(), referenceClass(), viewportClass()};
    for (const PropertyClass& known : classes)
        if (entity.isKindOf(known.cls))
            return &known;
    return nullptr;
}

const std::vector<PropertyRow>& commonRows()
{
    static const std::vector<PropertyRow> rows = {
        {"layer", "Слой", EntityProperty::Layer, [](const NcDbEntity& e) { return QVariant(e.layer()); },
         [](NcDbEntity& e, const QVariant& value) { return isOk(e.setLayer(value.toString(), true)); }},
        {"color", "Цвет", EntityProperty::Color, [](const NcDbEntity& e) { return QVariant(colorName(e.color())); },
         [](NcDbEntity& e, const QVariant& value) {
             const auto color = colorOfName(value.toString());
             return color && isOk(e.setColor(*color, true));
         }},
        {"linetype", "Тип линии", EntityProperty::LineType, [](const NcDbEntity& e) { return QVariant(e.linetype()); },
         [](NcDbEntity& e, const QVariant& value) { return isOk(e.setLinetype(value.toString())); }},
    };
    return rows;
}
