#include "elements/list/list_family.h"

const FamilyTable<ListFamily>& listFamilies()
{
    static const FamilyTable<ListFamily> rows = {
        {FamilyKey::Rp, "meas_rp_id", "Тип PR"},
        {FamilyKey::Dm, "meas_dm_id", "Тип ДМ"},
        {FamilyKey::Ts, "meas_ts_id", "Тип ТС"},
        {FamilyKey::Tss, "meas_id", "Тип ТCС"}, // a Latin "C": users know it so
        {FamilyKey::Ggs, "meas_id", "Тип ГГС"},
        {FamilyKey::Tsg, "meas_id", "Тип ТСГ"},
        {FamilyKey::Igs, QString(), "Тип ИГС"},
    };
    return rows;
}

QStringList ListFamily::dependants() const
{
    QStringList names;
    for (const QString& table : {tables().dynprops, tables().files, tables().inspections, tables().measures}) {
        if (!table.isEmpty())
            names.append(table);
    }
    return names;
}

QVector<const ListFamily*> familiesOfKey(const QString& shortKey)
{
    QVector<const ListFamily*> found;
    for (const ListFamily& row : listFamilies()) {
        const bool inAll = shortKey == allFamiliesKey() && !row.measureId.isEmpty();
        if (inAll || row.tables().shortKey == shortKey)
            found.append(&row);
    }
    return found;
}
