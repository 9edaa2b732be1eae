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
         {},
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
         {},
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
        {"measures",
         "element_measures",
         R"#(
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
         {""}},
        // Their refused statements have always been silent; the table is read anew.
        {"inspections",
         "element_inspections",
         R"#(
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
         {""}},
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
         {},
         // Where the place cannot be read the table shows, and stores, the marks of all.
         {"dm_predictions_data (#,4,#,2022-01-05,50.03)"}},
        // A line that cannot be read is not drawn.
        {"contours",
         "position_contours",
         R"#(
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
         {""}},
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
        {"opening", "save_project", R"#(
command TERVA_LOADPROJECT
dialog "Файл проекта"
files ${PROJECT}
)#"},
        {"tree",
         "build_a_site",
         R"#(
command TERVA_PROJECT_EXPLORER
window "Состав проекта"
row ProjectTreeView "Город/Объект/Подобъект"
press create_btn
cell ProjectTreeView "Город/Объект/Подобъект/Новая позиция" 0 "Ось А"
row ProjectTreeView "Город/Объект/Подобъект/Ось А"
press moveUp_btn
menu ProjectTreeView "Город/Объект/Подобъект/Ось А" 0
choose "Установить текущей"
)#",
         {"UPDATE positions SET position="},
         {"positions (#,1,\"Ось А\",3,1)", "positions (#,1,\"Новая позиция\",3,1)",
          "positions (#,1,\"Новая позиция\",2,1)"}},
        {"tree_taken_apart", "position_passport", R"#(
command TERVA_PROJECT_EXPLORER
window "Состав проекта"
row ProjectTreeView "Город/Объект/Подобъект/Позиция 1"
press delete_btn
dialog "Удаление объектов"
press Да
dialog "Внимание"
press Нет
row ProjectTreeView "Город/Объект/Подобъект/Позиция 2"
press delete_btn
dialog "Удаление объектов"
press Да
dialog "Внимание"
press Да
)#"},
        {"catalogues", "build_a_site", R"#(
command TERVA_PROJECT_EXPLORER
window "Состав проекта"
set Pages "Циклы измерений"
press "Циклы измерений/CreateBTN"
dialog "Цикл измерений"
set DateBegin 2022-01-01
set DateEnd 2022-01-31
press "Сохранить"
set Pages "Оборудование"
press "Оборудование/CreateBTN"
dialog "Устройство"
set Name "Нивелир"
set Serial "100"
press SaveBtn
set Pages "Исполнители"
row Performers 0
press "Исполнители/DeleteBTN"
dialog "Внимание"
press Да
)#"},
        {"settings", "build_a_site", R"#(
command TERVA_PROJECT_SETTINGS
window "Параметры проекта"
set ProjectDescriprion "Новое место"
press "Проект/btnApply"
set Pages "Расстановка"
menu StatesTable "Существующий" 0
choose "Создать"
dialog "Состояние"
set StateID "lost"
set Note "Утрачен"
press OkBtn
press ApplyBtn
)#"},
        {"connection", "build_a_site", R"#(
command TERVA_PROJECT_SETTINGS
window "Параметры проекта"
set Pages "SQL"
press btn_testconnect
set Proj4Text "+proj=utm +zone=42 +datum=WGS84 +units=m +no_defs"
press btn_saveparams
)#"},
        {"states", "position_states", R"#(
command TERVA_POSITION_SUMMARY
dialog "Геотехническое состояние сооружений"
set BaseCyclesCombo index:2
set CurrentCyclesCombo index:0
press RunBTN
press SaveStatsZ_btn
press ExportCSVBTN
dialog "Экспорт в csv"
files ${FOLDER}/states
press CloseBtn
)#"},
        {"position_passport", "position_passport", R"#(
command TERVA_POSITION_PROPS
dialog "Пасспорт позиции: Позиция 1"
set AverageDiff "10"
press SaveBtn
press CloseBtn
)#"},
        {"grounds", "ground_catalogue", R"#(
command TERVA_EGE
dialog "Каталог ИГЭ"
press CreateBTN
dialog "Создание ИГЭ"
set code "3"
set name "Глина"
set hatch_pattern_name "clay.pat"
press SaveBtn
menu EGETable "Суглинок" "Код"
choose "Удалить"
dialog "Внимание"
press "OK"
press ImportBTN
dialog "Импорт из CSV"
files ${FOLDER}/grounds.csv
dialog "Импорт завершен"
press "OK"
press ExportBTN
dialog "Экспорт в CSV"
files ${FOLDER}/out.csv
press CloseBTN
)#"},
        {"thermostabiliser_types",
         "thermostabiliser_catalogue",
         R"#(
command TERVA_TSG_CATALOG
dialog "Типовые элементы ТСГ"
row CatalogTable "ТК-32"
press CopyBTN
cell HeatExchange 1 1 12
menu HeatExchange 0 0
choose "Экспорт CSV"
dialog "Экспорт CSV"
files ${FOLDER}/pairs.csv
press SaveBTN
press CloseBTN
)#",
         {},
         {"tsg_catalog (#,\"ТК-32(копия)\",Типовой,,,,,10,,,,,,0,0:5.1|2:9.4)"}},
        {"color_map", "color_map_stored", R"#(
command TERVA_MAP_LEGEND
dialog "Вставка легенды"
press LoadColorMapBtn
dialog "Загрузить цветовую палитру уровней"
files ${FOLDER}/good.cmp
press WriteDB_btn
dialog "Сохранить палитру"
set input "Моя"
press OK
press cancelButton
)#"},
        {"color_map_deleted", "color_map_in_use", R"#(
command TERVA_MAP_LEGEND
dialog "Вставка легенды"
set LevelMapType "Моя"
press DeleteDb_btn
dialog "Внимание"
press "Да"
dialog "Внимание"
press "Да"
press cancelButton
)#"},
        {"coordinate_system_applied", "apply_coordinate_system", R"#(
command TERVA_SET_UCS
dialog "Выбор ПСК"
set UCSList "Лишняя"
menu UCSList 0 0
choose "Удалить"
set UCSList "По оси"
set OrigX 110
press SaveBTN
press OkBtn
)#"},
        {"alignment", "align_by_viewport", R"#(
command TERVA_INSERT_TS
keyword Да
enter
point 10,20
esc
command UCS
keyword Точки
point 0,0
point 0,1
command TERVA_ALIGN_BY_UCS
keyword Позиции
command TERVA_ALIGN_LABELS_BY_UCS
keyword Чертежу
command SPACE
keyword Лист
command MVIEW
point 0,0
point 100,50
point 20,-10
string 1:500
command TERVA_ALIGN_BY_VP
pick 0,0
keyword Чертежу
)#"},
        {"list",
         "element_list",
         R"#(
command TERVA_ELEMENT_LIST
window "Элементы ГМН"
set ElementCombo "Репера"
row ElementsView "РП-1"
menu ElementsView "РП-1" "Имя"
choose "Удалить"
dialog "Внимание"
press "Да"
set ElementCombo "Деформационные марки"
cell ElementsView "ЧУЖАЯ" "Высота" 1.25
menu ElementsView "ЧУЖАЯ" "Состояние"
choose "Сменить состояние"
dialog "Изменить"
set SelectionCombo "Разрушена"
press OkBtn
)#",
         {},
         {"dm_elements (1,dm,ЧУЖАЯ,exist,2,0,0,0,1.25,0,0,1,)", "dm_elements (1,dm,ЧУЖАЯ,broken,2,0,0,0,0,0,0,1,)"}},
        // What the inspector is refused stays in its fields without a word.
        {"inspector",
         "object_inspector",
         R"#(
command TERVA_INSERT_DM
keyword Да
enter
point 10,20
esc
command TERVA_OBJECT_INSPECTOR
command SELECT
select 10,20
window "Элемент ГМН"
set ElementName "ДМ-7"
set X 12.5
set StateCombo "Разрушена"
press ApplyBtn
)#",
         {"update dm_elements set(", "select element_name from dm_elements", "select meas_dm_id"},
         {"dm_elements (#,dm,ДМ.100,exist,1,10,20,0,1,0,0,1,)", "dm_elements (#,dm,ДМ-7,exist,1,12.5,20,0,1,0,0,1,)"}},
        {"backup", "backup", R"#(
command TERVA_DB_BACKUP
dialog "Сохранить резервную копию базы данных"
files ${FOLDER}/copy.sql
dialog "Успех"
press OK
)#"},
        {"sections", "temperature_diff_profile", R"#(
include ${COMMON}/border.script
command PLINE
point 0,10
point 100,10
enter
command TERVA_TEMPERATURE_PROFILE
pick 50,10
dialog "Профиль температур."
set MeasData index:1
press okButton
point 0,300
dialog "Построение изоконтуров"
set HatchOutLayer "Карта"
press okButton
command TERVA_TEMP_DIFF_PROFILE
pick 50,10
dialog "Профиль разности температур."
set BaseCycleCombo index:0
set MeasData index:1
press okButton
point 0,-300
dialog "Построение изоконтуров"
set HatchOutLayer "Карта"
press okButton
)#"},
        {"epures", "deformation_epures", R"#(
command TERVA_DEF_LINES_PROFILE
esc
dialog "Эпюры деформаций"
set BaseCyclesCombo index:0
set CurrentCyclesCombo index:2
press okButton
point 100,200
)#"},
        {"stored_profiles", "position_profiles", R"#(
command PLINE
point 0,0
point 25,0
point 25,40
enter
command TERVA_POSITION_ADD_DM_PROFILE
pick class=NcDbPolyline
dialog "Создание профиля"
press WriteDBbtn
dialog "Сохранение профиля"
press OK
press CloseBtn
command TERVA_POSITION_ADD_TS_PROFILE
pick class=NcDbPolyline
dialog "Создание профиля"
set Tolerance 30
press WriteDBbtn
dialog "Сохранение профиля"
set input "По углу"
press OK
press CloseBtn
)#"},
        {"report_tables", "reports_of_every_kind", R"#(
command TERVA_REPORTS
dialog "Генератор отчетов"
row DocumentList "Табл.верт.перемещений"
set PartSelector index:4
press GenerateBTN
dialog "Сохранить документ"
files ${FOLDER}/movements.docx
row DocumentList "Ведомость разницы т-р"
row TemplateList "Ведомость изменения температур"
set PartSelector index:4
press GenerateBTN
dialog "Сохранить документ"
files ${FOLDER}/differences.docx
row DocumentList "Ведомость обследования ГМН"
set PartSelector index:4
press GenerateBTN
dialog "Сохранить документ"
files ${FOLDER}/inspections.docx
row DocumentList "Ведомость элементов ГМН"
set PartSelector index:4
press GenerateBTN
dialog "Сохранить документ"
files ${FOLDER}/lists.docx
press CancelBtn
)#"},
        {"report_series", "reports_of_every_kind", R"#(
command TERVA_REPORTS
dialog "Генератор отчетов"
row DocumentList "Тех. состояние сооружения."
set BaseCycleCombo index:1
set ExportPath "${FOLDER}"
set MergeFiles on
press GenerateBTN
row DocumentList "Пасспорт термоскважины"
set PartSelector index:4
set ExportPath "${FOLDER}"
press GenerateBTN
press CancelBtn
)#"},
    };
    return rows;
}
