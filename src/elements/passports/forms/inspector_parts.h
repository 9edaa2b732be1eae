#pragma once
// What the inspectors show below the fields of the row: measures of most
// families, profiles of a thermal well, the drilling of a geological one.

#include "elements/passports/forms/element_inspector.h"
#include "elements/passports/forms/igs_geology_fields.h"

class MeasureActions;
class MeasureView;
class QComboBox;
class QLabel;
class QTableWidget;

/// The part of the record's family.
InspectorPart* makeInspectorPart(PassportRecord& record);

class MeasuresPart : public InspectorPart {
    Q_OBJECT

public:
    explicit MeasuresPart(PassportRecord& record);
    void showRecord() override;

private:
    MeasureView* view_;
};

/// One profile at a time.
class ProfilesPart : public InspectorPart {
    Q_OBJECT

public:
    explicit ProfilesPart(PassportRecord& record);
    void showRecord() override;

private:
    const BaseMeasure* chosen() const;
    void fillCycles();
    void showProfile();
    void showMenu(const QPoint& place);

    PassportRecord& record_;
    MeasureActions* actions_;
    QComboBox* cycles_;
    QLabel* date_;
    QTableWidget* profile_;
};

class DrillingPart : public InspectorPart {
    Q_OBJECT

public:
    explicit DrillingPart(PassportRecord& record);
    void showRecord() override;
    QString fault() const override { return fields_.fault(); }
    void store() override;

private:
    PassportRecord& record_;
    IgsGeologyFields fields_;
    IgsGeologyRow row_;
};
