#include "entry/command_table.h"

#include "analysis/forecast/forms/forecast_commands.h"
#include "analysis/grading/forms/grading_commands.h"
#include "analysis/levels/forms/map_legend_form.h"
#include "analysis/maps/forms/map_commands.h"
#include "analysis/profiles/forms/profile_commands.h"
#include "analysis/settlements/forms/settlement_commands.h"
#include "base/placeholders.h"
#include "database/forms/administration_commands.h"
#include "database/forms/create_project_form.h"
#include "database/hierarchy/forms/hierarchy_commands.h"
#include "database/sql/busy.h"
#include "drawing/alignment/alignment.h"
#include "drawing/alignment/attribute_mask.h"
#include "drawing/alignment/forms/alignment_commands.h"
#include "drawing/forms/insertion_commands.h"
#include "drawing/forms/sync_commands.h"
#include "drawing/renumber.h"
#include "elements/geology/forms/geology_commands.h"
#include "elements/inspections/forms/inspection_commands.h"
#include "elements/measures/forms/measure_commands.h"
#include "entry/about_form.h"
#include "entry/help.h"
#include "entry/palette_sets.h"
#include "entry/sample_commands.h"
#include "exchange/elements/forms/elements_commands.h"
#include "exchange/forms/import_commands.h"
#include "exchange/geology/forms/geology_commands.h"
#include "exchange/inspections/forms/inspections_commands.h"
#include "formkit/modal.h"
#include "hostkit/console.h"
#include "reports/forms/report_generator_form.h"
#include "session/forms/palette_refresh.h"
#include "session/project_session.h"

#include <utility>

