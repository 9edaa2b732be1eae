#include "elements/passports/forms/passport_tabs.h"

#include "elements/passports/forms/files_page.h"
#include "elements/passports/forms/general_page.h"
#include "elements/passports/forms/history_page.h"
#include "elements/passports/forms/igs_general_page.h"
#include "elements/passports/forms/layers_page.h"
#include "elements/passports/forms/measures_page.h"
#include "elements/passports/forms/profiles_page.h"

namespace {

template <class Page>
PassportPage* make(PassportRecord& record)
{
    return new Page(record);
}

struct FamilyTabs {
    FamilyKey family;
    std::vector<PassportTab> tabs;
};

const std::vector<PassportTab>& usualTabs()
{
    static const std::vector<PassportTab> tabs = {{"Общие", "GeneralPage", make<GeneralPage>},
                                                  {"Измерения", "MeasuresPage", make<MeasuresPage>},
                                                  {"Графика", "FilesPage", make<FilesPage>}};
    return tabs;
}

} // namespace

const std::vector<PassportTab>& passportTabs(FamilyKey family)
{
    static const FamilyTable<FamilyTabs> rows = {
        {FamilyKey::Dm, usualTabs()},
        {FamilyKey::Ts,
         {{"Общие", "GeneralPage", make<GeneralPage>},
          {"Измерения", "MeasuresPage", make<ProfilesPage>},
          {"Геология", "GroundLayersPage", make<GroundLayersPage>},
          {"Графика", "FilesPage", make<FilesPage>},
          {"Огибающие", "EnvelopePage", make<EnvelopePage>},
          {"Изотермы", "IsothermsPage", make<IsothermsPage>}}},
        {FamilyKey::Rp, usualTabs()},
        {FamilyKey::Ggs, usualTabs()},
        {FamilyKey::Igs,
         {{"Общие данные", "GeneralPage", make<IgsGeneralPage>},
          {"Слои литологии", "GroundLayersPage", make<GroundLayersPage>}}},
        {FamilyKey::Tss, usualTabs()},
        {FamilyKey::Tsg, usualTabs()},
    };
    return rows[family].tabs;
}
