#pragma once
// The first page of a geological well's passport: its element and what is told
// of its drilling.

#include "elements/passports/forms/element_fields.h"
#include "elements/passports/forms/igs_geology_fields.h"
#include "elements/passports/forms/passport_page.h"

class IgsGeneralPage : public PassportPage {
    Q_OBJECT

public:
    explicit IgsGeneralPage(PassportRecord& record, QWidget* parent = nullptr);

    void showRecord() override;
    QString fault() const override;
    bool store() override;
    void tellStored() override;

private:
    ElementFields fields_;
    IgsGeologyFields geology_;
    IgsGeologyRow geologyRow_;
};
