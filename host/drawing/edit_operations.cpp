#include "edit_operations.h"

#include "dynamic_definition.h"
#include "entity_shape.h"
#include "host_access.h"

#include <algorithm>
#include <cmath>

namespace {

// Opens an entity for a change.
template <class Change>
bool changeEntity(NcDbObjectId id, const Change& change)
{
    NcDbEntity* entity = nullptr;
    if (!isOk(ncdbOpenObject(entity, id, kForWrite)))
        return false;
    const bool done = isOk(change(*entity));
    entity->close();
    return done;
}

NcDbObjectId appendTo(NcDbDatabase& database, std::unique_ptr<NcDbEntity> entity)
{
    NcDbBlockTableRecord* space = nullptr;
    NcDbObjectId id;
    if (!isOk(ncdbOpenObject(space, database.currentSpaceId(), kForWrite)))
        return id;
    if (isOk(space->appendNcDbEntity(id, entity.get())))
        entity.release()->close();
    space->close();
    return id;
}

// A part of a reference looks as it did inside of it.
void inheritLook(NcDbEntity& part, const NcDbEntity& whole)
{
    if (part.layer() == QLatin1String("0"))
        HostAccess::layer(part) = whole.layer();
    if (part.color().method() == NcCmColor::kByBlock)
        HostAccess::color(part) = whole.color();
    if (part.linetype().compare(QLatin1String("ByBlock"), Qt::CaseInsensitive) == 0)
        HostAccess::linetype(part) = whole.linetype();
}

// The value of an attribute as a plain text.
std::unique_ptr<NcDbEntity> plainText(const NcDbAttribute& attribute)
{
    if (const NcDbMText* text = HostAccess::mtext(attribute).get()) {
        std::unique_ptr<NcDbEntity> copy(text->clone());
        copy->setPropertiesFrom(&attribute);
        return copy;
    }
    auto text = std::make_unique<NcDbText>(attribute.position(), attribute.textString(), attribute.height(),
                                           attribute.rotation());
    text->setPropertiesFrom(&attribute);
    text->setWidthFactor(attribute.widthFactor());
    text->setHorizontalMode(attribute.horizontalMode());
    text->setVerticalMode(attribute.verticalMode());
    text->setAlignmentPoint(attribute.alignmentPoint());
    return text;
}

using Parts = std::vector<std::unique_ptr<NcDbEntity>>;

Parts partsOf(const NcDbBlockReference& reference)
{
    Parts parts;
    const NcGeMatrix3d place = reference.blockTransform();
    for (EvaluatedEntity& part : evaluatedEntities(reference)) {
        if (!part.entity->isVisible() || part.entity->isKindOf(NcDbAttributeDefinition::desc())
            || !isOk(part.entity->transformBy(place)))
            continue;
        inheritLook(*part.entity, reference);
        parts.push_back(std::move(part.entity));
    }
    for (NcDbObjectId id : HostAccess::attributes(reference)) {
        const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
        if (!attribute || attribute->isErased() || attribute->isInvisible() || !attribute->isVisible())
            continue;
        parts.push_back(plainText(*attribute));
        inheritLook(*parts.back(), reference);
    }
    return parts;
}

// The circle of which a bulged piece is a part.
struct BulgeArc {
    NcGePoint3d center;
    double radius, start, end; // counter-clockwise
};

BulgeArc arcOf(const NcGePoint3d& from, const NcGePoint3d& to, double bulge)
{
    const double offset = (1.0 - bulge * bulge) / (4.0 * bulge);
    const double dx = to.x - from.x, dy = to.y - from.y;
    BulgeArc arc;
    arc.center = {(from.x + to.x) / 2.0 - dy * offset, (from.y + to.y) / 2.0 + dx * offset, from.z};
    arc.radius = std::hypot(from.x - arc.center.x, from.y - arc.center.y);
    const NcGePoint3d& first = bulge > 0.0 ? from : to;
    const NcGePoint3d& last = bulge > 0.0 ? to : from;
    arc.start = std::atan2(first.y - arc.center.y, first.x - arc.center.x);
    arc.end = std::atan2(last.y - arc.center.y, last.x - arc.center.x);
    return arc;
}

std::unique_ptr<NcDbEntity> pieceOf(const NcGePoint3d& from, const NcGePoint3d& to, double bulge)
{
    if (bulge == 0.0 || from == to)
        return std::make_unique<NcDbLine>(from, to);
    const BulgeArc arc = arcOf(from, to, bulge);
    return std::make_unique<NcDbArc>(arc.center, arc.radius, normalAngle(arc.start), normalAngle(arc.end));
}

template <class Line>
Parts piecesOf(const Line& line)
{
    Parts parts;
    const int count = line.numVerts();
    for (int i = 0; i + (line.isClosed() ? 0 : 1) < count; ++i) {
        NcGePoint3d from, to;
        double bulge = 0.0;
        line.getPointAt(i, from);
        line.getPointAt((i + 1) % count, to);
        line.getBulgeAt(i, bulge);
        parts.push_back(pieceOf(from, to, bulge));
        parts.back()->setPropertiesFrom(&line);
    }
    return parts;
}

Parts partsOf(const NcDbEntity& entity)
{
    if (entity.isKindOf(NcDbBlockReference::desc()))
        return partsOf(static_cast<const NcDbBlockReference&>(entity));
    if (entity.isKindOf(NcDbPolyline::desc()))
        return piecesOf(static_cast<const NcDbPolyline&>(entity));
    if (entity.isKindOf(NcDb2dPolyline::desc()))
        return piecesOf(static_cast<const NcDb2dPolyline&>(entity));
    return {};
}

// Twice the area between the chord and the arc of a bulged piece, with its sign.
double segmentArea(const NcGePoint3d& from, const NcGePoint3d& to, double bulge)
{
    const double angle = 4.0 * std::atan(bulge), chord = std::hypot(to.x - from.x, to.y - from.y);
    const double radius = chord * (1.0 + bulge * bulge) / (4.0 * std::fabs(bulge));
    return radius * radius * (angle - std::sin(angle));
}

void addPiece(const NcGePoint3d& from, const NcGePoint3d& to, double bulge, double& twice, double& length)
{
    // The first corner may lie far from the origin.
    const double chord = std::hypot(to.x - from.x, to.y - from.y);
    if (bulge == 0.0 || chord == 0.0) {
        length += chord;
        return;
    }
    const double radius = chord * (1.0 + bulge * bulge) / (4.0 * std::fabs(bulge));
    length += radius * std::fabs(4.0 * std::atan(bulge));
    twice += segmentArea(from, to, bulge);
}

AreaFigures areaWithin(const std::vector<NcGePoint3d>& corners, const std::vector<double>& bulges, bool closed)
{
    double twice = 0.0;
    AreaFigures figures;
    for (size_t i = 0; i < corners.size(); ++i) {
        const NcGePoint3d& from = corners[i];
        const NcGePoint3d& to = corners[(i + 1) % corners.size()];
        const NcGeVector3d a = from - corners[0], b = to - corners[0];
        twice += a.x * b.y - b.x * a.y;
        if (closed || i + 1 < corners.size())
            addPiece(from, to, i < bulges.size() ? bulges[i] : 0.0, twice, figures.length);
    }
    figures.area = std::fabs(twice) / 2.0;
    return figures;
}

template <class Line>
AreaFigures areaOfLine(const Line& line)
{
    std::vector<NcGePoint3d> corners(static_cast<size_t>(line.numVerts()));
    std::vector<double> bulges(corners.size());
    for (int i = 0; i < line.numVerts(); ++i) {
        line.getPointAt(i, corners[size_t(i)]);
        line.getBulgeAt(i, bulges[size_t(i)]);
    }
    return areaWithin(corners, bulges, line.isClosed());
}

AreaFigures areaOfHatch(const NcDbHatch& hatch)
{
    AreaFigures all;
    for (int i = 0; i < hatch.numLoops(); ++i) {
        const NcDbHatch::Loop& loop = hatch.loopAt(i);
        std::vector<NcGePoint3d> corners;
        for (const NcGePoint2d& p : loop.points)
            corners.emplace_back(p.x, p.y, 0.0);
        const AreaFigures one = areaWithin(corners, loop.bulges, true);
        // The first loop is the border, the others are islands in it.
        all.area += i == 0 ? one.area : -one.area;
        all.length += one.length;
    }
    all.area = std::fabs(all.area);
    return all;
}

} // namespace

