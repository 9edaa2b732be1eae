// The clipboard of drawings: a drawing of its own, so that what was copied can be
// put into another one.
#include "host_commands.h"

#include <drawing/application.h>
#include <drawing/edit_operations.h>

#include <nrx/database.h>

namespace {

struct Clipboard {
    std::unique_ptr<NcDbDatabase> drawing;
    NcGePoint3d base; // lower left corner of what was copied
};

Clipboard& clipboard()
{
    static Clipboard board;
    return board;
}

bool toClipboard(NcDbObjectIdArray& ids)
{
    if (!askObjects(ids))
        return false;
    auto board = std::make_unique<NcDbDatabase>();
    NcDbIdMapping mapping;
    if (!isOk(board->wblockCloneObjects(ids, board->currentSpaceId(), mapping, NcDbDatabase::kIgnoreDuplicates)))
        return false;
    const auto box = extentsOf(ids);
    clipboard().base = box ? box->min : NcGePoint3d();
    clipboard().drawing = std::move(board);
    return true;
}

void copyClip()
{
    NcDbObjectIdArray ids;
    if (toClipboard(ids))
        sayLine(QStringLiteral("Скопировано объектов: ") + QString::number(ids.size()));
}

void cutClip()
{
    NcDbObjectIdArray ids;
    if (!toClipboard(ids))
        return;
    setPickfirst({});
    sayLine(QStringLiteral("Вырезано объектов: ") + QString::number(eraseEntities(ids)));
}

void paste(const NcGeMatrix3d& place)
{
    const NcDbObjectIdArray held = livingEntities(*clipboard().drawing);
    NcDbDatabase& drawing = *currentDrawing();
    NcDbIdMapping mapping;
    if (!isOk(drawing.wblockCloneObjects(held, drawing.currentSpaceId(), mapping, NcDbDatabase::kIgnoreDuplicates)))
        return sayLine(QStringLiteral("Вставить не удалось."));
    NcDbObjectIdArray copies;
    for (NcDbObjectId id : held)
        if (const NcDbObjectId copy = mapping.cloneOf(id); !copy.isNull())
            copies.push_back(copy);
    transformEntities(copies, place);
    setPickfirst(copies);
    sayLine(QStringLiteral("Вставлено объектов: ") + QString::number(copies.size()));
}

void pasteClip()
{
    NcGePoint3d at;
    if (!currentDrawing())
        return;
    if (!clipboard().drawing)
        return sayLine(QStringLiteral("Буфер обмена пуст."));
    const NcGePoint3d base = clipboard().base;
    const auto placing = [base](const NcGePoint3d& p) { return NcGeMatrix3d::translation(p - base); };
    const FollowedEntities followed(livingEntities(*clipboard().drawing), placing);
    if (askPoint(QStringLiteral("\nТочка вставки: "), at))
        paste(placing(at));
}

void pasteOriginal()
{
    if (!currentDrawing())
        return;
    if (!clipboard().drawing)
        return sayLine(QStringLiteral("Буфер обмена пуст."));
    paste({});
}

} // namespace

const std::vector<HostCommandRow>& clipboardCommands()
{
    static const std::vector<HostCommandRow> rows = {
        {"COPYCLIP", copyClip, "БУФКОПИРОВАТЬ", 0},
        {"CUTCLIP", cutClip, "БУФВЫРЕЗАТЬ", 0},
        {"PASTECLIP", pasteClip, "БУФВСТАВИТЬ", 0},
        {"PASTEORIG", pasteOriginal, "БУФНАМЕСТО", 0},
    };
    return rows;
}
