#include "elements/inspections/inspection_family.h"

namespace {

constexpr auto Number = InspectionKind::Number;

InspectionColumn note() { return {"note", "Примечание", InspectionKind::Note}; }
InspectionColumn state() { return {"state_id", "Состояние", InspectionKind::State}; }

InspectionFamily marks()
{
    return {FamilyKey::Dm,
            "DMInspectionForm",
            "Ведомость обследования ДМ",
            "Имя деформационной марки",
            {{"marknumber", "Маркировка имени"},
             {"markmark", "Маркировка марки"},
             {"constructintegrity", "Целостность конструкции ДМ"},
             {"railset", "Установка рейки"},
             {"inspectresult", "Удовлетворительное состояние ДМ"},
             note(),
             state(),
             {"h_railset", "Высокая рейка"}},
            "select inspect_id,element_id,cycle_id,marknumber,markmark,constructintegrity,railset,inspectresult,note,"
            "state_id,h_railset from dm_inspection where inspect_id = %1",
            "insert into dm_inspection (element_id,cycle_id,marknumber,markmark,constructintegrity,railset,"
            "inspectresult,note,state_id,h_railset) VALUES (%1,%2, %3, %4, %5, %6, %7, '%8','%9',%10)  returning "
            "inspect_id",
            "update dm_inspection set (element_id,cycle_id,marknumber,markmark,constructintegrity,railset,"
            "inspectresult,note, state_id,h_railset) = (%1,%2, %3, %4, %5, %6, %7, '%8','%9',%10)  where "
            "inspect_id=%11",
            11,
            "Деформационная марка %1 уже содержит ведомость обследования для цикла '%2' \n Заменить её?"};
}

// The update counts its key before the two measured values.
InspectionFamily thermalWells()
{
    return {FamilyKey::Ts,
            "TSInspectionForm",
            "Ведомость обследования ТС",
            "Имя термоскважины",
            {{"namemarked", "Маркировка имени"},
             {"protectcase", "Защитный кожух"},
             {"casecover", "Крышка защитного кожуха"},
             {"ttcover", "Крышка термотрубки"},
             {"insulation", "Утеплитель"},
             {"iceinpipe", "Наличие ледяной пробки в ТТ"},
             {"waterinpipe", "Наличие воды в ТТ"},
             {"inspectresult", "Удовлетворительное состояние ТС"},
             note(),
             state(),
             {"depth", "Глубина, м", Number},
             {"h", "Высота над землей(h), м", Number}},
            "select inspect_id,element_id,cycle_id,namemarked,protectcase,casecover,ttcover,insulation,iceinpipe,"
            "waterinpipe,inspectresult,note, state_id, depth, h from ts_inspection where inspect_id = %1",
            "insert into ts_inspection (element_id,cycle_id,namemarked,protectcase,casecover,ttcover,insulation,"
            "iceinpipe,waterinpipe,inspectresult,note, state_id, depth, h) VALUES (%1,%2, %3, %4, %5, %6, %7, %8, "
            "%9,%10,'%11','%12','%13','%14')  returning inspect_id",
            "update ts_inspection set (element_id,cycle_id,namemarked,protectcase,casecover,ttcover,insulation,"
            "iceinpipe,waterinpipe,inspectresult,note, state_id, depth, h) = (%1,%2, %3, %4, %5, %6, %7, %8, "
            "%9,%10,'%11','%12','%14','%15')  where inspect_id=%13",
            13,
            "Термоскважина %1 уже содержит ведомость обследования для цикла '%2' \n Заменить её?",
            "update ts_elements set(depth, h) = ( select depth, h  from(select depth, h from ts_inspection left join "
            "cycles using (cycle_id) where element_id = %1 order by date_start DESC  limit 1) as found_data union all "
            "select 0.0, 0.0 limit 1) where element_id = %1 returning depth, h;"};
}

InspectionFamily benchmarks()
{
    return {FamilyKey::Rp,
            "RPInspectionForm",
            "Ведомость обследования РП",
            "Имя репера",
            {{"fence", "Ограждение"},
             {"protectpit", "Защитный колодец"},
             {"protectpitcover", "Крышка защитного колодца"},
             {"protectpipe", "Обсадная труба"},
             {"mark", "Марка"},
             {"inspectresult", "Удовлетворительное состояние RP"},
             note(),
             state(),
             {"sealing", "Сальник"}},
            "select inspect_id,element_id,cycle_id,fence,protectpit,protectpitcover,protectpipe,mark,inspectresult,"
            "note, state_id,sealing from rp_inspection where inspect_id = %1",
            "insert into rp_inspection (element_id,cycle_id,fence,protectpit,protectpitcover,protectpipe,mark,"
            "inspectresult,note,state_id,sealing) VALUES (%1,%2, %3, %4, %5, %6, %7, %8, '%9','%10',%11)  returning "
            "inspect_id",
            "update rp_inspection set (element_id,cycle_id,fence,protectpit,protectpitcover,protectpipe,mark,"
            "inspectresult,note,state_id, sealing) = (%1,%2, %3, %4, %5, %6, %7, %8, '%9','%10',%11)  where "
            "inspect_id=%12",
            12,
            "Репер %1 уже содержит ведомость обследования для цикла '%2' \n Заменить её?"};
}

InspectionFamily groundwaterWells()
{
    return {FamilyKey::Ggs,
            "GGSInspectionForm",
            "Ведомость обследования ГГС",
            "Имя гидрогеологической скважины",
            {{"inspectresult", "Удовлетворительное состояние ГГС"},
             note(),
             state(),
             {"namemarked", "Маркировка имени"},
             {"protectcase", "Защитный кожух"},
             {"casecover", "Крышка защитного кожуха"},
             {"ttcover", "Крышка ствола"},
             {"insulation", "Утеплитель"},
             {"iceinpipe", "Наличие ледяной пробки "},
             {"waterinpipe", "Наличие воды в стволе"},
             {"h", "Высота над землей(h), м", Number},
             {"meas", "Уровень грунтовых вод, м", Number}},
            "select inspect_id,element_id,cycle_id,inspectresult,note,state_id,namemarked,protectcase,casecover,"
            "ttcover,insulation,iceinpipe,waterinpipe,h,meas from ggs_inspection where inspect_id = %1",
            "insert into ggs_inspection (element_id,cycle_id,inspectresult,note,state_id,namemarked,protectcase,"
            "casecover,ttcover,insulation,iceinpipe,waterinpipe,h,meas) VALUES(%1, %2, %3, '%4', "
            "'%5',%6,%7,%8,%9,%10,%11,%12,'%13','%14')  returning inspect_id",
            "update ggs_inspection set (element_id,cycle_id,inspectresult,note,state_id,namemarked,protectcase,"
            "casecover,ttcover,insulation,iceinpipe,waterinpipe,h,meas) = (%1, %2, %3, '%4', "
            "'%5',%6,%7,%8,%9,%10,%11,%12,'%13','%14')  where inspect_id=%15",
            15,
            "Гидрогеологическая скважина %1 уже содержит ведомость обследования для цикла '%2' \n Заменить её?"};
}

InspectionFamily thermostabilisers()
{
    return {FamilyKey::Tsg,
            "TSGInspectionForm",
            "Ведомость обследования ТСГ",
            "Имя термостабилизационного элемента",
            {{"integrity", "Целостность конструкции ТСГ"},
             {"inspectresult", "Удовлетворительное состояние ТСГ"},
             note(),
             state()},
            "select inspect_id,element_id,cycle_id,integrity,inspectresult,note,state_id from tsg_inspection where "
            "inspect_id = %1",
            "insert into tsg_inspection (element_id,cycle_id,integrity,inspectresult,note,state_id) VALUES (%1,%2, "
            "%3,%4, '%5','%6')  returning inspect_id",
            "update tsg_inspection set (element_id,cycle_id,integrity,inspectresult,note,state_id) = (%1,%2, "
            "%3,%4,'%5','%6')  where inspect_id=%7",
            7,
            "Термостабилизационный элемент %1 уже содержит ведомость обследования для цикла '%2' \n Заменить её?"};
}

// The last letter of the box's text is a Latin one; users and templates know it so.
InspectionFamily snowPoints()
{
    return {FamilyKey::Tss,
            "TSSInspectionForm",
            "Ведомость обследования ТСС",
            "Имя точки снегомерной съемки",
            {{"inspectresult", "Удовлетворительное состояние ТСC"}, note(), state()},
            "select inspect_id,element_id,cycle_id,inspectresult,note,state_id from tss_inspection where inspect_id = "
            "%1",
            "insert into tss_inspection (element_id,cycle_id,inspectresult,note,state_id) VALUES (%1,%2, %3, "
            "'%4','%5')  returning inspect_id",
            "update tss_inspection set (element_id,cycle_id,inspectresult,note,state_id) = (%1,%2, %3,'%4','%5')  "
            "where inspect_id=%6",
            6,
            "Точка снегомерной съемки %1 уже содержит ведомость обследования для цикла '%2' \n Заменить её?"};
}

} // namespace

int InspectionFamily::indexOf(InspectionKind kind) const
{
    for (int i = 0; i < columns.size(); ++i) {
        if (columns[i].kind == kind)
            return i;
    }
    return -1;
}

const FamilyTable<InspectionFamily, measuredFamilyCount>& inspectionFamilies()
{
    static const FamilyTable<InspectionFamily, measuredFamilyCount> rows = {
        marks(), thermalWells(), benchmarks(), snowPoints(), groundwaterWells(), thermostabilisers(),
    };
    return rows;
}

const InspectionFamily* inspectionFamily(FamilyKey family) { return inspectionFamilies().find(family); }
