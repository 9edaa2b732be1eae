#include "drawing_text.h"

#include <drawing/host_access.h>
#include <dxf/foreign_entity.h>

#include <QLocale>

namespace {

QString number(double value)
{
    return QString::number(value == 0.0 ? 0.0 : value, 'g', QLocale::FloatingPointShortest);
}

QString point(const NcGePoint3d& p) { return QStringLiteral("(%1 %2 %3)").arg(number(p.x), number(p.y), number(p.z)); }

QString vector(const NcGeVector3d& v) { return point({v.x, v.y, v.z}); }

QString color(const NcCmColor& c)
{
    if (c.method() == NcCmColor::kByColor)
        return QStringLiteral("rgb %1 %2 %3").arg(c.red()).arg(c.green()).arg(c.blue());
    return QString::number(c.colorIndex());
}

QString handle(NcDbObjectId id) { return handleText(id.handle()); }

class Lines {
public:
    explicit Lines(const NcDbDatabase& database) : drawing_(HostAccess::data(database)) { }

    QStringList make()
    {
        drawing();
        table(drawing_.layerTable, &Lines::layer);
        table(drawing_.ucsTable, &Lines::ucs);
        table(drawing_.viewportTable, &Lines::view);
        table(drawing_.blockTable, &Lines::block);
        groups();
        return lines_;
    }

private:
    void add(const QString& line) { lines_ << line; }

    void drawing()
    {
        for (const auto& property : drawing_.summary.entries())
            add(QStringLiteral("property %1=%2").arg(property.first, property.second));
        add(QStringLiteral("dim %1 %2").arg(number(drawing_.dimtxt), number(drawing_.dimscale)));
        add(QStringLiteral("current %1 %2").arg(handle(drawing_.currentLayer), handle(drawing_.currentSpace)));
        for (int row = 0; row < 3; ++row)
            add(QStringLiteral("ucs %1 %2 %3 %4")
                    .arg(number(drawing_.ucs.entry[row][0]), number(drawing_.ucs.entry[row][1]),
                         number(drawing_.ucs.entry[row][2]), number(drawing_.ucs.entry[row][3])));
    }

    template <class Method>
    void table(NcDbObjectId id, Method method)
    {
        for (NcDbObjectId record : HostAccess::records(*HostAccess::objectAs<NcDbSymbolTable>(id))) {
            const auto* found = HostAccess::objectAs<NcDbSymbolTableRecord>(record);
            if (found && !found->isErased())
                (this->*method)(*found);
        }
    }

    void layer(const NcDbSymbolTableRecord& record)
    {
        const auto& layer = static_cast<const NcDbLayerTableRecord&>(record);
        add(QStringLiteral("linetype ") + layer.linetype());
        add(QStringLiteral("layer %1 %2 color %3 %4%5%6")
                .arg(handle(layer.objectId()), layer.getName(), color(layer.color()))
                .arg(layer.isLocked())
                .arg(layer.isOff())
                .arg(layer.isFrozen()));
    }

    void ucs(const NcDbSymbolTableRecord& record)
    {
        const auto& ucs = static_cast<const NcDbUCSTableRecord&>(record);
        add(QStringLiteral("ucs %1 %2 ").arg(handle(ucs.objectId()), ucs.getName()) + point(ucs.origin())
            + vector(ucs.xAxis()) + vector(ucs.yAxis()));
    }

    void view(const NcDbSymbolTableRecord& record)
    {
        const auto& view = static_cast<const NcDbViewportTableRecord&>(record);
        NcGePoint3d origin;
        NcGeVector3d x, y;
        view.getUcs(origin, x, y);
        add(QStringLiteral("view %1 %2 ").arg(handle(view.objectId()), view.getName())
            + point({view.centerPoint().x, view.centerPoint().y, 0}) + number(view.height()) + QLatin1Char(' ')
            + number(view.width()) + point(origin) + vector(x) + vector(y));
    }

    void block(const NcDbSymbolTableRecord& record)
    {
        const auto& block = static_cast<const NcDbBlockTableRecord&>(record);
        add(QStringLiteral("block %1 %2 %3 ").arg(handle(block.objectId()), block.getName()).arg(block.isLayout())
            + point(block.origin()));
        if (const DynamicDefinition* definition = HostAccess::dynamic(block).get())
            lines_ += dynamicDefinitionText(*definition);
        // A file holds them from bottom to top.
        const auto* order = HostAccess::objectAs<NcDbSortentsTable>(HostAccess::sortents(block));
        for (NcDbObjectId id : order ? order->getFullDrawOrder() : HostAccess::entities(block)) {
            const auto* found = HostAccess::objectAs<NcDbEntity>(id);
            if (found && !found->isErased())
                entity(*found);
        }
        if (order) {
            for (NcDbObjectId id : order->getFullDrawOrder())
                add(QStringLiteral("order ") + handle(id));
        }
    }

