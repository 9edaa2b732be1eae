// A picked line becomes a stored profile of the current position.
#pragma once

#include "analysis/profiles/forms/profile_dialog.h"

class SectionPane;

class CreateProfileForm : public ProfileDialog {
    Q_OBJECT

public:
    /// `family` says whose elements the line catches.
    CreateProfileForm(const ProfileFamily& family, const ProfileLine& line, QWidget* parent = nullptr);

protected:
    void reload() override;
    std::vector<LineElement> elementsToStore() const override;
    SectionView viewToStore() const override;
    QTableWidget* exported() const override { return table_; }

private:
    std::vector<LineElement> elements_;
    SectionPane* section_ = nullptr; // of a temperature profile
    QTableWidget* table_ = nullptr;
};
