#include "elements/inspections/inspection_record.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <QBuffer>

namespace {

// What the record holds of a column: a finding is always 0 or 1.
QString valueOf(const InspectionColumn& column, const QString& stored)
{
    return column.kind == InspectionKind::Finding ? QString::number(int(stored.toDouble() != 0.0)) : stored;
}

QString startOf(const InspectionColumn& column)
{
    switch (column.kind) {
    case InspectionKind::Note: return {};
    case InspectionKind::State: return session().defaultState;
    case InspectionKind::Finding:
    case InspectionKind::Number: break;
    }
    return QStringLiteral("0");
}

} // namespace

InspectionRecord::InspectionRecord(const InspectionFamily& family) : family_(&family)
{
    for (const InspectionColumn& column : family.columns)
        values.append(startOf(column));
}

void InspectionRecord::setPhoto(const QPixmap& photo)
{
    photo_ = photo;
    png_.clear();
}

QString InspectionRecord::cycleName() const
{
    enum CycleField { CycleNumber, Description = 3 };
    const QStringList cycle = session().cycles.value(cycleId);
    return fill("Цикл %1 %2", cycle.value(CycleNumber), cycle.value(Description)).trimmed();
}

QString InspectionRecord::questionText() const { return fill(family_->question, elementName, cycleName()); }

void InspectionRecord::setElement(int id)
{
    elementId = id;
    elementName =
        session()
            .run(compose("select element_name from %1 where element_id=%2", Identifier(family_->tables().elements), id))
            .getvalue(0, 0);
}

bool InspectionRecord::load(int id)
{
    const sql::Result row = session().run(compose(family_->select, id));
    if (!row.hasRow())
        return false;
    take(row, 0);
    setElement(elementId);
    loadPhoto();
    return true;
}

void InspectionRecord::take(const sql::Result& rows, int row)
{
    inspectId = rows.toInt(row, InspectionFamily::InspectId);
    elementId = rows.toInt(row, InspectionFamily::ElementId);
    cycleId = rows.isNull(row, InspectionFamily::CycleId) ? -1 : rows.toInt(row, InspectionFamily::CycleId);
    for (int i = 0; i < family_->columns.size(); ++i)
        values[i] = valueOf(family_->columns[i], rows.getvalue(row, InspectionFamily::FirstValue + i));
}

void InspectionRecord::loadPhoto()
{
    const sql::Result row = session().run(
        compose("select photos from %1 where inspect_id=$1::integer", Identifier(family_->tables().inspections)),
        {sql::text(inspectId)}, sql::Format::Binary);
    QPixmap photo;
    photo.loadFromData(row.bytes(0, 0), "PNG");
    setPhoto(photo);
}

int InspectionRecord::storedIn(int cycle) const
{
    enum Column { CycleId, InspectId };
    const sql::Result row =
        session().run(compose("select cycle_id,inspect_id from %3 where cycle_id=%1 and element_id=%2", cycle,
                              elementId, Identifier(family_->tables().inspections)));
    return row.hasRow() ? row.toInt(0, InspectId) : -1;
}

bool InspectionRecord::insert()
{
    const sql::Result added =
        session().run(compose(family_->insert, QVector<StatementValue>{elementId, cycleId} + entered(values)));
    if (!added.hasRow())
        return false;
    inspectId = added.toInt(0, 0);
    storePhoto();
    return true;
}

bool InspectionRecord::update()
{
    QVector<StatementValue> all = QVector<StatementValue>{elementId, cycleId} + entered(values);
    all.insert(family_->keyPlace - 1, inspectId);
    if (!session().run(compose(family_->update, all)).isCommand())
        return false;
    storePhoto();
    return true;
}

void InspectionRecord::storePhoto()
{
    if (photo_.isNull() || inspectId == -1)
        return;
    if (png_.isEmpty()) {
        QBuffer buffer(&png_);
        buffer.open(QIODevice::WriteOnly);
        photo_.save(&buffer, "PNG");
    }
    const sql::Result stored = session().run(compose("update %1 set photos = $1::bytea where inspect_id=$2::integer",
                                                     Identifier(family_->tables().inspections)),
                                             {sql::binary(png_), sql::text(inspectId)});
    if (!stored.isCommand())
        say(stored.errorMessage());
}
