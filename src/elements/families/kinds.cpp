#include "elements/families/kinds.h"

#include <algorithm>

const std::array<Kind, kindCount>& kinds()
{
    static const std::array<Kind, kindCount> rows = {{
        /*  0 */ {"dm_def", "dm", "GMN_DM", "dm_elements"},
        /*  1 */ {"", "", "0", ""},
        /*  2 */ {"ts_def", "ts", "GMN_TS", "ts_elements"},
        /*  3 */ {"ggs_def", "ggs", "GMN_GGS", "ggs_elements"},
        /*  4 */ {"", "", "0", ""},
        /*  5 */ {"tsg_def", "tsg", "GMN_TSG", "tsg_elements"},
        /*  6 */ {"sv_def", "sv", "0", ""},
        /*  7 */ {"", "", "0", ""},
        /*  8 */ {"rp_gl_def", "rp_gl", "GMN_RP", "rp_elements"},
        /*  9 */ {"rp_gr_def", "rp_gr", "GMN_RP", "rp_elements"},
        /* 10 */ {"rp_st_def", "rp_st", "GMN_RP", "rp_elements"},
        /* 11 */ {"dm_t_def", "dm_t", "GMN_DM", "dm_elements"},
        /* 12 */ {"dm_gl_def", "dm_gl", "GMN_DM", "dm_elements"},
        /* 13 */ {"dm_pv_def", "dm_pv", "GMN_DM", "dm_elements"},
        /* 14 */ {"tt_def", "tt", "GMN_TS", "ts_elements"},
        /* 15 */ {"tss_p_def", "tss_p", "GMN_TSS", "tss_elements"},
        /* 16 */ {"pk_def", "pk", "0", ""},
        /* 17 */ {"skv_def", "skv", "GMN_GEO", "igs_elements"},
        /* 18 */ {"tsg_g_def", "tsg_g", "GMN_TSG", "tsg_elements"},
        /* 19 */ {"tsg_vs_def", "tsg_vs", "GMN_TSG", "tsg_elements"},
        /* 20 */ {"tss_h_def", "tss_h", "GMN_TSS", "tss_elements"},
        /* 21 */ {"rp_vr_def", "rp_vr", "GMN_RP", "rp_elements"},
    }};
    return rows;
}

namespace {

int kindWhere(QString Kind::*column, const QString& text)
{
    const auto& rows = kinds();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Kind& row) { return row.*column == text; });
    return found == rows.end() ? noKind : int(found - rows.begin());
}

} // namespace

bool isKind(int kind) { return kind >= 0 && kind < kindCount; }

int kindByBlockName(const QString& blockName) { return kindWhere(&Kind::blockName, blockName); }

int kindByTypeId(const QString& typeId) { return kindWhere(&Kind::typeId, typeId); }

QString blockNameByTypeId(const QString& typeId)
{
    const int kind = kindByTypeId(typeId);
    return isKind(kind) ? kinds()[size_t(kind)].blockName : QString();
}

const QStringList& elementLayers()
{
    static const QStringList layers = {"GMN_DM", "GMN_TS", "GMN_TSS", "GMN_RP", "GMN_GGS", "GMN_TSG", "GMN_GEO"};
    return layers;
}
