#include "entry/not_available.h"

#include "base/placeholders.h"
#include "hostkit/console.h"

const std::vector<const char*>& commandsNotAvailable()
{
    static const std::vector<const char*> names = {
        "TERVA_PROJECT_EXPLORER",
        "TERVA_ELEMENT_LIST",
        "TERVA_ADMIN",
        "TERVA_IMPORT_ELEMENTS",
        "TERVA_DEFORMATION_MAP",
        "TERVA_TEMP_DIFF_MAP",
        "TERVA_TEMP_DIFF_PROFILE",
        "TERVA_TEMPERATURE_PROFILE",
        "TERVA_EGE",
        "TERVA_OBJECT_INSPECTOR",
        "TERVA_REPORTS",
        "TERVA_POSITION_PROPS",
        "TERVA_SETTLEMENTS",
        "TERVA_POSITION_ADD_DM_PROFILE",
        "TERVA_POSITION_ADD_TS_PROFILE",
        "TERVA_POSITION_ADD_CONTOUR",
        "TERVA_POSITION_DRAW",
        "TERVA_POSITION_SUMMARY",
        "TERVA_DEF_LINES_PROFILE",
        "TERVA_ELEMENT_INSPECTIONS",
        "TERVA_ELEMENT_MEASURES",
        "TERVA_TSG_CATALOG",
        "TERVA_DEFORMATION_PREDICTION",
        "TERVA_DB_BACKUP",
        "TERVA_IMPORT_INSPECTIONS",
        "TERVA_IMPORT_GEOLOGY",
        "TERVA_EXPORT_INSPECTIONS",
        "TERVA_AUDIT_LOG",
    };
    return names;
}

void sayNotAvailable(const char* command) { say(fill(QStringLiteral("\nКоманда %1 пока недоступна\n"), command)); }
