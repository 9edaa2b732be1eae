// How a section is drawn, as the user says it.
#pragma once

#include "analysis/profiles/section_view.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QRadioButton;

class SectionPane : public QWidget {
    Q_OBJECT

public:
    explicit SectionPane(QWidget* parent = nullptr);

    /// Its origin is none of the user's choices and stays (0, 0).
    SectionView view() const;
    /// Scales and steps that are none of the choices are added to them.
    void showView(const SectionView& view);

private:
    QRadioButton* byDepth_;
    QRadioButton* byElevation_;
    QComboBox* horizontal_;
    QComboBox* vertical_;
    QComboBox* pickets_;
    QCheckBox* toFooter_;
};

/// The text of each scale with its factor as the data.
void fillScales(QComboBox* combo, const std::vector<ScaleChoice>& scales, double chosen);
