// The walk over a drawing: which entities show, in which order, colour and place.
#include "entity_figures.h"

#include <drawing/host_access.h>
#include <drawing/long_work.h>
#include <drawing/nesting.h>
#include <drawing/palette.h>

#include <QHash>
#include <algorithm>
#include <cmath>

namespace {

// Blocks inside of blocks; files with deeper ones are not opened.
constexpr int kDeepest = 64;

QTransform flatTransform(const NcGeMatrix3d& m)
{
    return QTransform(m.entry[0][0], m.entry[1][0], m.entry[0][1], m.entry[1][1], m.entry[0][3], m.entry[1][3]);
}

// What an entity inside of a block takes from the reference that shows it.
struct Inherited {
    QString layer;     // empty at the top
    FigureColor color; // for "by block"
};

class DrawingWalker {
public:
    DrawingWalker(const NcDbDatabase& drawing, DisplayList& list) : drawing_(drawing) { frame_.list = &list; }

    void walkSpace(const QString& name)
    {
        const NcDbObjectId id = HostAccess::recordId(drawing_, HostAccess::data(drawing_).blockTable, name);
        const auto* block = HostAccess::objectAs<NcDbBlockTableRecord>(id);
        if (!block)
            return;
        const NcDbObjectIdArray entities = drawOrder(*block);
        WorkPart work(entities.size(), 0.0, kRecordedOfWork);
        for (const NcDbObjectId& entityId : entities) {
            if (!work.next())
                return;
            const auto* entity = HostAccess::objectAs<NcDbEntity>(entityId);
            if (!entity || entity->isErased())
                continue;
            if (!inViewport_)
                frame_.pattern.source = entityId;
            walkEntity(*entity, {}, 0);
        }
    }

private:
    static NcDbObjectIdArray drawOrder(const NcDbBlockTableRecord& block)
    {
        const auto* order = HostAccess::objectAs<NcDbSortentsTable>(HostAccess::sortents(block));
        return order ? order->getFullDrawOrder() : HostAccess::entities(block);
    }

    void walkEntity(const NcDbEntity& entity, const Inherited& inherited, int depth)
    {
        if (!entity.isVisible() || depth > kDeepest)
            return;
        const bool follows = !inherited.layer.isEmpty() && entity.layer() == QLatin1String("0");
        const QString layer = follows ? inherited.layer : entity.layer();
        const NcDbLayerTableRecord* record = layerRecord(layer);
        if (record && record->isFrozen())
            return;
        const FigureColor color = colorOf(entity, record, inherited);
        const bool off = record && record->isOff();

        if (entity.isKindOf(NcDbBlockReference::desc()))
            return walkReference(static_cast<const NcDbBlockReference&>(entity), {layer, color}, depth);
        if (off)
            return;
        if (entity.isKindOf(NcDbViewport::desc()))
            return walkViewport(static_cast<const NcDbViewport&>(entity));
        FigureFrame frame = frame_;
        frame.pattern.layer = layer;
        frame.pattern.color = color.color;
        frame.pattern.foreground = color.foreground;
        makeEntityFigures(entity, frame);
    }

    // Entities of the block by its reference's transformation, then the
    // attributes, which stand in the coordinates of the reference itself.
    void walkReference(const NcDbBlockReference& reference, const Inherited& inherited, int depth)
    {
        const DefinitionEntry definition(reference.blockTableRecord());
        if (!definition.entered())
            return;
        const QTransform before = frame_.toWorld;
        frame_.toWorld = flatTransform(reference.blockTransform()) * before;
        for (const EvaluatedEntity& evaluated : evaluatedEntities(reference))
            if (!isFormField(*evaluated.entity))
                walkEntity(*evaluated.entity, inherited, depth + 1);
        frame_.toWorld = before;
        for (const NcDbObjectId& id : HostAccess::attributes(reference)) {
            const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
            if (attribute && !attribute->isErased() && !attribute->isInvisible())
                walkEntity(*attribute, inherited, depth + 1);
        }
    }

    // Definitions of attributes that each reference fills by itself.
    static bool isFormField(const NcDbEntity& entity)
    {
        if (!entity.isKindOf(NcDbAttributeDefinition::desc()))
            return false;
        const auto& definition = static_cast<const NcDbAttributeDefinition&>(entity);
        return !definition.isConstant() || definition.isInvisible();
    }

