// Commands that need no script of their own, and why.
#include "command_scripts.h"

const std::vector<CommandScript>& quietScripts()
{
    static const std::vector<CommandScript> rows = {
        {"numbering", "numbering", R"#(
command TERVA_INSERT_DM_ENUMERATOR
dialog "Настройка нумерации"
press OkBtn
command TERVA_INSERT_TS_ENUMERATOR
dialog "Настройка нумерации"
press OkBtn
command TERVA_INSERT_TSS_ENUMERATOR
dialog "Настройка нумерации"
press OkBtn
command TERVA_INSERT_GGS_ENUMERATOR
dialog "Настройка нумерации"
press OkBtn
command TERVA_INSERT_RP_ENUMERATOR
dialog "Настройка нумерации"
press OkBtn
command TERVA_INSERT_IGS_ENUMERATOR
dialog "Настройка нумерации"
press OkBtn
command TERVA_INSERT_TSG_ENUMERATOR
dialog "Настройка нумерации"
press OkBtn
)#"},
        {"saving", "save_project", R"#(
command TERVA_SAVEPROJECT
command TERVA_SAVEPROJECT_AS
dialog "Файл проекта"
files ${FOLDER}/copy.terva
)#"},
        {"background", "drawing_background", R"#(
command LINE
point 0,0
point 10,20
esc
command TERVA_DWG_BACKGROUND
dialog "Обработка подосновы для проекта"
set input "0"
press OK
command TERVA_MASK_ATTRIBUTES
)#"},
        {"samples", "hello", R"#(
command HELLOQTMODALDLG
dialog ""
press OK
command HELLOQTPALETTE
window "Test Qt Palette Set"
close
command TERVA_ABOUT
dialog "О программе"
press OK
)#"},
    };
    return rows;
}

const std::vector<SameCommand>& sameCommands()
{
    static const std::vector<SameCommand> rows = {
        {"TERVA_INSERT_DMT", "TERVA_INSERT_DM"},
        {"TERVA_INSERT_DMGL", "TERVA_INSERT_DM"},
        {"TERVA_INSERT_DMPV", "TERVA_INSERT_DM"},
        {"TERVA_INSERT_TT", "TERVA_INSERT_TS"},
        {"TERVA_INSERT_TSS", "TERVA_INSERT_TS"},
        {"TERVA_INSERT_GGS", "TERVA_INSERT_TS"},
        {"TERVA_INSERT_RPGL", "TERVA_INSERT_TS"},
        {"TERVA_INSERT_RPGR", "TERVA_INSERT_TS"},
        {"TERVA_INSERT_RPST", "TERVA_INSERT_TS"},
        {"TERVA_INSERT_RPVR", "TERVA_INSERT_TS"},
        {"TERVA_INSERT_IGS", "TERVA_INSERT_TS"},
        {"TERVA_INSERT_TSGV", "TERVA_INSERT_TS"},
        {"TERVA_INSERT_TSGN", "TERVA_INSERT_TS"},
        {"TERVA_INSERT_TSGVN", "TERVA_INSERT_TS"},
        {"TERVA_IMPORT_TS_MEASURE", "TERVA_IMPORT_DM_MEASURE"},
        {"TERVA_IMPORT_RP_MEASURE", "TERVA_IMPORT_DM_MEASURE"},
        {"TERVA_IMPORT_TSS_MEASURE", "TERVA_IMPORT_DM_MEASURE"},
        {"TERVA_IMPORT_GGS_MEASURE", "TERVA_IMPORT_DM_MEASURE"},
        {"TERVA_IMPORT_TSG_MEASURE", "TERVA_IMPORT_DM_MEASURE"},
    };
    return rows;
}

const std::vector<HeldElsewhere>& commandsHeldElsewhere()
{
    static const std::vector<HeldElsewhere> rows = {
        {"TERVA_NEW_PROJECT", {"MakingAProject.WhicheverStatementIsRefusedItIsNoSuccess"}},
        {"TERVA_SYNC_DWG_DB",
         {"RefusedStatement.DrawingToDatabaseByPosition", "RefusedStatement.DrawingToDatabaseByDrawing",
          "CutConnection.DrawingToDatabaseByPosition", "CutConnection.DrawingToDatabaseByDrawing",
          "StoredDrawing.EndsTheSameWhereverTheConnectionWasCut"}},
        {"TERVA_SYNC_DB_DWG", {"RefusedStatement.DatabaseToDrawing", "CutConnection.DatabaseToDrawing"}},
        {"TERVA_DEFORMATION_MAP",
         {"MapFaults.ARefusedStatementLeavesNothingByHalves", "MapFaults.ACutLinkIsSaidAndTheNextMapIsWhole"}},
        {"TERVA_TEMP_DIFF_MAP",
         {"MapFaults.ARefusedStatementLeavesNothingByHalves", "MapFaults.ACutLinkIsSaidAndTheNextMapIsWhole"}},
        {"TERVA_SETTLEMENTS", {"Settlements.WhicheverStatementIsRefusedOrLostItIsSaid"}},
        {"TERVA_RENUM", {"CutConnection.RenumberingHappensWholeOrNotAtAll"}},
        // It works on the whole server, whose databases no run of a script can lay anew.
        {"TERVA_ADMIN",
         {"AdministrationFaults.ARoleIsMadeOrItsFailureTold", "AdministrationFaults.ADeletedRoleTakesNothingWithIt",
          "AdministrationFaults.ADatabaseIsDeletedOrItsFailureTold",
          "AdministrationFaults.RightsAreWholeOrWhatIsMissingIsTold",
          "AdministrationFaults.ADatabaseChangesItsOwnerOrItIsTold",
          "AdministrationFaults.TheAuditIsSwitchedOrItIsToldAndSoAreThoseConnected",
          "AdministrationFaults.TheListsAreWholeOrSayWhatIsMissing", "Admin.RightsThatFailAreTold"}},
        // It asks the server nothing.
        {"TERVA_HELP", {"Help.OpensTheManualInTheBrowser"}},
    };
    return rows;
}
