// The marks along a line, how far each has settled from a base cycle to a
// current one or to a forecast, and their epure on the line.
#pragma once

#include "analysis/profiles/deformation_profile.h"
#include "analysis/profiles/forms/profile_dialog.h"
#include "analysis/profiles/sketch.h"

class DeformationProfileListWidget;
class EpochChoice;

class SettlementsMapForm : public ProfileDialog {
    Q_OBJECT

public:
    explicit SettlementsMapForm(QWidget* parent = nullptr);

    void setLine(const ProfileLine& line) override;
    /// No line was picked: the position's profiles are offered, the first one is taken.
    void offerStored();

    /// Blocks under the line, and their values unless the user does without.
    Sketch epure() const;

protected:
    void reload() override;
    std::vector<LineElement> elementsToStore() const override;
    QTableWidget* exported() const override { return marks_; }
    void stored() override;
    void accept() override;

private:
    void takeStored(int id);
    void showMarks();

    DeformationProfileClass profile_;
    double limit_ = INFINITY; // m
    int lost_ = 0;            // marks of the stored profile that are no longer in the base
    EpochChoice* epochs_;
    DeformationProfileListWidget* list_ = nullptr;
    QTableWidget* marks_;
    QCheckBox* labels_ = nullptr;
    QLabel* largest_ = nullptr;
    QLabel* mean_ = nullptr;
};
