// Windows of a layout onto model space.
#include "entity_codec.h"

namespace {

// Bits of the status: bounded by an entity instead of the rectangle.
constexpr int kClipped = 0x10000;

std::unique_ptr<NcDbEntity> readViewport(DxfEntityFields& fields, DxfReadContext& context, const DxfEntity&)
{
    auto viewport = std::make_unique<NcDbViewport>();
    fields.enter("AcDbViewport");
    HostAccess::center(*viewport) = fields.point(10);
    HostAccess::width(*viewport) = fields.real(40);
    HostAccess::height(*viewport) = fields.real(41);
    const NcGePoint3d center = fields.point(12);
    HostAccess::viewCenter(*viewport) = {center.x, center.y};
    HostAccess::viewDirection(*viewport) = fields.vector(16, {0, 0, 1});
    HostAccess::viewTarget(*viewport) = fields.point(17);
    HostAccess::viewHeight(*viewport) = fields.real(45);
    HostAccess::twist(*viewport) = fields.angle(51);
    fields.drop(68, 1);
    fields.drop(69, 2);
    fields.drop(42, 50);
    fields.drop(71, 1);
    fields.flags(90, kClipped);
    const quint64 clip = fields.handle(340);
    if (clip)
        HostAccess::clip(*viewport) = NcDbObjectId(&context.database, clip);
    HostAccess::ucsOrigin(*viewport) = fields.point(110);
    HostAccess::ucsX(*viewport) = fields.vector(111, {1, 0, 0});
    HostAccess::ucsY(*viewport) = fields.vector(112, {0, 1, 0});
    return viewport;
}

// What a new window has; of one that was read what it had.
void writeKeptOr(int code, const QString& fallback, DxfRecordWriter& record)
{
    record.groups({{code, record.takeKept(code).value_or(fallback)}});
}

void writeViewport(const NcDbEntity& entity, DxfRecordWriter& record, DxfWriteContext&)
{
    const auto& viewport = as<NcDbViewport>(entity);
    const bool clipped = viewport.isNonRectClipOn() && !viewport.nonRectClipEntityId().isErased();
    record.subclass("AcDbViewport");
    record.point(10, viewport.centerPoint());
    record.real(40, viewport.width());
    record.real(41, viewport.height());
    writeKeptOr(68, QStringLiteral("1"), record);
    writeKeptOr(69, QStringLiteral("2"), record);
    record.point2d(12, viewport.viewCenter().x, viewport.viewCenter().y);
    record.vector(16, viewport.viewDirection());
    record.point(17, viewport.viewTarget());
    writeKeptOr(42, QStringLiteral("50.0"), record);
    record.real(45, viewport.viewHeight());
    record.angle(51, viewport.twistAngle());
    record.flags(90, clipped ? kClipped : 0, kClipped);
    if (clipped)
        record.handle(340, viewport.nonRectClipEntityId().handle());
    NcGePoint3d origin;
    NcGeVector3d x, y;
    viewport.getUcs(origin, x, y);
    writeKeptOr(71, QStringLiteral("1"), record);
    record.point(110, origin);
    record.vector(111, x);
    record.vector(112, y);
}

} // namespace

std::vector<EntityCodec> viewportCodecs() { return {{"VIEWPORT", NcDbViewport::desc, readViewport, writeViewport}}; }
