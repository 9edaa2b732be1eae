#pragma once
// Which pages the passport of each family has.

#include "elements/passports/forms/passport_page.h"

#include <vector>

struct PassportTab {
    QString title;
    QString name; ///< object name of the page
    PassportPage* (*make)(PassportRecord& record);
};

/// In the order in which they stand.
const std::vector<PassportTab>& passportTabs(FamilyKey family);
