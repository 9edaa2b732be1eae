#pragma once
// The measures of an element as a table and as a chart over time.

#include "elements/passports/forms/passport_page.h"

class ChartLabel;
class MeasureView;

class MeasuresPage : public PassportPage {
    Q_OBJECT

public:
    explicit MeasuresPage(PassportRecord& record, QWidget* parent = nullptr);

    void showRecord() override;

private:
    MeasureView* table_;
    ChartLabel* chart_;
};
