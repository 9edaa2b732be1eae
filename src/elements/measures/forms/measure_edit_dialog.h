#pragma once
// Edits one stored measure. The six dialogs are one form and six rows.

#include "elements/measures/family_measures.h"
#include "formkit/record_dialog.h"

class QLabel;
class QTableWidget;

/// A family's dialog: its name and the fields of its numbers, in the order of
/// the family's columns.
struct MeasureEditor {
    FamilyKey family;
    QString dialogName;
    formkit::FieldList values;
};

class MeasureEditDialog : public formkit::FieldsDialog {
    Q_OBJECT

public:
    explicit MeasureEditDialog(FamilyKey family, QWidget* parent = nullptr);
    ~MeasureEditDialog() override;

    /// Shows the measure; false when it cannot be read.
    bool open(int measureId);

    void accept() override;

protected:
    /// Its failure is not told and does not keep the dialog open.
    bool store() override;

private:
    MeasureEditDialog(const MeasureEditor& editor, std::unique_ptr<BaseMeasure> measure, QWidget* parent);
    void showProfile();
    void showStatus();
    void take();
    bool cycleIsTaken() const;

    const MeasureEditor& editor_;
    std::unique_ptr<BaseMeasure> measure_;
    QTableWidget* profile_ = nullptr;
    QLabel* status_;
    int cycleBefore_ = -1;
    std::array<double, 2> stored_{}; // numbers
    QStringList shown_;              // the same as the fields show them
};

template <FamilyKey key>
class FamilyMeasureEditDialog : public MeasureEditDialog {
public:
    explicit FamilyMeasureEditDialog(QWidget* parent = nullptr) : MeasureEditDialog(key, parent) { }
};

using DMMeasureEditDialog = FamilyMeasureEditDialog<FamilyKey::Dm>;
using RPMeasureEditDialog = FamilyMeasureEditDialog<FamilyKey::Rp>;
using GGSMeasureEditDialog = FamilyMeasureEditDialog<FamilyKey::Ggs>;
using TSGMeasureEditDialog = FamilyMeasureEditDialog<FamilyKey::Tsg>;
using TSSMeasureEditDialog = FamilyMeasureEditDialog<FamilyKey::Tss>;
using TSMeasureEditDialog = FamilyMeasureEditDialog<FamilyKey::Ts>;
