#include "drawing/sync/database_to_drawing.h"

#include "drawing/sync/row_comparator.h"
#include "drawing/sync/row_statement.h"
#include "elements/block_definitions.h"
#include "elements/element_layers.h"
#include "hostkit/console.h"
#include "hostkit/error_markers.h"

void syncDatabaseToDrawing(int id, SyncLevel level, unsigned mask)
{
    say("Инициальзация слоев ГМН\n");
    ensureLayers();
    if (!session().checkConnection()) {
        say("Не установлено соединение с базой данных\n");
        return;
    }
    say("Инициальзация блоков ГМН\n");
    ensureBlockDefinitions();
    const StateColors colors = readStateColors();
    for (const FamilyKey key : {FamilyKey::Dm, FamilyKey::Ts, FamilyKey::Rp, FamilyKey::Tss, FamilyKey::Ggs,
                                FamilyKey::Tsg, FamilyKey::Igs}) {
        const Family& family = ::family(key);
        if ((mask & family.mask) == 0)
            continue;
        say(rowTexts(key).heading);
        bringRows(family, session().run(rowStatement(family, id, level)), colors);
    }
}

void syncPositionToDrawing()
{
    clearErrorLayer();
    syncDatabaseToDrawing(session().currentPositionId, SyncLevel::Position, allFamiliesMask);
}
