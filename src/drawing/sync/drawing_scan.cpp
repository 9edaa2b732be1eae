#include "drawing/sync/drawing_scan.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "drawing/sync/family_texts.h"
#include "hostkit/block_reference.h"
#include "hostkit/console.h"
#include "hostkit/error_markers.h"
#include "hostkit/model_space.h"
#include "session/project_session.h"

namespace {

NcGePoint3d placeOf(NcDbObjectId id)
{
    const Opened<NcDbBlockReference> reference(id, kForRead);
    return reference ? reference->position() : NcGePoint3d();
}

// Tells which block it is and where it lies, so that the user can mend it.
void refuse(NcDbObjectId reference)
{
    const NcGePoint3d place = placeOf(reference);
    say(fill("\nОшибка: блок без числового element_id: '%1' X:%2 Y:%3 Z:%4\n", definitionNameOf(reference),
             fixed(place.x, 3), fixed(place.y, 3), fixed(place.z, 3)));
}

void report(const ElementBlock& block, const QString& message, ErrorMarker marker)
{
    say(message);
    addErrorMarker(marker, {block.x, block.y, block.z});
}

} // namespace

bool DrawingScan::run()
{
    clearErrorLayer();
    if (!loadRows(rows_, session().currentPositionId)) {
        say("\nОшибка: не удалось прочитать элементы из базы данных\n");
        return false;
    }
    colors_ = readStateColors();
    say("\nАнализ чертежа:\n");
    // The list is taken first: markers are added to model space on the way.
    const std::optional<NcDbObjectIdArray> entities = entitiesOfModelSpace();
    if (!entities) {
        say(modelSpaceError());
        return false;
    }
    for (const NcDbObjectId& id : *entities) {
        if (isBlockReference(id) && !look(id)) {
            refuse(id);
            return false;
        }
    }
    return true;
}

// False for a block whose id is no number.
bool DrawingScan::look(NcDbObjectId reference)
{
    ElementBlock block(reference, colors_);
    bool rowKnown = true;
    if (session().connected) {
        if (!block.elementKey())
            return false;
        rowKnown = takeRowName(block);
    }
    const Family* family = block.family();
    if (!family)
        return true;
    const std::optional<int> id = block.elementKey();
    if (!id)
        return false;
    process(block, *id, *family, rowKnown);
    return true;
}

// The database owns the name: from here on the block goes by its row's.
bool DrawingScan::takeRowName(ElementBlock& block) const
{
    ElementBlock row(block.kind, colors_);
    if (!row.loadFromDatabase(block.elementId()))
        return false;
    if (row.hasAttribute(QStringLiteral("name")))
        block.setAttribute(QStringLiteral("name"), row.name());
    return true;
}

void DrawingScan::process(ElementBlock& block, int id, const Family& family, bool rowKnown)
{
    FamilyRows& rows = rows_[family.key];
    const AuditTexts& texts = auditTexts(family.key);
    rows.metIds.insert(id);
    if (rows.allIds.count(id) == 0)
        report(block, fill(texts.notInDatabase, id), ErrorMarker::NotInDatabase);
    else if (mode_ == SyncMode::Position && rows.positionIds.count(id) == 0)
        report(block, fill(texts.notInPosition, id), ErrorMarker::NotInPosition);
    else if (mode_ != SyncMode::File)
        write(block, id, family, rowKnown);
}

void DrawingScan::write(ElementBlock& block, int id, const Family& family, bool rowKnown)
{
    FamilyRows& rows = rows_[family.key];
    const QString name = block.name();
    if (rows.seenIds.count(id) != 0) {
        report(block, fill(duplicateIdText(family.key, mode_), id), ErrorMarker::IdDuplicate);
        return;
    }
    // Without its row a block's name says nothing of the row's: it is neither
    // written nor taken for another's. The next run does it.
    if (rowKnown && rows.seenNames.contains(name)) {
        report(block, fill(auditTexts(family.key).duplicateName, name), ErrorMarker::NameDuplicate);
        return;
    }
    rows.seenIds.insert(id);
    QString refusal;
    bool written = false;
    if (rowKnown) {
        rows.seenNames.insert(name);
        written = block.updateRow(&refusal);
    }
    if (!written)
        refused_.add(refusal);
    say(fill("Обрабатываем блок %1 \n", name));
}
