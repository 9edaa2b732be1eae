#include "drawing/alignment/viewport_frame.h"

#include "hostkit/console.h"
#include "hostkit/opened.h"
#include "hostkit/user_system.h"

#include <nrx/editor.h>

#include <cmath>

namespace {

using Corners = std::vector<NcGePoint3d>;

Corners corners(const NcDbViewport& viewport)
{
    const NcGePoint3d centre = viewport.centerPoint();
    const double w = viewport.width() / 2.0;
    const double h = viewport.height() / 2.0;
    return {centre + NcGeVector3d(-w, -h, 0.0), centre + NcGeVector3d(w, -h, 0.0), centre + NcGeVector3d(w, h, 0.0),
            centre + NcGeVector3d(-w, h, 0.0)};
}

// Nothing when the entity is no polyline.
std::optional<Corners> corners(NcDbObjectId clip)
{
    const Opened<NcDbPolyline> line(clip, kForRead);
    if (!line)
        return {};
    Corners found;
    for (int i = 0; i < line->numVerts(); ++i) {
        NcGePoint3d vertex;
        line->getPointAt(i, vertex);
        found.push_back(vertex);
    }
    return found;
}

// Empty when the corners do not span an area that can be told.
geometry::PointList inModel(const NcDbViewport& viewport, const Corners& onSheet)
{
    const std::optional<NcGeMatrix3d> way = sheetToModel(viewport);
    geometry::PointList boundary;
    for (const NcGePoint3d& corner : onSheet) {
        if (!way)
            return {};
        const NcGePoint3d p = *way * corner;
        boundary.push_back({p.x, p.y, 0.0});
        if (!geometry::isFinite(boundary.back()))
            return {};
    }
    return boundary.size() < 3 ? geometry::PointList() : boundary;
}

std::optional<ViewportFrame> frameOf(const NcDbViewport& viewport)
{
    const std::optional<Corners> onSheet =
        viewport.isNonRectClipOn() ? corners(viewport.nonRectClipEntityId()) : corners(viewport);
    if (!onSheet) {
        say(QStringLiteral("\n Данный тип граници не поддерживается."));
        return {};
    }
    ViewportFrame frame;
    frame.boundary = inModel(viewport, *onSheet);
    if (frame.boundary.empty()) {
        say(QStringLiteral("\nОшибка при вычислении координат границы."));
        return {};
    }
    NcGePoint3d origin;
    NcGeVector3d x, y;
    viewport.getUcs(origin, x, y);
    frame.angle = planAngle(x);
    frame.scale = viewport.customScale();
    return frame;
}

} // namespace

// The sheet's point, seen from the viewport's centre and in units of the model,
// lies in the plane of the view; the view's plane stands on the target, across
// the direction of view, turned back by the twist.
std::optional<NcGeMatrix3d> sheetToModel(const NcDbViewport& viewport)
{
    const double scale = viewport.customScale();
    const NcGeVector3d direction = viewport.viewDirection();
    const bool seesNothing = !(viewport.viewHeight() > 0.0) || !(viewport.width() > 0.0) || !(viewport.height() > 0.0);
    if (seesNothing || !std::isfinite(scale) || !(direction.length() > 0.0))
        return {};
    const NcGePoint2d seen = viewport.viewCenter();
    const NcGeVector3d fromCentre = -viewport.centerPoint().asVector();
    const NcGeMatrix3d inView = NcGeMatrix3d::translation({seen.x, seen.y, 0.0}) * NcGeMatrix3d::scaling(1.0 / scale)
        * NcGeMatrix3d::translation(fromCentre);
    NcGeMatrix3d toPlane;
    toPlane.setToWorldToPlane(direction);
    const NcGePoint3d target = viewport.viewTarget();
    return NcGeMatrix3d::rotation(-viewport.twistAngle(), direction, target)
        * NcGeMatrix3d::translation(target.asVector()) * toPlane.inverse() * inView;
}

std::optional<ViewportFrame> askViewportFrame()
{
    NcSelectionName name;
    NcGePoint3d picked;
    NcDbObjectId id;
    const bool answered = ncedEntSel(QStringLiteral("\nУкажите видовой экран"), name, picked) == kPromptNormal
        && isOk(ncdbGetObjectId(id, name));
    const Opened<NcDbViewport> viewport = answered ? Opened<NcDbViewport>(id, kForRead) : Opened<NcDbViewport>();
    if (!viewport) {
        // Users know the message in this spelling.
        say(QStringLiteral("\nОшибка быбора"));
        return {};
    }
    return frameOf(*viewport);
}
