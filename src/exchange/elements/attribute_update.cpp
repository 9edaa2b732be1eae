#include "exchange/elements/attribute_update.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "exchange/elements/element_change.h"
#include "hostkit/console.h"
#include "session/project_session.h"

bool BaseElements::load()
{
    byName_.clear();
    positions_.clear();
    enum Column { Id, Type, Position, Name, X, Y, Z, Height, Rotation, PositionName };
    QVector<Statement> ofFamilies;
    for (const Family& family : families())
        ofFamilies << compose(
            "select element_id, type_id, position_id, element_name, x, y, z, h, marker_rotation from %1",
            Identifier(family.elements));
    const sql::Result rows =
        session().run(compose("select el_union.*, position from (%1) as el_union join positions using (position_id)",
                              joined(ofFamilies, " union all ")));
    for (int i = 0; i < rows.ntuples(); ++i) {
        KnownElement element;
        element.id = rows.toInt(i, Id);
        element.typeId = rows.getvalue(i, Type);
        element.positionId = rows.toInt(i, Position);
        element.name = rows.getvalue(i, Name);
        element.x = rows.toDouble(i, X);
        element.y = rows.toDouble(i, Y);
        element.z = rows.toDouble(i, Z);
        element.h = rows.toDouble(i, Height);
        element.rotation = rows.toDouble(i, Rotation);
        element.position = rows.getvalue(i, PositionName);
        byName_[element.name].append(element);
    }
    const sql::Result positions = session().run("select position_id, position from positions");
    for (int i = 0; i < positions.ntuples(); ++i)
        positions_.insert(positions.getvalue(i, 1), positions.toInt(i, 0));
    return rows.isTuples() && positions.isTuples();
}

UpdateState updateState(const ElementRecord& record, const BaseElements& base)
{
    const int rows = base.named(record.name).size();
    if (record.name.isEmpty() || rows == 0)
        return UpdateState::NoName;
    if (rows > 1)
        return UpdateState::DuplicateName;
    const bool positionLacks = !record.position.isEmpty() && base.positionId(record.position) == -1;
    return positionLacks ? UpdateState::NoPosition : UpdateState::Ok;
}

int updateElements(const QVector<ElementRecord>& records, const BaseElements& base,
                   const ElementImportProgress& progress)
{
    const StateColors colors = readStateColors();
    int changed = 0;
    for (int i = 0; i < records.size(); ++i) {
        if (progress && !progress(i, records.size()))
            break;
        const ElementRecord& record = records[i];
        if (updateState(record, base) != UpdateState::Ok)
            continue;
        const KnownElement known = base.named(record.name).first();
        if (!changeElement(known.typeId, known.id, record, true, base.positionId(record.position), colors)) {
            say(fill("\nОшибка: элемент %1 не записан в базу данных: %2", record.name,
                     session().connection.errorMessage().trimmed()));
            continue;
        }
        ++changed;
        say(fill("Обновлен элемент %1  (ID %2)", record.name, known.id));
    }
    return changed;
}
