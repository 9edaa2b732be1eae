#include "drawing/insertion_family.h"

namespace {

// Some prompts repeat another family's words or lack a letter; users know them so.
const FamilyTable<InsertionFamily>& rows()
{
    static const FamilyTable<InsertionFamily> table = {
        {FamilyKey::Dm,
         &ProjectSession::dmEnumerator,
         "Высота марки по умолчанию <",
         {},
         "Имя деформационной марки <",
         "Высота марки <",
         {},
         false},
        {FamilyKey::Ts,
         &ProjectSession::tsEnumerator,
         "Высота устья термоскважины по умолчанию <",
         {},
         "Имя термометрической скважины <",
         "Высота устья термоскважины <",
         {},
         false},
        {FamilyKey::Rp,
         &ProjectSession::rpEnumerator,
         "Высота репера по умолчанию <",
         {},
         "Имя репера <",
         "Высота репера <",
         {},
         false},
        {FamilyKey::Ggs,
         &ProjectSession::ggsEnumerator,
         "Высота ГГС умолчанию <",
         {},
         "Имя гидрогеологической скважины <",
         "Высота ГГС <",
         {},
         false},
        {FamilyKey::Igs, &ProjectSession::igsEnumerator, {}, {}, "Имя скважины <", {}, {}, false},
        {FamilyKey::Tss,
         &ProjectSession::tssEnumerator,
         "Высота марки по умолчанию <",
         {},
         "Имя точки снегомерной съемк <",
         "Высота точки снегомерной съемки <",
         {},
         false},
        {FamilyKey::Tsg, &ProjectSession::tsgEnumerator, "Высота ТСГ по умолчанию <", "Заглубление ТСГ по умолчанию <",
         "Имя ТСГ <", "Высота ТСГ <", "Заглубление ТСГ  <", true},
    };
    return table;
}

} // namespace

const InsertionFamily& insertionFamily(FamilyKey family) { return rows()[family]; }

Enumerator& enumeratorOf(FamilyKey family) { return session().*insertionFamily(family).enumerator; }

const QVector<InsertionCommand>& insertionCommands()
{
    static const QVector<InsertionCommand> commands = {
        {"TERVA_INSERT_DM", 0, true},     {"TERVA_INSERT_DMT", 11, true},  {"TERVA_INSERT_DMGL", 12, true},
        {"TERVA_INSERT_DMPV", 13, true},  {"TERVA_INSERT_TS", 2, true},    {"TERVA_INSERT_TT", 14, true},
        {"TERVA_INSERT_TSS", 20, true},   {"TERVA_INSERT_GGS", 3, true},   {"TERVA_INSERT_IGS", 17, true},
        {"TERVA_INSERT_RPGL", 8, false},  {"TERVA_INSERT_RPGR", 9, false}, {"TERVA_INSERT_RPST", 10, false},
        {"TERVA_INSERT_RPVR", 21, false}, {"TERVA_INSERT_TSGN", 18, true}, {"TERVA_INSERT_TSGVN", 19, true},
        {"TERVA_INSERT_TSGV", 5, true},
    };
    return commands;
}
