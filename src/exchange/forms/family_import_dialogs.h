// The import dialogs of the families whose measures are numbers.
#pragma once

#include "exchange/forms/measure_import_dialog.h"

template <FamilyKey key>
class FamilyImportDialog : public MeasureImportDialog {
public:
    explicit FamilyImportDialog(QWidget* parent = nullptr) : MeasureImportDialog(*importFamily(key), parent) { }
};

using DMImportCmdDialog = FamilyImportDialog<FamilyKey::Dm>;
using RPImportCmdDialog = FamilyImportDialog<FamilyKey::Rp>;
using GGSImportCmdDialog = FamilyImportDialog<FamilyKey::Ggs>;
using TSGImportCmdDialog = FamilyImportDialog<FamilyKey::Tsg>;
using TSSImportCmdDialog = FamilyImportDialog<FamilyKey::Tss>;