namespace {

constexpr auto None = Guard::None;
constexpr int kPlain = kTransparent;
constexpr int kOnSelection = kUsePickSet | kRedraw;

void loadProject()
{
    session().chooseAndLoadProject();
    refreshPalettes();
}

void newProject() { runModal<CreateProjectForm>(); }
void saveProject() { session().saveProject(); }
void saveProjectAs() { session().saveProjectAs(); }
void projectSettings() { togglePaletteSet(PaletteSlot::ProjectSettings); }
void projectExplorer() { togglePaletteSet(PaletteSlot::ProjectExplorer); }
void elementList() { togglePaletteSet(PaletteSlot::ElementList); }
void objectInspector() { toggleObjectInspector(inspectorPlace()); }
void about() { runModal<AboutForm>(); }

const std::array<Command, kCommandCount> kCommands = {{
    {"HELLOQTMODALDLG", None, None, kPlain, helloModalDialog},
    {"HELLOQTPALETTE", None, None, kPlain, helloPalette},
    {"TERVA_PROJECT_SETTINGS", None, None, kPlain, projectSettings},
    {"TERVA_LOADPROJECT", None, None, kPlain, loadProject},
    {"TERVA_NEW_PROJECT", None, None, kPlain, newProject},
    {"TERVA_SAVEPROJECT", None, None, kPlain, saveProject},
    {"TERVA_SAVEPROJECT_AS", None, None, kPlain, saveProjectAs},
    {"TERVA_PROJECT_EXPLORER", None, None, kPlain, projectExplorer},
    {"TERVA_SYNC_DWG_DB", None, None, kPlain, drawingToDatabaseCommand},
    {"TERVA_SYNC_DB_DWG", Guard::C2, Guard::P2, kPlain, databaseToDrawingCommand},
    {"TERVA_ELEMENT_LIST", None, None, kPlain, elementList},
    {"TERVA_INSERT_DM", None, Guard::P3, kPlain, insertCommand<0>},
    {"TERVA_INSERT_DMT", None, Guard::P3, kPlain, insertCommand<11>},
    {"TERVA_INSERT_DMGL", None, Guard::P3, kPlain, insertCommand<12>},
    {"TERVA_INSERT_DMPV", None, Guard::P3, kPlain, insertCommand<13>},
    {"TERVA_INSERT_DM_ENUMERATOR", None, None, kPlain, numberingCommand<FamilyKey::Dm>},
    {"TERVA_INSERT_TS", None, Guard::P3, kPlain, insertCommand<2>},
    {"TERVA_INSERT_TT", None, Guard::P3, kPlain, insertCommand<14>},
    {"TERVA_INSERT_TS_ENUMERATOR", None, None, kPlain, numberingCommand<FamilyKey::Ts>},
    {"TERVA_INSERT_TSS", None, Guard::P3, kPlain, insertCommand<20>},
    {"TERVA_INSERT_TSS_ENUMERATOR", None, None, kPlain, numberingCommand<FamilyKey::Tss>},
    {"TERVA_ADMIN", None, None, kPlain, administerServer},
    {"TERVA_INSERT_GGS", None, Guard::P3, kPlain, insertCommand<3>},
    {"TERVA_INSERT_GGS_ENUMERATOR", None, None, kPlain, numberingCommand<FamilyKey::Ggs>},
    // Benchmarks go straight into their prompts, with or without a position.
    {"TERVA_INSERT_RPGL", None, None, kPlain, insertCommand<8>},
    {"TERVA_INSERT_RPGR", None, None, kPlain, insertCommand<9>},
    {"TERVA_INSERT_RPST", None, None, kPlain, insertCommand<10>},
    {"TERVA_INSERT_RPVR", None, None, kPlain, insertCommand<21>},
    {"TERVA_INSERT_RP_ENUMERATOR", None, None, kPlain, numberingCommand<FamilyKey::Rp>},
    {"TERVA_INSERT_IGS", None, Guard::P3, kPlain, insertCommand<17>},
    {"TERVA_INSERT_IGS_ENUMERATOR", None, None, kPlain, numberingCommand<FamilyKey::Igs>},
    {"TERVA_IMPORT_DM_MEASURE", Guard::C1, None, kPlain, importDeformationMarkMeasures},
    {"TERVA_IMPORT_TS_MEASURE", Guard::C1, None, kPlain, importThermalWellMeasures},
    {"TERVA_IMPORT_RP_MEASURE", Guard::C1, None, kPlain, importBenchmarkMeasures},
    {"TERVA_IMPORT_TSS_MEASURE", Guard::C1, None, kPlain, importSnowPointMeasures},
    {"TERVA_IMPORT_GGS_MEASURE", Guard::C1, None, kPlain, importGroundwaterMeasures},
    {"TERVA_IMPORT_ELEMENTS", Guard::C1, None, kPlain, importElementsCommand},
    {"TERVA_DEFORMATION_MAP", Guard::C2, Guard::P2, kPlain, buildDeformationMap},
    {"TERVA_TEMPERATURE_MAP", Guard::C2, Guard::P2, kPlain, buildTemperatureMap},
    {"TERVA_TEMP_DIFF_MAP", Guard::C2, Guard::P2, kPlain, buildTemperatureDiffMap},
    {"TERVA_TEMP_DIFF_PROFILE", Guard::C2, Guard::P2, kPlain, buildTemperatureDiffProfile},
    {"TERVA_TEMPERATURE_PROFILE", Guard::C2, Guard::P2, kPlain, buildTemperatureProfile},
    {"TERVA_MAP_LEGEND", None, None, kPlain, insertMapLegend},
    {"TERVA_EGE", Guard::C1, None, kPlain, openGroundCatalogue},
    {"TERVA_OBJECT_INSPECTOR", None, None, kOnSelection, objectInspector},
    {"TERVA_ALIGN_BY_UCS", Guard::C2, None, kPlain, alignByUcs},
    {"TERVA_ALIGN_LABELS_BY_UCS", Guard::C2, None, kPlain, alignLabelsByUcs},
    {"TERVA_ALIGN_BY_VP", Guard::C2, None, kPlain, alignByViewport},
    {"TERVA_REPORTS", None, None, kPlain, openReports},
    {"TERVA_MASK_ATTRIBUTES", None, None, kPlain, maskAttributes},
    {"TERVA_ABOUT", None, None, kPlain, about},
    {"TERVA_POSITION_PROPS", None, Guard::P1, kPlain, positionProperties},
    {"TERVA_SETTLEMENTS", Guard::C2, Guard::P2, kPlain, showSettlements},
    {"TERVA_POSITION_ADD_DM_PROFILE", None, Guard::P1, kPlain, addDeformationProfile},
    {"TERVA_POSITION_ADD_TS_PROFILE", None, Guard::P1, kPlain, addTemperatureProfile},
    {"TERVA_POSITION_ADD_CONTOUR", None, Guard::P1, kPlain, addPositionContour},
    {"TERVA_POSITION_DRAW", None, Guard::P1, kPlain, drawPositionLines},
    {"TERVA_POSITION_SUMMARY", Guard::C2, None, kPlain, positionSummary},
    {"TERVA_GET_UCS", Guard::C3, None, kPlain, storeUcsCommand},
    {"TERVA_SET_UCS", Guard::C3, None, kPlain, applyUcsCommand},
    {"TERVA_RENUM", None, None, kPlain, renumberElements},
    {"TERVA_DWG_TO_PG", Guard::C2, Guard::P2, kPlain, exportPlanCommand},
    {"TERVA_DWG_BACKGROUND", None, None, kPlain, prepareBackgroundCommand},
    {"TERVA_DEF_LINES_PROFILE", Guard::C2, Guard::P2, kPlain, buildDeformationLines},
    {"TERVA_ELEMENT_INSPECTIONS", None, None, kPlain, manageInspections},
    {"TERVA_ELEMENT_MEASURES", None, None, kPlain, manageMeasures},
    {"TERVA_TSG_CATALOG", Guard::C1, None, kPlain, openThermostabiliserCatalogue},
    {"TERVA_INSERT_TSGV", None, Guard::P3, kPlain, insertCommand<5>},
    {"TERVA_INSERT_TSGN", None, Guard::P3, kPlain, insertCommand<18>},
    {"TERVA_INSERT_TSGVN", None, Guard::P3, kPlain, insertCommand<19>},
    {"TERVA_INSERT_TSG_ENUMERATOR", None, None, kPlain, numberingCommand<FamilyKey::Tsg>},
    {"TERVA_IMPORT_TSG_MEASURE", Guard::C1, None, kPlain, importThermostabiliserMeasures},
    {"TERVA_DEFORMATION_PREDICTION", Guard::C2, Guard::P2, kPlain, predictDeformations},
    {"TERVA_HELP", None, None, kPlain, openManual},
    {"TERVA_DB_BACKUP", Guard::C5, None, kPlain, backUpDatabase},
    {"TERVA_IMPORT_INSPECTIONS", Guard::C4, None, kPlain, importInspectionsCommand},
    {"TERVA_IMPORT_GEOLOGY", Guard::C1, None, kPlain, importGeologyCommand},
    {"TERVA_EXPORT_INSPECTIONS", Guard::C4, None, kPlain, exportInspectionsCommand},
    {"TERVA_AUDIT_LOG", Guard::C1, None, kPlain, showAuditLog},
}};

// The host's handlers take no argument, so every row gets a function of its own.
template <size_t Row>
void runRow()
{
    runCommand(kCommands[Row]);
}

template <size_t... Rows>
constexpr std::array<NcCommandHandler, sizeof...(Rows)> handlersOf(std::index_sequence<Rows...>)
{
    return {{runRow<Rows>...}};
}

constexpr std::array<NcCommandHandler, kCommandCount> kHandlers = handlersOf(std::make_index_sequence<kCommandCount>());

const QString kGroup = QStringLiteral("TERVA");
constexpr int kNoFunctionCode = -1;

} // namespace

const std::array<Command, kCommandCount>& commandTable() { return kCommands; }

void runCommand(const Command& command)
{
    if (sql::isStatementUnderWay())
        return say(QStringLiteral("\nКоманда не выполняется: сервер ещё занят предыдущей\n"));
    if (!passes(command.connection) || !passes(command.position))
        return;
    if (command.action)
        command.action();
    else // the area is not built yet
        say(fill(QStringLiteral("\nКоманда %1 пока недоступна\n"), command.name));
}

void registerCommands()
{
    for (size_t row = 0; row < kCommandCount; ++row) {
        const QString name = QString::fromLatin1(kCommands[row].name);
        GetCommandStack()->addCommand(kGroup, QLatin1Char('_') + name, name, kCommands[row].flags, kHandlers[row],
                                      nullptr, kNoFunctionCode, nullptr, nullptr);
    }
}

void removeCommands() { GetCommandStack()->removeGroup(kGroup); }
