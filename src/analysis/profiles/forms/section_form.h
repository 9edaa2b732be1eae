// What the sections of temperatures and of their differences have in common:
// the wells along a line, or those of a stored profile, and how they are drawn.
#pragma once

#include "analysis/profiles/forms/profile_dialog.h"
#include "analysis/profiles/section_frame.h"

class SectionPane;
class TemperatureProfileListWidget;

class SectionForm : public ProfileDialog {
    Q_OBJECT

public:
    void setLine(const ProfileLine& line) override;
    /// No line was picked: the position's profiles are offered, the first one is taken.
    void offerStored();

    /// The checked wells in the order of the line.
    std::vector<SectionWell> usedWells() const;
    SectionView view() const { return viewToStore(); }
    double lineLength() const { return line().length(); }
    virtual SectionTitles titles() const = 0;
    /// 0 temperatures, 2 their dynamics: which colour map of the project.
    virtual int mapType() const = 0;

protected:
    SectionForm(const char* name, const char* title, QWidget* parent);

    /// The frame, with the heir's cycles.
    void layOutSection(const std::vector<formkit::Cells>& cycles);
    /// The wells of the place with the logs that are drawn; false when the server refuses.
    virtual bool loadWells(const WellPlace& place, std::vector<SectionWell>& wells) = 0;

    void reload() override;
    std::vector<LineElement> elementsToStore() const override;
    SectionView viewToStore() const override;
    QTableWidget* exported() const override { return table_; }
    void stored() override;
    void accept() override;

private:
    void takeStored(int id);
    void showWells();
    QString remark(bool read) const;

    std::vector<SectionWell> wells_;
    int lost_ = 0; // wells of the stored profile that are no longer in the base
    SectionPane* section_ = nullptr;
    TemperatureProfileListWidget* list_ = nullptr;
    QTableWidget* table_ = nullptr;
};
