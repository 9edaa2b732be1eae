#include "elements/measures/measure_family.h"

#include <QStringList>

QString MeasureFamily::columnList() const
{
    QStringList names;
    for (const MeasureColumn& column : columns)
        names.append(column.name);
    return names.join(QLatin1Char(','));
}

const FamilyTable<MeasureFamily, measuredFamilyCount>& measureFamilies()
{
    // Two of the warnings repeat another family's words; users know them so.
    static const FamilyTable<MeasureFamily, measuredFamilyCount> rows = {
        {FamilyKey::Dm,
         "dm",
         "dm_meas",
         "meas_dm_id",
         "dm_elements",
         {{"meas", 4}},
         "select element_id, cycle_id,device_id, date ,  meas, performer_id from dm_meas where meas_dm_id=%1",
         "Измерение деформационной марки",
         "Выбранный цикл уже содержит измерения для этой деформационной марки",
         "Деформационные марки"},
        {FamilyKey::Ts,
         "ts",
         "ts_meas",
         "meas_ts_id",
         "ts_elements",
         {{"t_vozd", 2}, {"meas", -1}},
         "select element_id, cycle_id, device_id, date, t_vozd, meas, performer_id from ts_meas where meas_ts_id = %1",
         "Измерение термоскважины",
         "Выбранный цикл уже содержит измерения для этой термосважины",
         "Термометрические скважины"},
        {FamilyKey::Rp,
         "rp",
         "rp_meas",
         "meas_rp_id",
         "rp_elements",
         {{"meas", 4}, {"precis", 6}},
         "select element_id, cycle_id,device_id, date ,  meas, precis, performer_id from rp_meas where meas_rp_id=%1",
         "Измерение вертикальный перемещений репера",
         "Выбранный цикл уже содержит измерения для этого репера",
         "Реперы"},
        {FamilyKey::Tss,
         "tss",
         "tss_meas",
         "meas_id",
         "tss_elements",
         {{"meas_density", 4}, {"meas_heigth", 4}},
         "select element_id, cycle_id,device_id, date , meas_density, meas_heigth, performer_id from tss_meas where "
         "meas_id=%1",
         "Измерение точки снегомерной съемки",
         "Выбранный цикл уже содержит измерения для этой точки снегомерной съемки",
         "Точки снегомерной съемки"},
        {FamilyKey::Ggs,
         "ggs",
         "ggs_meas",
         "meas_id",
         "ggs_elements",
         {{"meas", 4}},
         "select element_id, cycle_id,device_id, date ,  meas, performer_id from ggs_meas where meas_id=%1",
         "Измерение гидрогеологической скважины",
         "Выбранный цикл уже содержит измерения для этой деформационной марки",
         "Гидрогеологические скважины"},
        {FamilyKey::Tsg,
         "tsg",
         "tsg_meas",
         "meas_id",
         "tsg_elements",
         {{"env_temp", 4}, {"exchanger_temp", 4}},
         "select element_id, cycle_id,device_id, date , env_temp, exchanger_temp, performer_id from tsg_meas where "
         "meas_id=%1",
         "Измерение температуры СОУ",
         "Выбранный цикл уже содержит измерения для этой точки снегомерной съемки",
         "Термостабилизационные элементы"},
    };
    return rows;
}

const MeasureFamily* measureFamily(FamilyKey family) { return measureFamilies().find(family); }
