#include "drawing/sync/mode_prompt.h"

#include <nrx/editor.h>

std::optional<SyncMode> askSyncMode()
{
    // The second local word begins with a Latin letter; scripts are bound to it.
    ncedInitGet(0, "Чертеж aттрибуты-по-Позиции Аттрибуты-по-чертежу _ Dwg Position Drawing");
    QString answer;
    if (ncedGetKword("Синхронизировать [Чертеж/aттрибуты-по-Позиции/Аттрибуты-по-чертежу]  <aттрибуты-по-Позиции>",
                     answer)
        != kPromptNormal)
        return {};
    if (answer == QLatin1String("Dwg"))
        return SyncMode::File;
    return answer == QLatin1String("Position") ? SyncMode::Position : SyncMode::Drawing;
}