NcDbObjectIdArray editable(const NcDbDatabase& database, const NcDbObjectIdArray& ids)
{
    NcDbObjectIdArray good;
    for (NcDbObjectId id : ids) {
        const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
        if (!entity || entity->isErased() || entity->ownerId() != database.currentSpaceId())
            continue;
        const NcDbLayerTableRecord* layer = HostAccess::layerOf(*entity);
        if (!layer || !layer->isLocked())
            good.push_back(id);
    }
    return good;
}

int transformEntities(const NcDbObjectIdArray& ids, const NcGeMatrix3d& matrix)
{
    return int(std::count_if(ids.begin(), ids.end(), [&](NcDbObjectId id) {
        return changeEntity(id, [&](NcDbEntity& entity) { return entity.transformBy(matrix); });
    }));
}

int eraseEntities(const NcDbObjectIdArray& ids)
{
    return int(std::count_if(ids.begin(), ids.end(), [](NcDbObjectId id) {
        return changeEntity(id, [](NcDbEntity& entity) { return entity.erase(); });
    }));
}

NcDbObjectIdArray copyEntities(NcDbDatabase& database, const NcDbObjectIdArray& ids, const NcGeMatrix3d& matrix)
{
    NcDbIdMapping mapping;
    NcDbObjectIdArray copies;
    if (!isOk(database.wblockCloneObjects(ids, database.currentSpaceId(), mapping, NcDbDatabase::kIgnoreDuplicates)))
        return copies;
    for (NcDbObjectId id : ids)
        if (const NcDbObjectId copy = mapping.cloneOf(id); !copy.isNull())
            copies.push_back(copy);
    transformEntities(copies, matrix);
    return copies;
}

