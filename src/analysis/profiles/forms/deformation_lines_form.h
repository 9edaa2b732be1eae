// The epures of settlement along a line, or along stored profiles, between two
// cycles or from a cycle to a forecast.
#pragma once

#include "analysis/profiles/deformation_profile.h"
#include "analysis/profiles/forms/profile_dialog.h"

class DeformationLinesForm : public ProfileDialog {
    Q_OBJECT

public:
    explicit DeformationLinesForm(QWidget* parent = nullptr);

    /// The ticked profiles, in the order of the list.
    std::vector<DeformationProfileClass> usedProfiles() const;
    double scale() const;  ///< drawing units a metre along the line
    QString title() const; ///< of the current side: " Цикл 3"
    double limit() const { return limit_; }

protected:
    void reload() override;
    std::vector<LineElement> elementsToStore() const override;
    QTableWidget* exported() const override { return marks_; }
    void stored() override { reload(); }
    void accept() override;

private:
    MovementRange range() const;
    QString sideTitle(bool base) const;
    void showProfiles();
    void showMarks();
    void chooseSide();
    void listProfiles();
    QString remark(bool read) const;

    std::vector<DeformationProfileClass> profiles_; // the picked line first
    double limit_ = INFINITY;                       // m
    int lost_ = 0;
    QStringList left_; // names of those that the user has unticked
    QComboBox* base_ = nullptr;
    QComboBox* current_ = nullptr;
    QCheckBox* usePrediction_ = nullptr;
    QComboBox* prediction_ = nullptr;
    QComboBox* scale_ = nullptr;
    QTableWidget* list_ = nullptr;
    QTableWidget* marks_ = nullptr;
    QLabel* largest_ = nullptr;
    QLabel* mean_ = nullptr;
};
