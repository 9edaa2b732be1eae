#include "elements/passports/passport_row.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "session/project_session.h"

namespace {

// %1 the key, %2 the family's table, %3 its further columns.
const char* const passportSelect =
    "select element_id, type_id, element_name, state_id, position_id, x,y,z,h%3 from %2 where element_id=%1";
const char* const inspectorSelect =
    "select type_id, element_name, state_id, position_id, x,y,z,h%3 from %2 where element_id=%1";

Identifier tableOf(const PassportFamily& family) { return Identifier(family.tables().elements); }

bool holdsName(const sql::Result& names, const QString& name)
{
    for (int row = 0; names.isTuples() && row < names.ntuples(); ++row) {
        if (names.getvalue(row, 0) == name)
            return true;
    }
    return false;
}

} // namespace

bool PassportRow::read(int elementId) { return take(elementId, passportSelect, 1); }

bool PassportRow::readForInspector(int elementId) { return take(elementId, inspectorSelect, 0); }

bool PassportRow::take(int elementId, const char* select, int firstColumn)
{
    const sql::Result row =
        session().run(compose(select, elementId, tableOf(*family_), Statement(family_->extraColumns)));
    id_ = row.hasRow() ? elementId : -1;
    values_.clear();
    for (int column = firstColumn; row.hasRow() && column < row.nfields(); ++column)
        values_.append(row.getvalue(0, column));
    return isRead();
}

QString PassportRow::passportFault(const QStringList& values) const
{
    const QString name = values.value(ElementName);
    if (name == this->name())
        return {};
    const sql::Result names = session().run(compose("select element_name from %2 where position_id=%1",
                                                    Entered(values.value(PositionId)), tableOf(*family_)));
    return holdsName(names, name) ? fill("Имя \"%1\" уже есть в базе данных", name) : QString();
}

QString PassportRow::inspectorFault(const QString& before, const QStringList& values) const
{
    const QString name = values.value(ElementName);
    if (name == before)
        return {};
    const sql::Result names = session().run(compose("select element_name from %1 ", tableOf(*family_)));
    return holdsName(names, name) ? fill(family_->inspectorTaken, name) : QString();
}

bool PassportRow::write(const char* update, const QStringList& values)
{
    QVector<StatementValue> all = entered(values.mid(0, FirstExtra));
    all += id_;
    all += entered(values.mid(FirstExtra));
    all += tableOf(*family_);
    return isRead() && session().run(compose(update, all)).isCommand();
}

bool PassportRow::update(const QStringList& values)
{
    if (!write(family_->update, values))
        return false;
    values_ = values;
    return true;
}

bool PassportRow::updateFromInspector(const QStringList& values)
{
    // The common text has no place for what else a family has.
    bool written = write(family_->inspectorUpdate, values.mid(0, FirstExtra));
    if (family_->inspectorExtra) {
        QVector<StatementValue> extra = entered(values.mid(FirstExtra));
        extra += id_;
        written = session().run(compose(family_->inspectorExtra, extra)).isCommand() && written;
    }
    if (written)
        values_ = values;
    return written;
}

void PassportRow::readAfterInspection()
{
    PassportRow fresh(*family_);
    if (fresh.read(id_))
        values_ = fresh.values_;
}
