#include "grips.h"

#include "dynamic_definition.h"
#include "edit_operations.h"
#include "host_access.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

// How far from its centre the grip of an angle stands, in units of the block.
constexpr double kAngleArm = 3.0;
// Flips and choices stand in a row below the place of the block.
constexpr double kRowStep = 1.5;

Grip grip(Grip::Kind kind, const NcGePoint3d& at, int index = 0)
{
    Grip made;
    made.kind = kind;
    made.at = at;
    made.index = index;
    return made;
}

NcGePoint3d middle(const NcGePoint3d& a, const NcGePoint3d& b) { return a + (b - a) * 0.5; }

template <class Line>
void addVertices(const Line& line, std::vector<Grip>& grips)
{
    for (int i = 0; i < line.numVerts(); ++i) {
        NcGePoint3d p;
        line.getPointAt(i, p);
        grips.push_back(grip(Grip::Vertex, p, i));
    }
}

// --- blocks

// A line of the block, as the reference shows it.
bool evaluatedPiece(const NcDbBlockReference& reference, quint64 source, int vertex, NcGePoint3d& from, NcGePoint3d& to)
{
    for (const EvaluatedEntity& part : evaluatedEntities(reference)) {
        if (part.source.handle() != source)
            continue;
        const int before = vertex == 0 ? 1 : vertex - 1;
        if (part.entity->isKindOf(NcDbLine::desc())) {
            const auto& line = static_cast<const NcDbLine&>(*part.entity);
            from = before == 0 ? line.startPoint() : line.endPoint();
            to = before == 0 ? line.endPoint() : line.startPoint();
            return part.entity->isVisible();
        }
        if (part.entity->isKindOf(NcDbPolyline::desc())) {
            const auto& line = static_cast<const NcDbPolyline&>(*part.entity);
            return part.entity->isVisible() && isOk(line.getPointAt(before, from)) && isOk(line.getPointAt(vertex, to));
        }
    }
    return false;
}

class BlockGrips {
public:
    BlockGrips(const NcDbBlockReference& reference, const DynamicDefinition& definition, std::vector<Grip>& grips)
        : reference_(reference), definition_(definition), grips_(grips), place_(reference.blockTransform())
    { }

    void add()
    {
        for (const DynamicBinding& binding : definition_.bindings)
            if (taken_.insert(binding.parameter).second)
                addFor(binding);
    }

private:
    double value(const QString& name) const { return dynamicValue(reference_, name).toDouble(); }

    void put(Grip::Kind kind, const DynamicBinding& binding, const NcGePoint3d& at, const NcGePoint3d& from = {})
    {
        Grip made = grip(kind, place_ * at);
        made.parameter = binding.parameter;
        made.second = binding.second;
        made.from = place_ * from;
        grips_.push_back(made);
    }

    void addFor(const DynamicBinding& binding)
    {
        switch (binding.kind) {
        case DynamicBinding::Move:
        case DynamicBinding::Stretch:
            taken_.insert(binding.second);
            put(Grip::Pair, binding, {value(binding.parameter), value(binding.second), 0.0});
            break;
        case DynamicBinding::Rotate: {
            const double angle = value(binding.parameter);
            const NcGePoint3d center(binding.base.x, binding.base.y, 0.0);
            put(Grip::Angle, binding, center + NcGeVector3d(std::cos(angle), std::sin(angle), 0.0) * kAngleArm, center);
            break;
        }
        case DynamicBinding::Length: {
            NcGePoint3d from, to;
            if (evaluatedPiece(reference_, binding.entity, binding.vertex, from, to))
                put(Grip::Length, binding, to, from);
            else
                taken_.erase(binding.parameter); // another line may show it
            break;
        }
        case DynamicBinding::Mirror: put(Grip::Flip, binding, rowPoint()); break;
        case DynamicBinding::Visible: put(Grip::Choice, binding, rowPoint()); break;
        case DynamicBinding::Slide: break;
        }
    }

    NcGePoint3d rowPoint() { return {kRowStep * ++row_, -2.0 * kRowStep, 0.0}; }

    const NcDbBlockReference& reference_;
    const DynamicDefinition& definition_;
    std::vector<Grip>& grips_;
    NcGeMatrix3d place_;
    std::set<QString> taken_;
    int row_ = 0;
};

