#include "drawing/alignment/alignment.h"

#include "base/placeholders.h"
#include "drawing/alignment/alignment_scope.h"
#include "drawing/alignment/element_blocks.h"
#include "drawing/alignment/element_turn.h"
#include "drawing/alignment/viewport_frame.h"
#include "geometry/polygon.h"
#include "hostkit/console.h"
#include "hostkit/model_space.h"
#include "hostkit/user_system.h"

#include <nrx/editor.h>

#include <functional>

namespace {

using Wanted = std::function<bool(const ElementBlock&)>;

void turnBlocks(const NcDbObjectIdArray& ids, const ElementTurn& turn, const Wanted& wanted)
{
    for (const NcDbObjectId& id : ids) {
        ElementBlock element = elementOf(id);
        if (element.kind == noKind || !wanted(element))
            continue;
        turnElement(element, turn);
        if (!element.applyToBlock(id))
            say(fill("\nОшибка: блок %1 с ID=%2 не повернут\n", element.blockName, element.elementId()));
    }
}

void alignToCurrentUcs(ElementTurn::Marker marker)
{
    const std::optional<AlignmentScope> scope = askAlignmentScope();
    if (!scope)
        return;
    const std::optional<NcDbObjectIdArray> entities = entitiesOfModelSpace();
    if (!entities)
        return say(modelSpaceError());
    turnBlocks(*entities, {userSystemAngle(), marker, 1.0},
               [&](const ElementBlock& element) { return scope->contains(element); });
}

// The sheet itself is worked on, not model space and not a window onto it.
bool isOnSheet()
{
    QString modelTab, viewport;
    return ncedGetVar(QStringLiteral("TILEMODE"), modelTab) && modelTab == QLatin1String("0")
        && ncedGetVar(QStringLiteral("CVPORT"), viewport) && viewport == QLatin1String("1");
}

} // namespace

void alignByUcs() { alignToCurrentUcs(ElementTurn::Marker::Align); }

void alignLabelsByUcs() { alignToCurrentUcs(ElementTurn::Marker::Keep); }

void alignByViewport()
{
    if (!isOnSheet())
        return say(QStringLiteral("\n Необходимо переключиться в пространство листа."));
    const std::optional<ViewportFrame> frame = askViewportFrame();
    if (!frame)
        return;
    const std::optional<AlignmentScope> scope = askAlignmentScope();
    if (!scope)
        return;
    const std::optional<NcDbObjectIdArray> entities = entitiesOfModelSpace();
    if (!entities)
        return say(QStringLiteral("\nОшибка открытия пространства модели"));
    turnBlocks(*entities, {frame->angle, ElementTurn::Marker::Align, frame->scale}, [&](const ElementBlock& element) {
        return scope->contains(element) && geometry::pointInPolygon({element.x, element.y, 0.0}, frame->boundary);
    });
}