NcDbObjectIdArray explodeEntity(NcDbDatabase& database, NcDbObjectId id)
{
    NcDbObjectIdArray made;
    const auto* entity = HostAccess::objectAs<NcDbEntity>(id);
    if (!entity || entity->isErased())
        return made;
    Parts parts = partsOf(*entity);
    for (std::unique_ptr<NcDbEntity>& part : parts)
        if (const NcDbObjectId part_id = appendTo(database, std::move(part)); !part_id.isNull())
            made.push_back(part_id);
    if (!made.empty())
        eraseEntities({id});
    return made;
}

int attributesToTexts(NcDbDatabase& database)
{
    int made = 0;
    auto& space = *HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::data(database).modelSpace);
    for (NcDbObjectId id : NcDbObjectIdArray(HostAccess::entities(space))) {
        const auto* reference = HostAccess::objectAs<NcDbBlockReference>(id);
        if (!reference || reference->isErased())
            continue;
        for (NcDbObjectId attributeId : HostAccess::attributes(*reference)) {
            auto* attribute = HostAccess::objectAs<NcDbAttribute>(attributeId);
            if (!attribute || attribute->isErased() || attribute->isInvisible() || !attribute->isVisible())
                continue;
            std::unique_ptr<NcDbEntity> text = plainText(*attribute);
            inheritLook(*text, *reference);
            HostAccess::touch(*HostAccess::object(HostAccess::addEntity(space, std::move(text))));
            HostAccess::noteChange(*attribute);
            HostAccess::invisible(*attribute) = true;
            HostAccess::touch(*attribute);
            ++made;
        }
    }
    return made;
}

NcGeMatrix3d mirrorMatrix(const NcGePoint3d& from, const NcGePoint3d& to)
{
    const double angle = 2.0 * std::atan2(to.y - from.y, to.x - from.x);
    const double c = std::cos(angle), s = std::sin(angle);
    NcGeMatrix3d matrix;
    matrix.setCoordSystem({from.x - c * from.x - s * from.y, from.y - s * from.x + c * from.y, 0.0}, {c, s, 0.0},
                          {s, -c, 0.0}, NcGeVector3d::kZAxis);
    return matrix;
}

bool areaOf(const NcDbEntity& entity, AreaFigures& figures)
{
    if (entity.isKindOf(NcDbPolyline::desc()))
        figures = areaOfLine(static_cast<const NcDbPolyline&>(entity));
    else if (entity.isKindOf(NcDb2dPolyline::desc()))
        figures = areaOfLine(static_cast<const NcDb2dPolyline&>(entity));
    else if (entity.isKindOf(NcDbHatch::desc()))
        figures = areaOfHatch(static_cast<const NcDbHatch&>(entity));
    else if (entity.isKindOf(NcDbCircle::desc())) {
        const double radius = static_cast<const NcDbCircle&>(entity).radius();
        figures = {M_PI * radius * radius, 2.0 * M_PI * radius};
    } else {
        return false;
    }
    return true;
}

AreaFigures areaOf(const std::vector<NcGePoint3d>& corners) { return areaWithin(corners, {}, true); }

std::optional<NcGeExtents> extentsOf(const NcDbObjectIdArray& ids)
{
    ExtentsBuilder box;
    for (NcDbObjectId id : ids)
        if (const auto* entity = HostAccess::objectAs<NcDbEntity>(id))
            if (const auto one = entity->extents())
                box.add(*one);
    return box.result();
}