const DynamicDefinition* definitionOf(const NcDbBlockReference& reference)
{
    const auto* record = HostAccess::objectAs<NcDbBlockTableRecord>(reference.blockTableRecord());
    return record ? HostAccess::dynamic(*record).get() : nullptr;
}

void addReference(const NcDbBlockReference& reference, std::vector<Grip>& grips)
{
    if (const DynamicDefinition* definition = definitionOf(reference))
        BlockGrips(reference, *definition, grips).add();
    grips.push_back(grip(Grip::Place, reference.position()));
}

bool setParameter(NcDbObjectId reference, const QString& name, const QString& printed)
{
    for (NcDbDynBlockReferenceProperty& property : NcDbDynBlockReference(reference).getBlockProperties())
        if (property.propertyName() == name)
            return isOk(property.setValue(HostAccess::evalVariant(property.propertyType(), printed)));
    return false;
}

bool setNumber(NcDbObjectId reference, const QString& name, double value)
{
    return setParameter(reference, name, QString::number(value, 'g', 17));
}

bool pullParameter(NcDbObjectId id, const NcDbBlockReference& reference, const Grip& pulled, const NcGePoint3d& to)
{
    const NcGeMatrix3d toBlock = reference.blockTransform().inverse();
    const NcGePoint3d at = toBlock * to, from = toBlock * pulled.from;
    if (pulled.kind == Grip::Pair) {
        const bool first = setNumber(id, pulled.parameter, at.x);
        return (pulled.second.isEmpty() || setNumber(id, pulled.second, at.y)) && first;
    }
    if (pulled.kind == Grip::Angle)
        return setNumber(id, pulled.parameter, std::atan2(at.y - from.y, at.x - from.x));
    const NcGeVector3d along = (toBlock * pulled.at - from).normal();
    return setNumber(id, pulled.parameter, std::max(0.0, (at - from).dotProduct(along)));
}

// --- plain entities

bool pullVertex(NcDbEntity& entity, int index, const NcGePoint3d& to)
{
    if (entity.isKindOf(NcDbLine::desc())) {
        auto& line = static_cast<NcDbLine&>(entity);
        index == 0 ? line.setStartPoint(to) : line.setEndPoint(to);
    } else if (entity.isKindOf(NcDbPolyline::desc())) {
        HostAccess::vertices(static_cast<NcDbPolyline&>(entity)).at(size_t(index)).point = {to.x, to.y};
        HostAccess::touch(entity);
    } else if (entity.isKindOf(NcDb2dPolyline::desc())) {
        NcGePoint3d& point = HostAccess::points(static_cast<NcDb2dPolyline&>(entity)).at(size_t(index));
        point = {to.x, to.y, point.z};
        HostAccess::touch(entity);
    } else {
        return false;
    }
    return true;
}

bool pullPlain(NcDbEntity& entity, const Grip& pulled, const NcGePoint3d& to)
{
    if (pulled.kind == Grip::Vertex)
        return pullVertex(entity, pulled.index, to);
    if (pulled.kind == Grip::Place)
        return isOk(entity.transformBy(NcGeMatrix3d::translation(to - pulled.at)));
    auto& circle = static_cast<NcDbCircle&>(entity);
    const double radius = circle.center().distanceTo(to);
    if (pulled.kind != Grip::Radius || !(radius > 0.0))
        return false;
    circle.setRadius(radius);
    return true;
}

bool isParameter(const Grip& grip)
{
    return grip.kind == Grip::Pair || grip.kind == Grip::Angle || grip.kind == Grip::Length;
}

// Parameters are set past the opening of the reference; a locked layer holds them too.
const NcDbBlockReference* changeable(NcDbObjectId id)
{
    const auto* reference = HostAccess::objectAs<NcDbBlockReference>(id);
    const NcDbLayerTableRecord* layer = reference ? HostAccess::layerOf(*reference) : nullptr;
    const bool free = reference && !reference->isErased() && !(layer && layer->isLocked());
    return free && !HostAccess::data(*reference).isOpen() ? reference : nullptr;
}

