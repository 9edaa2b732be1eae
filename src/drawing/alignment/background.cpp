#include "drawing/alignment/background.h"

#include "base/placeholders.h"
#include "hostkit/console.h"
#include "hostkit/layers.h"
#include "hostkit/symbol_tables.h"

namespace {

constexpr int colorByLayer = 256;

QString linetypeOfLayer(const QString& name)
{
    const auto layer = openRecord<NcDbLayerTableRecord, NcDbLayerTable>(name, kForRead);
    return layer ? layer->linetype() : QString();
}

void flatten(NcDbObjectId id, const QString& layer)
{
    const Unlocked<NcDbEntity> entity(id);
    if (!entity)
        return;
    // Before the layer changes, or the line would look like the new one's.
    if (entity->linetype().compare(QLatin1String("ByLayer"), Qt::CaseInsensitive) == 0)
        entity->setLinetype(linetypeOfLayer(entity->layer()));
    entity->setColorIndex(colorByLayer);
    entity->setLayer(layer, true, true);
    if (entity->isKindOf(NcDbPolyline::desc()))
        static_cast<NcDbPolyline&>(*entity).setConstantWidth(0.0);
}

bool isSpaceOrForeign(const QString& block)
{
    const QString name = block.toUpper();
    return name == QLatin1String("*MODEL_SPACE") || name == QLatin1String("*PAPER_SPACE")
        || name.contains(QLatin1Char('|'));
}

// False for a block that is not touched.
bool flattenBlock(NcDbObjectId id, const QString& layer)
{
    NcDbObjectIdArray entities;
    {
        const Opened<NcDbBlockTableRecord> block(id, kForRead);
        if (!block || isSpaceOrForeign(block->getName()))
            return false;
        entities = entityIds(*block);
    }
    for (const NcDbObjectId& entity : entities)
        flatten(entity, layer);
    return true;
}

std::optional<NcDbObjectIdArray> blockRecords()
{
    const Opened<NcDbBlockTable> table = openTable<NcDbBlockTable>(kForRead);
    if (!table)
        return {};
    return recordIds(*table);
}

// False when the user ended it.
bool flattenBlocks(const NcDbObjectIdArray& blocks, const QString& layer, const WorkProgress& progress)
{
    int seen = 0, done = 0;
    bool going = true;
    for (const NcDbObjectId& block : blocks) {
        going = progress(seen++, int(blocks.size()));
        if (!going)
            break;
        done += flattenBlock(block, layer) ? 1 : 0;
    }
    say(fill("\nБлоков: %1\n", done));
    return going;
}

void flattenPlan(const NcDbObjectIdArray& entities, const QString& layer, const WorkProgress& progress)
{
    int done = 0;
    for (const NcDbObjectId& entity : entities) {
        if (!progress(done++, int(entities.size())))
            return;
        flatten(entity, layer);
    }
}

} // namespace

void prepareBackground(const QString& layer, const WorkStage& begin)
{
    const std::optional<NcDbObjectIdArray> blocks = blockRecords();
    if (!blocks)
        return say(QStringLiteral("Не удалось получить таблицу блоков.\n"));
    say(fill("Количество блоков: %1\n", blocks->size()));
    if (!flattenBlocks(*blocks, layer, begin(QStringLiteral("Обработка блоков..."))))
        return;
    const std::optional<NcDbObjectIdArray> entities = entitiesOfModelSpace();
    if (!entities)
        return say(modelSpaceError());
    flattenPlan(*entities, layer, begin(QStringLiteral("Обработка элементов плана...")));
}
