#include "database/audit/audit_filters.h"

// Patterns match anywhere: "objects" lets "subobjects" pass, and needs no
// anchors to keep "ts_" out of "tss_" and "tsg_".
const QVector<AuditFilter>& auditTableGroups()
{
    // clang-format off
    static const QVector<AuditFilter> groups = {
        {"ALL", "Все", ".*"},
        {"STRUCT", "Структура", "projects|subobjects|objects"},
        {"SERVICE", "Служебные", "cycles|devices|geometries|levelmaps|norm_sp22_13330|performers|spatial_ref_sys|states|ucs_data|work_schedule|geology_ege_catalog"},
        {"POSITION", "Позиция", "positions|positions.+|contours|contours.+|deformation_profiles|deformation_profiles.+|termal_profiles|termal_profiles.+"},
        {"DM", "Деформационные марки", "dm_.+"},
        {"TS", "Термометрические скважины", "ts_.+"},
        {"RP", "Реперы", "rp_.+"},
        {"GGS", "Гидрогеологические скважины", "ggs_.+"},
        {"IGS", "Инженерно-геологические скважины", "igs_.+"},
        {"TSS", "Точки снегомерной съемки", "tss_.+"},
        {"TSG", "Термостабилизационные элементы", "tsg_.+"},
    };
    // clang-format on
    return groups;
}

const QVector<AuditFilter>& auditOperations()
{
    static const QVector<AuditFilter> operations = {
        {"ALL", "Все", ".*"},
        {"INSERT", "Вставка", "INSERT"},
        {"UPDATE", "Обновление", "UPDATE"},
        {"DELETE", "Удаление", "DELETE"},
    };
    return operations;
}
