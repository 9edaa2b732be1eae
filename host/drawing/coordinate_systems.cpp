// The user coordinate system of the active drawing and its views.
#include "application.h"
#include "host_access.h"

#include <cmath>

namespace {

NcDatabaseData* activeDrawing()
{
    NcDbDatabase* database = ncdbHostApplicationServices()->workingDatabase();
    return database ? &HostAccess::data(*database) : nullptr;
}

bool isUsable(const NcGeMatrix3d& matrix)
{
    const double determinant = matrix.det();
    return determinant != 0.0 && std::isfinite(determinant);
}

bool transform(const NcGeMatrix3d& matrix, const NcGePoint3d& from, NcGePoint3d& to, bool isVector)
{
    if (!std::isfinite(from.x) || !std::isfinite(from.y) || !std::isfinite(from.z) || !isUsable(matrix))
        return false;
    if (isVector) {
        const NcGeVector3d turned = matrix * from.asVector();
        to = {turned.x, turned.y, turned.z};
    } else {
        to = matrix * from;
    }
    return true;
}

NcDbViewportTableRecord* activeView(NcDatabaseData& drawing)
{
    const auto* table = HostAccess::objectAs<NcDbSymbolTable>(drawing.viewportTable);
    NcDbObjectId id;
    return table && isOk(table->getAt(QStringLiteral("*Active"), id))
        ? HostAccess::objectAs<NcDbViewportTableRecord>(id)
        : nullptr;
}

} // namespace

NcStatus ncedGetCurrentUCS(NcGeMatrix3d& matrix)
{
    const NcDatabaseData* drawing = activeDrawing();
    if (!drawing)
        return NcStatus::NotInDatabase;
    matrix = drawing->ucs;
    return NcStatus::Ok;
}

NcStatus ncedSetCurrentUCS(const NcGeMatrix3d& matrix)
{
    NcDatabaseData* drawing = activeDrawing();
    if (!drawing)
        return NcStatus::NotInDatabase;
    if (!isUsable(matrix))
        return NcStatus::InvalidInput;
    HostAccess::noteDrawing(*ncdbHostApplicationServices()->workingDatabase());
    drawing->ucs = matrix;
    ++drawing->changeCount;
    emit HostEvents::instance()->viewChanged();
    return NcStatus::Ok;
}

bool ncdbUcs2Wcs(const NcGePoint3d& from, NcGePoint3d& to, bool isVector)
{
    const NcDatabaseData* drawing = activeDrawing();
    return drawing && transform(drawing->ucs, from, to, isVector);
}

bool ncdbWcs2Ucs(const NcGePoint3d& from, NcGePoint3d& to, bool isVector)
{
    const NcDatabaseData* drawing = activeDrawing();
    return drawing && isUsable(drawing->ucs) && transform(drawing->ucs.inverse(), from, to, isVector);
}

NcStatus ncedVports2VportTableRecords()
{
    NcDatabaseData* drawing = activeDrawing();
    NcDbViewportTableRecord* view = drawing ? activeView(*drawing) : nullptr;
    if (!view)
        return NcStatus::NotFound;
    NcGeVector3d z;
    drawing->ucs.getCoordSystem(HostAccess::ucsOrigin(*view), HostAccess::ucsX(*view), HostAccess::ucsY(*view), z);
    HostAccess::touch(*view);
    return NcStatus::Ok;
}

NcStatus ncedVportTableRecords2Vports()
{
    NcDatabaseData* drawing = activeDrawing();
    const NcDbViewportTableRecord* view = drawing ? activeView(*drawing) : nullptr;
    if (!view)
        return NcStatus::NotFound;
    NcGePoint3d origin;
    NcGeVector3d x, y;
    view->getUcs(origin, x, y);
    NcGeMatrix3d ucs;
    const NcGeVector3d z = x.crossProduct(y).normal();
    return ncedSetCurrentUCS(ucs.setCoordSystem(origin, x.normal(), z.crossProduct(x.normal()), z));
}

NcDbObjectId ncedGetCurViewportObjectId()
{
    const NcDatabaseData* drawing = activeDrawing();
    return drawing && HostAccess::isLiving(drawing->currentViewport) ? drawing->currentViewport : NcDbObjectId();
}

void setCurrentViewport(NcDbDatabase& database, NcDbObjectId viewport)
{
    HostAccess::noteDrawing(database);
    HostAccess::data(database).currentViewport = viewport;
    emit HostEvents::instance()->viewChanged();
}