    void walkViewport(const NcDbViewport& viewport)
    {
        if (inViewport_ || viewport.viewHeight() <= 0.0 || viewport.height() <= 0.0)
            return;
        const QPolygonF border = viewportBorder(viewport);
        const FigureFrame before = frame_;
        frame_.pattern.clip = std::make_shared<const QPolygonF>(border);
        frame_.toWorld = viewportTransform(viewport);
        inViewport_ = true;
        walkSpace(QStringLiteral("*Model_Space"));
        inViewport_ = false;
        frame_ = before;
        frame_.line(border, true);
    }

    static QTransform viewportTransform(const NcDbViewport& viewport)
    {
        const NcGePoint3d target = viewport.viewTarget();
        QTransform toPaper;
        toPaper.translate(viewport.centerPoint().x, viewport.centerPoint().y);
        toPaper.scale(viewport.customScale(), viewport.customScale());
        toPaper.translate(-viewport.viewCenter().x, -viewport.viewCenter().y);
        toPaper.rotateRadians(viewport.twistAngle());
        toPaper.translate(-target.x, -target.y);
        return toPaper;
    }

    QPolygonF viewportBorder(const NcDbViewport& viewport) const
    {
        const auto* clip = HostAccess::objectAs<NcDbPolyline>(HostAccess::clip(viewport));
        if (clip && !clip->isErased() && clip->numVerts() > 2) {
            std::vector<QPointF> points;
            std::vector<double> bulges;
            for (const NcDbPolyline::Vertex& vertex : HostAccess::vertices(*clip)) {
                points.emplace_back(vertex.point.x, vertex.point.y);
                bulges.push_back(vertex.bulge);
            }
            return bulgedLine(points, bulges, true);
        }
        const NcGePoint3d centre = viewport.centerPoint();
        return QPolygonF(QRectF(centre.x - viewport.width() / 2, centre.y - viewport.height() / 2, viewport.width(),
                                viewport.height()));
    }

    const NcDbLayerTableRecord* layerRecord(const QString& name)
    {
        const QString key = name.toUpper();
        if (!layers_.contains(key))
            layers_[key] = HostAccess::objectAs<NcDbLayerTableRecord>(
                HostAccess::recordId(drawing_, HostAccess::data(drawing_).layerTable, name));
        return layers_[key];
    }

    static FigureColor colorOf(const NcDbEntity& entity, const NcDbLayerTableRecord* layer, const Inherited& inherited)
    {
        const NcCmColor own = entity.color();
        if (own.method() == NcCmColor::kByBlock)
            return inherited.layer.isEmpty() ? figureColor(NcCmColor::fromIndex(7)) : inherited.color;
        if (own.method() == NcCmColor::kByLayer)
            return figureColor(layer ? layer->color() : NcCmColor::fromIndex(7));
        return figureColor(own);
    }

    const NcDbDatabase& drawing_;
    FigureFrame frame_;
    QHash<QString, const NcDbLayerTableRecord*> layers_;
    bool inViewport_ = false;
};

} // namespace

FigureColor figureColor(const NcCmColor& color)
{
    if (color.method() == NcCmColor::kByColor)
        return {QColor(color.red(), color.green(), color.blue()), false};
    const int index = color.colorIndex();
    if (color.method() != NcCmColor::kByIndex || index == 7)
        return {QColor(255, 255, 255), true};
    const PaletteColor entry = paletteColor(index);
    return {QColor(entry.red, entry.green, entry.blue), false};
}

bool makeEntityFigures(const NcDbEntity& entity, const FigureFrame& frame)
{
    return makeCurveFigures(entity, frame) || makeTextFigures(entity, frame) || makeHatchFigures(entity, frame)
        || makeTableFigures(entity, frame);
}

namespace {

bool isFinite(const QPointF& p) { return std::isfinite(p.x()) && std::isfinite(p.y()); }

// One point that is no number would take the box, and so the view, of all the rest.
bool isDrawable(const Figure& figure)
{
    return isFinite(figure.box.topLeft()) && isFinite(figure.box.bottomRight())
        && std::all_of(figure.polygons.begin(), figure.polygons.end(),
                       [](const QPolygonF& points) { return std::all_of(points.begin(), points.end(), isFinite); });
}

} // namespace

DisplayList recordDrawing(const NcDbDatabase& drawing, const QString& space)
{
    DisplayList list;
    DrawingWalker(drawing, list).walkSpace(space);
    std::vector<Figure>& figures = list.figures();
    figures.erase(std::remove_if(figures.begin(), figures.end(), [](const Figure& f) { return !isDrawable(f); }),
                  figures.end());
    return list;
}
