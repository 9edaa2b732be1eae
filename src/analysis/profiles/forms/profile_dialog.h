// The frame of every form that takes a profile along a line: the line, how near
// to it an element must stand, where elements are looked for, keeping the
// profile, exports. An heir brings its cycles and its tables:
//
//   - its constructor makes its controls, calls layOutProfile() with them, then
//     reload() once all stand;
//   - reload() reads the elements for the line that there is and shows them.
#pragma once

#include "analysis/profiles/profile_record.h"
#include "formkit/layout.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"

#include <QDialog>

/// What the heirs differ in by words alone.
struct ProfileWords {
    const char* name; ///< of the dialog
    const char* title;
    const char* elements;          ///< title of the group that says where they are looked for
    const char* corridor;          ///< caption of the choice
    const char* nameAsked = "Имя"; ///< what is asked for when a profile is kept
    formkit::TextPart fileParts = formkit::WithTitles;
};

class ProfileDialog : public QDialog {
    Q_OBJECT

public:
    /// A line picked in the drawing.
    virtual void setLine(const ProfileLine& line);

protected:
    ProfileDialog(const ProfileWords& words, const ProfileFamily& family, QWidget* parent);

    /// The frame: the heir's own panes below those of the line at the left, its
    /// tables at the right, what ends it at the right below.
    void layOutProfile(const std::vector<formkit::Item>& own, const formkit::Item& tables, QWidget* ends);

    virtual void reload() = 0;
    /// What is kept of the profile: its elements and how it is drawn.
    virtual std::vector<LineElement> elementsToStore() const = 0;
    virtual SectionView viewToStore() const { return {}; }
    virtual QTableWidget* exported() const = 0;
    /// A profile was written.
    virtual void stored() { }

    const ProfileFamily& family() const { return family_; }
    const ProfileLine& line() const { return line_; }
    bool hasLine() const { return line_.length() > 0.0; }
    double tolerance() const;
    std::optional<int> searchedPosition() const; ///< none for the whole base
    /// The stored profile that is shown; its id is -1 for a picked line.
    const ProfileRecord& record() const { return record_; }
    /// Shows a stored profile; false when it is no longer there.
    bool showRecord(int id, int* lost);
    void forgetRecord();
    void setStatus(const QString& text) { status_->setText(text); }

private:
    void showLine(bool picked);
    void save();
    formkit::Item linePane();
    formkit::Item placePane();

    ProfileWords words_;
    const ProfileFamily& family_;
    ProfileLine line_;
    ProfileRecord record_;
    QLabel* picked_ = nullptr;
    QLabel* length_ = nullptr;
    QLabel* vertices_ = nullptr;
    QLabel* status_ = nullptr;
    QRadioButton* byPosition_ = nullptr;
    QRadioButton* byDatabase_ = nullptr;
    QRadioButton* exact_ = nullptr;
    QRadioButton* corridor_ = nullptr;
    QDoubleSpinBox* tolerance_ = nullptr;
};
