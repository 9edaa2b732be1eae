// The stored profiles of a position: choosing one, deleting it.
#pragma once

#include "analysis/profiles/profile_record.h"
#include "formkit/catalogue_list.h"

#include <QDialog>

class ProfileListWidget : public formkit::CatalogueList {
    Q_OBJECT

public:
    /// Shows the profiles of this position.
    void setPosition(int positionId);
    /// -1 when none is chosen.
    int currentId() const;
    void chooseFirst();

signals:
    void chosen(int id); ///< another row became the current one; -1 for none

protected:
    ProfileListWidget(const ProfileFamily& family, QWidget* parent);
    void activate(const QModelIndex& place) override; // a profile has no record to edit

private:
    const ProfileFamily& family_;
};

class TemperatureProfileListWidget : public ProfileListWidget {
    Q_OBJECT
public:
    explicit TemperatureProfileListWidget(QWidget* parent = nullptr) : ProfileListWidget(temperatureProfiles(), parent)
    { }
};

class DeformationProfileListWidget : public ProfileListWidget {
    Q_OBJECT
public:
    explicit DeformationProfileListWidget(QWidget* parent = nullptr) : ProfileListWidget(deformationProfiles(), parent)
    { }
};

/// The deformation profiles of the current position; what was chosen when it ended as accepted.
class DeformationProfileListForm : public QDialog {
    Q_OBJECT
public:
    explicit DeformationProfileListForm(QWidget* parent = nullptr);
    int chosenProfile() const { return list_->currentId(); }

private:
    DeformationProfileListWidget* list_;
};
