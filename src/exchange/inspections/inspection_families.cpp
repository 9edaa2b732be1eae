#include "exchange/inspections/inspection_families.h"

namespace {

const char* const rotationAlone = "e.block_rotation as rotation";

} // namespace

const FamilyTable<ExchangedFamily, measuredFamilyCount>& exchangedFamilies()
{
    static const FamilyTable<ExchangedFamily, measuredFamilyCount> table = {
        {FamilyKey::Ts,
         "ts",
         "e.h, e.depth, e.block_rotation as rotation",
         "i.*",
         "public.ts_inspection i",
         {{"h", "h = %1", false}, {"depth", "depth = %1", false}, {"depth_proj", "depth_proj = %1", true}}},
        {FamilyKey::Dm, "dm", rotationAlone, "i.*", "public.dm_inspection i"},
        {FamilyKey::Rp, "rp", rotationAlone, "i.*", "public.rp_inspection i"},
        {FamilyKey::Tss, "tss", rotationAlone,
         "i.*, m.meas_density as snow_density, m.meas_heigth as snow_height", // the column is spelled so
         "public.tss_inspection i LEFT JOIN public.tss_meas m ON i.element_id = m.element_id AND i.cycle_id = "
         "m.cycle_id"},
        {FamilyKey::Ggs, "ggs", rotationAlone, "i.*, m.meas as water_level",
         "public.ggs_inspection i LEFT JOIN public.ggs_meas m ON i.element_id = m.element_id AND i.cycle_id = "
         "m.cycle_id"},
        {FamilyKey::Tsg, "tsg", rotationAlone, "i.*", "public.tsg_inspection i"},
    };
    return table;
}

const ExchangedFamily* exchangedFamily(const QString& prefix)
{
    for (const ExchangedFamily& family : exchangedFamilies()) {
        if (family.prefix == prefix)
            return &family;
    }
    return nullptr;
}
