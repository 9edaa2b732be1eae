#pragma once
// One inspection. The six forms are one form and six rows.

#include "elements/inspections/inspection_record.h"
#include "formkit/record_dialog.h"

class QLabelClickable;

class InspectionForm : public formkit::FieldsDialog {
    Q_OBJECT

public:
    explicit InspectionForm(FamilyKey family, QWidget* parent = nullptr);

    /// Shows a stored inspection; false when it cannot be read.
    bool load(int inspectId);
    /// A new inspection of the element.
    void startNew(int elementId, int cycleId);
    /// A new inspection with what a stored one says; false when that cannot be read.
    bool startCopy(int inspectId);
    /// What is typed is stored nowhere: it serves for many elements.
    void startPattern(int cycleId);

    /// Of an accepted form what was typed.
    const InspectionRecord& record() const { return record_; }

protected:
    QString fault() const override;
    bool store() override;

private:
    void showRecord(const QString& id);
    InspectionRecord typed() const;
    void choosePhoto();

    InspectionRecord record_;
    int cycleBefore_ = -1;
    bool pattern_ = false;
    QLabelClickable* photo_;
};

template <FamilyKey key>
class FamilyInspectionForm : public InspectionForm {
public:
    explicit FamilyInspectionForm(QWidget* parent = nullptr) : InspectionForm(key, parent) { }
};

using DMInspectionForm = FamilyInspectionForm<FamilyKey::Dm>;
using TSInspectionForm = FamilyInspectionForm<FamilyKey::Ts>;
using RPInspectionForm = FamilyInspectionForm<FamilyKey::Rp>;
using GGSInspectionForm = FamilyInspectionForm<FamilyKey::Ggs>;
using TSGInspectionForm = FamilyInspectionForm<FamilyKey::Tsg>;
using TSSInspectionForm = FamilyInspectionForm<FamilyKey::Tss>;
