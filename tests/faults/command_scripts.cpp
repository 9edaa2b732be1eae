#include "command_scripts.h"

const std::vector<CommandScript>& commandScripts()
{
    static const std::vector<CommandScript> rows = {
        {"insertion", "insert_deformation_marks", R"#(
command TERVA_INSERT_DM
keyword Да
real 2.5
point 10,20,30
point 11,21
esc
command TERVA_INSERT_TS
keyword Нет
point 1,2
string "Т-1"
real 0.8
)#"},
        {"measure_import",
         "import_deformation_marks",
         R"#(
command TERVA_IMPORT_DM_MEASURE
dialog "Импорт измерений деформационных марок"
include ${COMMON}/import_open.script
set OperatorCombo index:1
press BTNOperatorToAll
press ImportBtn
dialog "Внимание"
press "Да"
dialog "Внимание"
press "Да"
dialog "Внимание"
press "Да"
dialog "Внимание"
press "Нет для всех"
press CloseBtn
)#",
         false,
         {"dm_meas (#,1,2,1,2021-05-15,10.5,1)"}},
        {"element_import", "import_elements", R"#(
command TERVA_IMPORT_ELEMENTS
dialog "Импорт элементов ГМН"
press OpenFileBtn
dialog "Открыть файл"
files ${FOLDER}/marks.csv
set ElTypeCombo "Деформационная марка"
press ImportBtn
press CloseBtn
)#"},
        {"geology_import", "import_geology", R"#(
command TERVA_IMPORT_GEOLOGY
dialog "Импорт геологии скважин"
set Encoding "UTF-8"
press OpenFileBtn
dialog "Открыть файл"
files ${FOLDER}/wells.csv
press ImportBtn
)#"},
        {"inspection_exchange",
         "inspections_there_and_back",
         R"#(
command TERVA_EXPORT_INSPECTIONS
dialog "Массовый экспорт инспекций"
set CycleCombo index:1
set PathEdit ${FOLDER}/out.json
press ApplyBtn
command TERVA_IMPORT_INSPECTIONS
dialog "Массовый импорт обследований"
set CycleCombo index:1
press "Обзор..."
dialog "Выберите JSON файл для импорта"
files ${FOLDER}/field.json
press ApplyBtn
)#",
         false,
         {"dm_inspection (1,1,2,,,,,,3,O'Neil,,)"}},
        {"temperature_map", "map_within_border", R"#(
include ${COMMON}/border.script
command TERVA_TEMPERATURE_MAP
pick class=NcDbPolyline layer="Граница"
dialog "Построение карты температур"
set MeasData index:0
set LabelsOutEnabled on
press okButton
dialog "Построение изоконтуров"
set HatchOutLayer "Карта"
press okButton
)#"},
        // A measure that cannot be loaded is passed over without a word, as it has always been.
        {"measures", "element_measures", R"#(
command TERVA_ELEMENT_MEASURES
dialog "Управление измерениями элементов ГМН"
press CopyMeasBTN
dialog "Внимание"
press "Да"
dialog "Внимание!"
press "Да"
press ExportMeasBTN
dialog "Сохранить измерения"
files ${FOLDER}/marks.csv
dialog "Успех"
press "OK"
press CloseBtn
)#",
         true},
        // Their refused statements have always been silent; the table is read anew.
        {"inspections", "element_inspections", R"#(
command TERVA_ELEMENT_INSPECTIONS
dialog "Управление состоянием элементов ГМН"
set ElementTypeCombo "Термометрические скважины"
set BaseCyclesCombo data:1
set CurrentCyclesCombo data:2
press CopyInspectionBTN
dialog "Внимание"
press "Да"
press CloseBtn
)#",
         true},
        {"prediction",
         "predict_deformations",
         R"#(
command TERVA_DEFORMATION_PREDICTION
dialog "Построение прогноза деформаций"
set BaseCyclesCombo index:2
set CurrentCyclesCombo index:0
set PredictionDate 2022-01-05
press WriteBTN
dialog "Сохранить прогноз"
press OK
press CloseBtn
)#",
         false,
         // Where the place cannot be read the table shows, and stores, the marks of all.
         {"dm_predictions_data (#,4,#,2022-01-05,50.03)"}},
        // A line that cannot be read is not drawn.
        {"contours", "position_contours", R"#(
include ${COMMON}/border.script
command TERVA_POSITION_ADD_CONTOUR
pick class=NcDbPolyline layer="Граница"
enter
dialog "Сохранить контур"
press OK
command TERVA_POSITION_DRAW
dialog "Вывод геометрии"
press "ОК"
)#",
         true},
        {"plan", "drawing_to_postgis", R"#(
command LINE
point 0,0
point 10,20
esc
command TERVA_DWG_TO_PG
dialog "Экспорт элементов чертежа в PostGIS"
press OK
dialog "ВНИМАНИЕ!!!"
press Да
)#"},
        {"coordinate_systems", "store_coordinate_system", R"#(
command UCS
keyword Точки
point 100,200
point 100,300
command UCS
keyword Сохранить
string "По оси"
command TERVA_GET_UCS
dialog "Сохранить ПСК"
press OK
)#"},
        {"audit_log", "audit_log", R"#(
command TERVA_AUDIT_LOG
dialog "Аудит событий"
set StartTime "10.01.2026 00:00:00"
set EndTime "11.01.2026 23:59:59"
press ApplyBtn
press CloseBtn
)#"},
    };
    return rows;
}
