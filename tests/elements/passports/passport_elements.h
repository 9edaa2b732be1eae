// Elements of every family with their rows, measures and inspections filled.
#pragma once

#include "elements/inspections/inspected_elements.h"
#include "elements/measures/measured_elements.h"
#include "elements/passports/passport_record.h"

/// As MeasuredElements and InspectedElements say: the elements 1 "Т-10" and 2
/// "Т-2" of position 7, 3 "Д-1" of position 8; measures 1 (of element 1) and 2, 3
/// (of element 2); inspections 1 (of element 1, cycle 1) and 2, 3 (of element 2).
class PassportElements : public MeasuredElements {
protected:
    PassportElements()
    {
        database->exec("insert into states (state_id, note, colorindex) values ('broken', 'Разрушена', 1);"
                       "insert into tsg_catalog (catalog_id, name, note) overriding system value values (4, 'СОУ-4', "
                       "'старая'), (5, 'СОУ-5', 'новая')");
        session().reloadStates();
    }
    ~PassportElements() override { session().states.clear(); }

    /// The elements of the family, x = 100 + id, y = 200 + id, z = 50, h = 1.5.
    void fillElements(FamilyKey key)
    {
        for (const FamilyValues& values : familyValues) {
            if (values.family == key)
                fillFamily(values);
        }
        const Family& tables = family(key);
        if (tables.measures.isEmpty())
            database->exec(fill("insert into %1 (element_id, element_name, state_id, position_id) overriding system "
                                "value values (1, 'Т-10', 'exist', 7), (2, 'Т-2', 'exist', 7), (3, 'Д-1', 'exist', 8)",
                                tables.elements));
        database->exec(fill("update %1 set type_id = (select type_id from %2 order by type_id limit 1), x = 100 + "
                            "element_id, y = 200 + element_id, z = 50, h = 1.5",
                            tables.elements, tables.types));
        if (tables.hasProfile)
            database->exec("update ts_elements set depth_proj = 12, depth = 10.5");
        if (tables.hasDepth)
            database->exec("update tsg_elements set e = 6.5, catalog_id = 4");
        fillInspections(key);
    }
    void fillInspections(FamilyKey key)
    {
        for (const FamilyFindings& c : familyFindings) {
            if (c.family == key)
                database->exec(fill("alter table %1_inspection alter inspect_id restart with 1000;"
                                    "insert into %1_inspection (inspect_id,element_id,cycle_id,%2) overriding system "
                                    "value values (1,1,1,%3), (2,2,1,%3), (3,2,2,%3);"
                                    "update %1_inspection set state_id = 'broken' where inspect_id = 2",
                                    c.prefix, c.columns, c.first));
        }
    }
    PassportRecord recordOf(FamilyKey key, int element)
    {
        PassportRecord record = PassportRecord::withLists(key);
        record.row.read(element);
        record.readMeasures();
        record.readInspections();
        return record;
    }
    QString cell(const char* column, const Family& tables, int element)
    {
        return database->value(fill("select %1 from %2 where element_id = %3", column, tables.elements, element));
    }
};

/// The texts of a model, a list a row.
inline QVector<QStringList> cellsOf(const QAbstractItemModel& model)
{
    QVector<QStringList> rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        rows.append(QStringList());
        for (int column = 0; column < model.columnCount(); ++column)
            rows.last().append(model.index(row, column).data().toString());
    }
    return rows;
}

inline QStringList headersOf(const QAbstractItemModel& model, Qt::Orientation orientation)
{
    QStringList headers;
    const int count = orientation == Qt::Horizontal ? model.columnCount() : model.rowCount();
    for (int section = 0; section < count; ++section)
        headers.append(model.headerData(section, orientation).toString());
    return headers;
}
