#pragma once
// The measures of a thermal well: all profiles as a table, those that are ticked
// as a chart.

#include "elements/passports/forms/passport_page.h"
#include "elements/passports/profile_picture.h"

class ChartLabel;
class MeasureTicks;
class MeasureView;
class QCheckBox;
class QLabel;

class ProfilesPage : public PassportPage {
    Q_OBJECT

public:
    explicit ProfilesPage(PassportRecord& record, QWidget* parent = nullptr);

    void showRecord() override;
    void showMeasures() override;

private:
    ProfileWishes wishes() const;

    ProfilePicture picture_;
    QLabel* ground_;
    MeasureView* table_;
    ChartLabel* chart_;
    MeasureTicks* ticks_;
    QCheckBox* withGround_;
    QCheckBox* withKey_;
};
