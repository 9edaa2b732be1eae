#include "exchange/inspections/inspection_record.h"

#include "exchange/inspections/inspection_families.h"
#include "exchange/inspections/json_rows.h"

#include <QVariant>

ExchangedRecord::ExchangedRecord(const QString& group, const QJsonObject& record, int cycleId)
    : group_(group), cycleId_(cycleId), elementId_(record.value(QLatin1String("element_id")).toVariant().toInt())
{
    QJsonObject row = record;
    row.insert(QStringLiteral("cycle_id"), cycleId);
    row.remove(QStringLiteral("inspect_id"));
    const QJsonValue photo = row.take(QStringLiteral("photos"));
    hasPhoto_ = photo.isString();
    photo_ = photo.toString();
    if (const ExchangedFamily* family = exchangedFamily(group))
        takeElementValues(*family, row);
    for (auto field = row.begin(); field != row.end(); ++field) {
        columns_ << compose("%1", Identifier(field.key()));
        values_ << valueStatement(field.value());
    }
}

void ExchangedRecord::takeElementValues(const ExchangedFamily& family, QJsonObject& row)
{
    for (const ElementAssignment& own : family.assignments) {
        if (row.contains(own.key))
            element_ << compose(own.assignment, valueStatement(row.value(own.key)));
        if (own.ofElementAlone)
            row.remove(own.key);
    }
}

Identifier ExchangedRecord::table() const { return Identifier(group_ + QStringLiteral("_inspection")); }

Statement ExchangedRecord::find() const
{
    return compose("SELECT inspect_id FROM public.%1 WHERE element_id = %2 AND cycle_id = %3;", table(), elementId_,
                   cycleId_);
}

Statement ExchangedRecord::insert() const
{
    return compose("INSERT INTO public.%1 (%2) VALUES (%3) RETURNING inspect_id;", table(), joined(columns_, ", "),
                   joined(values_, ", "));
}

Statement ExchangedRecord::update(int inspectId) const
{
    QVector<Statement> pairs;
    for (int i = 0; i < columns_.size(); ++i)
        pairs << compose("%1 = %2", columns_[i], values_[i]);
    return compose("UPDATE public.%1 SET %2 WHERE inspect_id = %3 RETURNING inspect_id;", table(), joined(pairs, ", "),
                   inspectId);
}

Statement ExchangedRecord::updateElement() const
{
    return compose("UPDATE public.ts_elements SET %1 WHERE element_id = %2", joined(element_, ", "), elementId_);
}

Statement ExchangedRecord::storePhoto() const
{
    return compose("UPDATE public.%1 SET photos = $1::bytea WHERE inspect_id = $2::integer", table());
}