    void groups()
    {
        const auto* dictionary = HostAccess::objectAs<NcDbDictionary>(drawing_.groupDictionary);
        for (const auto& entry : HostAccess::entries(*dictionary)) {
            const auto* group = HostAccess::objectAs<NcDbGroup>(entry.second);
            if (!group || group->isErased() || group->numEntities() == 0)
                continue;
            add(QStringLiteral("group %1 %2 %3").arg(handle(entry.second), entry.first, group->description()));
            for (NcDbObjectId id : group->allEntityIds())
                add(QStringLiteral("member ") + handle(id));
        }
    }

    void entity(const NcDbEntity& entity)
    {
        add(QStringLiteral("%1 %2 layer %3 color %4 visible %5")
                .arg(QLatin1String(entity.isA()->name()), handle(entity.objectId()), entity.layer(),
                     color(entity.color()))
                .arg(entity.isVisible()));
        add(QStringLiteral("linetype ") + entity.linetype());
        for (const auto& xdata : HostAccess::data(entity).xdata) {
            add(QStringLiteral("xdata ") + xdata.first);
            addGroups(xdata.second);
        }
        addGroups(HostAccess::data(entity).foreignGroups);
        simple(entity);
        texts(entity);
        areas(entity);
        references(entity);
    }

    // Kept groups keep their subclass; among themselves they may change places.
    void addGroups(const DxfGroups& groups)
    {
        QStringList sorted;
        QString subclass;
        for (const DxfGroup& group : groups) {
            if (group.code == 100)
                subclass = group.value;
            sorted << QStringLiteral("  %1 group %2 %3").arg(subclass).arg(group.code).arg(group.value.trimmed());
        }
        sorted.sort();
        lines_ += sorted;
    }

    void simple(const NcDbEntity& entity)
    {
        if (const auto* p = as<NcDbPoint>(entity))
            add(point(p->position()));
        if (const auto* line = as<NcDbLine>(entity))
            add(point(line->startPoint()) + point(line->endPoint()));
        if (const auto* circle = as<NcDbCircle>(entity))
            add(point(circle->center()) + vector(circle->normal()) + number(circle->radius()));
        if (const auto* arc = as<NcDbArc>(entity))
            add(point(arc->center()) + number(arc->radius()) + QLatin1Char(' ') + number(arc->startAngle())
                + QLatin1Char(' ') + number(arc->endAngle()));
        if (const auto* polyline = as<NcDbPolyline>(entity)) {
            add(QStringLiteral("closed %1 elevation %2").arg(polyline->isClosed()).arg(number(polyline->elevation())));
            for (const NcDbPolyline::Vertex& v : HostAccess::vertices(*polyline))
                add(point({v.point.x, v.point.y, v.bulge}) + number(v.startWidth) + QLatin1Char(' ')
                    + number(v.endWidth));
        }
        if (const auto* polyline = as<NcDb2dPolyline>(entity)) {
            add(QStringLiteral("closed %1").arg(polyline->isClosed()));
            for (size_t i = 0; i < HostAccess::points(*polyline).size(); ++i)
                add(point(HostAccess::points(*polyline)[i]) + number(HostAccess::bulges(*polyline)[i]));
        }
        if (const auto* foreign = as<NcDbForeignEntity>(entity)) {
            add(foreign->type());
            for (const DxfRecord& part : foreign->parts())
                add(QStringLiteral("part ") + part.type), addGroups(part.groups);
        }
    }

    void mtext(const NcDbMText& text)
    {
        add(text.contents());
        add(point(text.location()) + number(text.textHeight()) + QLatin1Char(' ') + number(text.width())
            + QLatin1Char(' ') + number(text.rotation()));
        add(QStringLiteral("%1 %2 %3 %4")
                .arg(text.attachment())
                .arg(text.backgroundFillOn())
                .arg(text.useBackgroundColorOn())
                .arg(number(text.backgroundScaleFactor())));
    }

    void texts(const NcDbEntity& entity)
    {
        if (const auto* text = as<NcDbMText>(entity))
            mtext(*text);
        if (const auto* text = as<NcDbText>(entity)) {
            add(text->textString());
            add(point(text->position()) + point(text->alignmentPoint()) + number(text->height()) + QLatin1Char(' ')
                + number(text->rotation()) + QLatin1Char(' ') + number(text->widthFactor()));
            add(QStringLiteral("modes %1 %2").arg(text->horizontalMode()).arg(text->verticalMode()));
        }
        if (const auto* definition = as<NcDbAttributeDefinition>(entity))
            add(QStringLiteral("tag %1 %2 %3%4")
                    .arg(definition->tag(), definition->prompt())
                    .arg(definition->isConstant())
                    .arg(definition->isInvisible()));
        if (const auto* attribute = as<NcDbAttribute>(entity)) {
            add(QStringLiteral("tag %1 %2 %3")
                    .arg(attribute->tag())
                    .arg(attribute->isInvisible())
                    .arg(attribute->fieldLength()));
            if (const NcDbMText* text = HostAccess::mtext(*attribute).get())
                mtext(*text);
        }
    }

