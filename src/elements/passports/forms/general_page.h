#pragma once
// The first page of a passport: the element's row, and beside it its inspections.

#include "elements/passports/forms/element_fields.h"
#include "elements/passports/forms/passport_page.h"

class InspectionView;

class GeneralPage : public PassportPage {
    Q_OBJECT

public:
    explicit GeneralPage(PassportRecord& record, QWidget* parent = nullptr);

    void showRecord() override;
    QString fault() const override;
    bool store() override;

private:
    void showAfterInspection();

    ElementFields fields_;
    InspectionView* inspections_;
};
