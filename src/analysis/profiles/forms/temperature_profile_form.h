// The sections along a line: temperatures of one cycle, and the difference of two.
#pragma once

#include "analysis/profiles/forms/section_form.h"

class TemperatureProfileForm : public SectionForm {
    Q_OBJECT

public:
    explicit TemperatureProfileForm(QWidget* parent = nullptr);
    SectionTitles titles() const override;
    int mapType() const override { return 0; }

protected:
    bool loadWells(const WellPlace& place, std::vector<SectionWell>& wells) override;

private:
    QComboBox* cycle_;
};

class TemperatureDiffProfileForm : public SectionForm {
    Q_OBJECT

public:
    explicit TemperatureDiffProfileForm(QWidget* parent = nullptr);
    SectionTitles titles() const override;
    int mapType() const override { return 2; }

protected:
    bool loadWells(const WellPlace& place, std::vector<SectionWell>& wells) override;

private:
    QComboBox* base_;
    QComboBox* current_;
};