    void areas(const NcDbEntity& entity)
    {
        if (const auto* hatch = as<NcDbHatch>(entity)) {
            add(vector(hatch->normal()) + number(hatch->elevation()));
            add(QStringLiteral("%1 %2 %3 %4 %5 %6")
                    .arg(hatch->associative())
                    .arg(HostAccess::evaluated(*hatch))
                    .arg(hatch->patternType())
                    .arg(hatch->patternName(), number(hatch->patternScale()))
                    .arg(hatch->hatchStyle()));
            for (const NcDbHatch::Loop& loop : HostAccess::loops(*hatch)) {
                add(QStringLiteral("loop %1").arg(loop.type));
                for (size_t i = 0; i < loop.points.size(); ++i)
                    add(point({loop.points[i].x, loop.points[i].y, loop.bulges[i]}));
            }
        }
        if (const auto* viewport = as<NcDbViewport>(entity))
            window(*viewport);
        if (const auto* table = as<NcDbTable>(entity))
            cells(*table);
    }

    void window(const NcDbViewport& viewport)
    {
        NcGePoint3d origin;
        NcGeVector3d x, y;
        viewport.getUcs(origin, x, y);
        add(point(viewport.centerPoint()) + point({viewport.width(), viewport.height(), viewport.twistAngle()})
            + point({viewport.viewCenter().x, viewport.viewCenter().y, viewport.viewHeight()})
            + point(viewport.viewTarget()) + vector(viewport.viewDirection()) + point(origin) + vector(x) + vector(y)
            + handle(viewport.nonRectClipEntityId()));
    }

    void cells(const NcDbTable& table)
    {
        add(QStringLiteral("table %1 x %2 ").arg(table.numRows()).arg(table.numColumns()) + point(table.position())
            + vector(table.direction()));
        for (int row = 0; row < table.numRows(); ++row)
            add(QStringLiteral("row ") + number(table.rowHeight(row)));
        for (int column = 0; column < table.numColumns(); ++column)
            add(QStringLiteral("column ") + number(table.columnWidth(column)));
        for (const NcDbTable::Cell& cell : HostAccess::cells(table))
            add(QStringLiteral("cell %1 %2 %3 %4 %5")
                    .arg(cell.text, number(cell.textHeight))
                    .arg(cell.alignment)
                    .arg(cell.hasBackground)
                    .arg(cell.hasBackground ? color(cell.background) : QString()));
        for (const auto& merge : HostAccess::merges(table))
            add(QStringLiteral("merge %1 %2 %3 %4")
                    .arg(merge.minRow)
                    .arg(merge.maxRow)
                    .arg(merge.minColumn)
                    .arg(merge.maxColumn));
    }

    void references(const NcDbEntity& entity)
    {
        const auto* reference = as<NcDbBlockReference>(entity);
        if (!reference)
            return;
        const NcScale3d scale = reference->scaleFactors();
        add(QStringLiteral("of ") + handle(reference->blockTableRecord()) + point(reference->position())
            + number(reference->rotation()) + point({scale.sx, scale.sy, scale.sz}) + vector(reference->normal()));
        for (const auto& value : HostAccess::dynamicValues(*reference))
            add(value.first + QLatin1Char('=') + value.second);
        for (NcDbObjectId id : HostAccess::attributes(*reference)) {
            const auto* attribute = HostAccess::objectAs<NcDbAttribute>(id);
            if (attribute && !attribute->isErased())
                this->entity(*attribute);
        }
    }

    template <class Class>
    static const Class* as(const NcDbEntity& entity)
    {
        return entity.isKindOf(Class::desc()) ? static_cast<const Class*>(&entity) : nullptr;
    }

    const NcDatabaseData& drawing_;
    QStringList lines_;
};

} // namespace

QStringList drawingLines(const NcDbDatabase& database) { return Lines(database).make(); }

QString firstDifference(const QStringList& expected, const QStringList& found)
{
    for (int i = 0; i < std::max(expected.size(), found.size()); ++i) {
        const QString one = expected.value(i, QStringLiteral("<end>")), other = found.value(i, QStringLiteral("<end>"));
        if (one == other)
            continue;
        const QStringList before = expected.mid(std::max(0, i - 6), std::min(i, 6));
        return QStringLiteral("line %1, after\n  %2\nexpected %3\nfound    %4")
            .arg(i)
            .arg(before.join(QLatin1String("\n  ")), one, other);
    }
    return {};
}