void addPlain(const NcDbEntity& entity, std::vector<Grip>& grips)
{
    if (entity.isKindOf(NcDbLine::desc())) {
        const auto& line = static_cast<const NcDbLine&>(entity);
        grips = {grip(Grip::Place, middle(line.startPoint(), line.endPoint())),
                 grip(Grip::Vertex, line.startPoint(), 0), grip(Grip::Vertex, line.endPoint(), 1)};
    } else if (entity.isKindOf(NcDbCircle::desc())) {
        const auto& circle = static_cast<const NcDbCircle&>(entity);
        grips.push_back(grip(Grip::Place, circle.center()));
        for (int i = 0; i < 4; ++i)
            grips.push_back(grip(Grip::Radius,
                                 circle.center()
                                     + NcGeVector3d(i == 0       ? 1
                                                        : i == 2 ? -1
                                                                 : 0,
                                                    i == 1       ? 1
                                                        : i == 3 ? -1
                                                                 : 0,
                                                    0)
                                         * circle.radius()));
    } else if (entity.isKindOf(NcDbPolyline::desc())) {
        addVertices(static_cast<const NcDbPolyline&>(entity), grips);
    } else if (entity.isKindOf(NcDb2dPolyline::desc())) {
        addVertices(static_cast<const NcDb2dPolyline&>(entity), grips);
    } else if (entity.isKindOf(NcDbPoint::desc())) {
        grips.push_back(grip(Grip::Place, static_cast<const NcDbPoint&>(entity).position()));
    } else if (entity.isKindOf(NcDbArc::desc())) {
        grips.push_back(grip(Grip::Place, static_cast<const NcDbArc&>(entity).center()));
    } else if (entity.isKindOf(NcDbText::desc())) {
        grips.push_back(grip(Grip::Place, static_cast<const NcDbText&>(entity).position()));
    } else if (entity.isKindOf(NcDbMText::desc())) {
        grips.push_back(grip(Grip::Place, static_cast<const NcDbMText&>(entity).location()));
    } else if (entity.isKindOf(NcDbTable::desc())) {
        grips.push_back(grip(Grip::Place, static_cast<const NcDbTable&>(entity).position()));
    }
}

} // namespace

std::vector<Grip> gripsOf(const NcDbEntity& entity)
{
    std::vector<Grip> grips;
    if (entity.isKindOf(NcDbBlockReference::desc()))
        addReference(static_cast<const NcDbBlockReference&>(entity), grips);
    else
        addPlain(entity, grips);
    return grips;
}

bool pullGrip(NcDbObjectId id, const Grip& pulled, const NcGePoint3d& to)
{
    if (isParameter(pulled)) {
        const NcDbBlockReference* reference = changeable(id);
        return reference && pullParameter(id, *reference, pulled, to);
    }
    const auto* present = HostAccess::objectAs<NcDbEntity>(id);
    if (!present || !present->database() || editable(*present->database(), {id}).empty())
        return false;
    NcDbEntity* entity = nullptr;
    if (!isOk(ncdbOpenObject(entity, id, kForWrite)))
        return false;
    const bool done = pullPlain(*entity, pulled, to);
    entity->close();
    return done;
}

bool turnGrip(NcDbObjectId id, const Grip& turned)
{
    const NcDbBlockReference* reference = changeable(id);
    if (!reference || turned.kind != Grip::Flip)
        return false;
    const bool on = dynamicValue(*reference, turned.parameter).toDouble() != 0.0;
    return setParameter(id, turned.parameter, on ? QStringLiteral("0") : QStringLiteral("1"));
}

QStringList gripChoices(NcDbObjectId id, const Grip& chosen, QString& present)
{
    const auto* reference = HostAccess::objectAs<NcDbBlockReference>(id);
    const DynamicDefinition* definition = reference ? definitionOf(*reference) : nullptr;
    const DynamicParameter* parameter = definition ? definition->parameter(chosen.parameter) : nullptr;
    if (!parameter)
        return {};
    present = dynamicValue(*reference, chosen.parameter);
    return parameter->allowed;
}

bool chooseGrip(NcDbObjectId id, const Grip& chosen, const QString& value)
{
    return chosen.kind == Grip::Choice && changeable(id) && setParameter(id, chosen.parameter, value);
}
