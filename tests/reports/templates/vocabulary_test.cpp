// The kinds of document and their vocabularies, as existing templates know them.
#include "reports/templates/report_kinds.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

QStringList shown(const std::vector<ReportVariable>& variables)
{
    QStringList lines;
    for (const ReportVariable& variable : variables)
        lines << QString("%1=%2:%3").arg(variable.name, variable.caption).arg(int(variable.type));
    return lines;
}

QStringList of(ReportKey key) { return shown(reportKind(key).variables); }

} // namespace

TEST(ReportKinds, StandInTheOrderOfTheGenerator)
{
    QStringList lines;
    for (const ReportKind& kind : reportKinds()) {
        lines << QString("%1=%2:%3,%4").arg(kind.documentKey, kind.caption).arg(kind.conditions).arg(kind.group);
        EXPECT_EQ(&reportKind(kind.key), &kind);
    }
    EXPECT_EQ(lines,
              (QStringList{"common=Основной шаблон:0,3", "ts_passport=Пасспорт термоскважины:7,0",
                           "deformations=Табл.верт.перемещений:84,1", "ts_temperatures=Ведомость измерения т-р:200,0",
                           "ts_temp_diff=Ведомость разницы т-р:100,0", "inspections=Ведомость обследования ГМН:704,3",
                           "lists=Ведомость элементов ГМН:64,3", "position_state=Тех. состояние сооружения.:262,0",
                           "position_summary=ГТС сводная.:4,0"}));
}

TEST(ReportKinds, CommonVariables)
{
    EXPECT_EQ(shown(commonVariables()),
              (QStringList{"00_project_name=Наименование проекта:0", "01_project_code=Шифр проекта:0",
                           "02_project_owner=Владелец проекта:0", "03_project_location=Местоположение проекта:0",
                           "04_object_name=Наименование объекта:0", "05_subobject_name=Наименование подобъекта:0",
                           "06_position_name=Наименование позиции:0"}));
    EXPECT_TRUE(of(ReportKey::Common).isEmpty());
}

TEST(ReportKinds, VariablesOfWellPassports)
{
    EXPECT_EQ(
        of(ReportKey::WellPassport),
        (QStringList{"10_ts_name=Имя термоскважины:0", "101_ts_position=Местоположение термоскважины:0",
                     "11_ts_z=Абсолютная отметка:0", "12_ts_h=Высота над поверхностью земли:0",
                     "13_ts_deep=Глубина термоскважины(по датчикам):0", "131_ts_heihgth=Общая глубина (d+h):0",
                     "132_ts_depth=Глубина (замер):0", "133_ts_projdepth=Проектная глубина:0", "14_ts_x=Координата X:0",
                     "15_ts_y=Координата Y:0", "16_separator=separator:3", "17_ts_temp_diagramm=Диаграмма температур:2",
                     "171_ts_temp_geol_diagramm=Диаграмма температур с геологией:2",
                     "18_ts_img_col=Геологическая колонка:2", "19_ts_img_abris=Схема расположения:2",
                     "20_ts_img_photo=Фотография:2", "21_separator=separator:3",
                     "22_ts_htbl_meas=Таблица измерения температур (горизонтальная):1",
                     "23_ts_vtbl_meas=Таблица измерения температур (вертикальная):1"}));
}

TEST(ReportKinds, VariablesOfTheOthers)
{
    EXPECT_EQ(of(ReportKey::Deformations),
              (QStringList{"31_color_map=Цветовой градиент:1", "32_deformation_table=Таблица верт. перемещений:1",
                           "33_rp_deformation_table=Таблица верт. перемещений RP:1"}));
    EXPECT_EQ(of(ReportKey::Temperatures),
              (QStringList{"31_color_map=Цветовой градиент:1", "32_temperature_table=Таблица измерения температур:1",
                           "34_temperature_table_by_position=Таблица измерения т-р (по позиции):1",
                           "33_cycle_name=Наименование цикла:0"}));
    EXPECT_EQ(
        of(ReportKey::TemperatureDifference),
        (QStringList{"31_color_map=Цветовой градиент:1", "32_temperature_diff_table=Таблица измерения температур:1",
                     "35_temperature_diff_by_position_table=Таблица измерения т-р (по позиции) :1",
                     "33_base_cycle_name=Наименование исх. цикла:0", "34_curr_cycle_name=Наименование тек. цикла:0"}));
    EXPECT_EQ(of(ReportKey::Inspections),
              (QStringList{"31_rp_insp_table=Ведомость обсл. RP:1", "32_ts_insp_table=Ведомость обсл. ТС:1",
                           "33_dm_insp_table=Ведомость обсл. ДМ:1", "34_cycle_name=Наименование цикла:0"}));
    EXPECT_EQ(of(ReportKey::ElementLists),
              (QStringList{"31_rp_list_table=Ведомость  RP:1", "32_ts_list_table=Ведомость  ТС:1",
                           "33_dm_list_table=Ведомость  ДМ:1", "34_tss_list_table=Ведомость  ТСС:1",
                           "35_ggs_list_table=Ведомость  ГГС:1", "36_tsg_list_table=Ведомость  ТСГ:1"}));
    EXPECT_EQ(of(ReportKey::PositionState),
              (QStringList{"40_pos_name=Имя позиции:0", "401_pos_morm=Тип сооружения:0",
                           "41_pos_term_table)=Табл. сост. грунтов:1", "42_pos_def_table=Табл. сост. деформаций:1",
                           "43_pos_norm_table=Табл. норм. значений:1"}));
    EXPECT_EQ(of(ReportKey::PositionSummary),
              (QStringList{"51_analytic_table=Ведомость ГТС:1", "52_current_cycle=Текущий цикл измерений:0",
                           "53_base_cycle=Исходный цикл измерений:0"}));
}
