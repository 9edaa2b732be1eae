#include "reports/templates/report_kinds.h"

namespace {

constexpr auto Text = ReportVariable::Text;
constexpr auto Table = ReportVariable::Table;
constexpr auto Picture = ReportVariable::Picture;
constexpr auto Separator = ReportVariable::Separator;

std::vector<ReportVariable> passportVariables()
{
    // Existing templates are bound to these spellings, here and below.
    return {
        {"10_ts_name", "Имя термоскважины", Text},
        {"101_ts_position", "Местоположение термоскважины", Text},
        {"11_ts_z", "Абсолютная отметка", Text},
        {"12_ts_h", "Высота над поверхностью земли", Text},
        {"13_ts_deep", "Глубина термоскважины(по датчикам)", Text},
        {"131_ts_heihgth", "Общая глубина (d+h)", Text},
        {"132_ts_depth", "Глубина (замер)", Text},
        {"133_ts_projdepth", "Проектная глубина", Text},
        {"14_ts_x", "Координата X", Text},
        {"15_ts_y", "Координата Y", Text},
        {"16_separator", "separator", Separator},
        {"17_ts_temp_diagramm", "Диаграмма температур", Picture},
        {"171_ts_temp_geol_diagramm", "Диаграмма температур с геологией", Picture},
        {"18_ts_img_col", "Геологическая колонка", Picture},
        {"19_ts_img_abris", "Схема расположения", Picture},
        {"20_ts_img_photo", "Фотография", Picture},
        {"21_separator", "separator", Separator},
        {"22_ts_htbl_meas", "Таблица измерения температур (горизонтальная)", Table},
        {"23_ts_vtbl_meas", "Таблица измерения температур (вертикальная)", Table},
    };
}

std::vector<ReportVariable> deformationVariables()
{
    return {
        {"31_color_map", "Цветовой градиент", Table},
        {"32_deformation_table", "Таблица верт. перемещений", Table},
        {"33_rp_deformation_table", "Таблица верт. перемещений RP", Table},
    };
}

std::vector<ReportVariable> temperatureVariables()
{
    return {
        {"31_color_map", "Цветовой градиент", Table},
        {"32_temperature_table", "Таблица измерения температур", Table},
        {"34_temperature_table_by_position", "Таблица измерения т-р (по позиции)", Table},
        {"33_cycle_name", "Наименование цикла", Text},
    };
}

std::vector<ReportVariable> temperatureDifferenceVariables()
{
    return {
        {"31_color_map", "Цветовой градиент", Table},
        {"32_temperature_diff_table", "Таблица измерения температур", Table},
        {"35_temperature_diff_by_position_table", "Таблица измерения т-р (по позиции) ", Table},
        {"33_base_cycle_name", "Наименование исх. цикла", Text},
        {"34_curr_cycle_name", "Наименование тек. цикла", Text},
    };
}

std::vector<ReportVariable> inspectionVariables()
{
    return {
        {"31_rp_insp_table", "Ведомость обсл. RP", Table},
        {"32_ts_insp_table", "Ведомость обсл. ТС", Table},
        {"33_dm_insp_table", "Ведомость обсл. ДМ", Table},
        {"34_cycle_name", "Наименование цикла", Text},
    };
}

std::vector<ReportVariable> listVariables()
{
    return {
        {"31_rp_list_table", "Ведомость  RP", Table},   {"32_ts_list_table", "Ведомость  ТС", Table},
        {"33_dm_list_table", "Ведомость  ДМ", Table},   {"34_tss_list_table", "Ведомость  ТСС", Table},
        {"35_ggs_list_table", "Ведомость  ГГС", Table}, {"36_tsg_list_table", "Ведомость  ТСГ", Table},
    };
}

std::vector<ReportVariable> positionStateVariables()
{
    return {
        {"40_pos_name", "Имя позиции", Text},
        {"401_pos_morm", "Тип сооружения", Text},
        {"41_pos_term_table)", "Табл. сост. грунтов", Table}, // the bracket belongs to the name
        {"42_pos_def_table", "Табл. сост. деформаций", Table},
        {"43_pos_norm_table", "Табл. норм. значений", Table},
    };
}

std::vector<ReportVariable> positionSummaryVariables()
{
    return {
        {"51_analytic_table", "Ведомость ГТС", Table},
        {"52_current_cycle", "Текущий цикл измерений", Text},
        {"53_base_cycle", "Исходный цикл измерений", Text},
    };
}

} // namespace

const std::array<ReportKind, reportKindCount>& reportKinds()
{
    static const std::array<ReportKind, reportKindCount> kinds = {{
        {ReportKey::Common, "common", "Основной шаблон", 0, 3, {}},
        {ReportKey::WellPassport, "ts_passport", "Пасспорт термоскважины", 7, 0, passportVariables()},
        {ReportKey::Deformations, "deformations", "Табл.верт.перемещений", 84, 1, deformationVariables()},
        {ReportKey::Temperatures, "ts_temperatures", "Ведомость измерения т-р", 200, 0, temperatureVariables()},
        {ReportKey::TemperatureDifference, "ts_temp_diff", "Ведомость разницы т-р", 100, 0,
         temperatureDifferenceVariables()},
        {ReportKey::Inspections, "inspections", "Ведомость обследования ГМН", 704, 3, inspectionVariables()},
        {ReportKey::ElementLists, "lists", "Ведомость элементов ГМН", 64, 3, listVariables()},
        {ReportKey::PositionState, "position_state", "Тех. состояние сооружения.", 262, 0, positionStateVariables()},
        {ReportKey::PositionSummary, "position_summary", "ГТС сводная.", 4, 0, positionSummaryVariables()},
    }};
    return kinds;
}

const ReportKind& reportKind(ReportKey key) { return reportKinds()[size_t(key)]; }

const std::vector<ReportVariable>& commonVariables()
{
    static const std::vector<ReportVariable> variables = {
        {"00_project_name", "Наименование проекта", Text},  {"01_project_code", "Шифр проекта", Text},
        {"02_project_owner", "Владелец проекта", Text},     {"03_project_location", "Местоположение проекта", Text},
        {"04_object_name", "Наименование объекта", Text},   {"05_subobject_name", "Наименование подобъекта", Text},
        {"06_position_name", "Наименование позиции", Text},
    };
    return variables;
}
