#pragma once
// The parameters that a kind of document asks for: one widget each, which
// gives its part of them.

#include "elements/families/family_key.h"
#include "reports/templates/export_template_class.h"

#include <QWidget>
#include <vector>

class ColorMapWidget;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QTableWidget;
class QTreeWidget;

class ConditionWidget : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
    virtual void give(ReportParameters& parameters) const = 0;
};

/// The base and the current cycle.
class ReportCyclesSelectionWidget : public ConditionWidget {
    Q_OBJECT

public:
    explicit ReportCyclesSelectionWidget(QWidget* parent = nullptr);
    void give(ReportParameters& parameters) const override;

private:
    QComboBox* base_;
    QComboBox* current_;
};

class ReportSingleCycleSelectionWidget : public ConditionWidget {
    Q_OBJECT

public:
    explicit ReportSingleCycleSelectionWidget(QWidget* parent = nullptr);
    void give(ReportParameters& parameters) const override;

private:
    QComboBox* cycle_;
};

class ReportTreeProjectPartWidget : public ConditionWidget {
    Q_OBJECT

public:
    explicit ReportTreeProjectPartWidget(QWidget* parent = nullptr);
    void give(ReportParameters& parameters) const override;

private:
    QComboBox* part_;
};

/// The elements of a part, each with a box.
class ReportTreeFilterElementsWidget : public ConditionWidget {
    Q_OBJECT

public:
    explicit ReportTreeFilterElementsWidget(FamilyKey family, QWidget* parent = nullptr);
    void give(ReportParameters& parameters) const override;

private:
    void showElements();

    FamilyKey family_;
    QComboBox* part_;
    QTableWidget* elements_;
};

/// The positions of the project, each with a box.
class ReportPositionSelectorWidget : public ConditionWidget {
    Q_OBJECT

public:
    explicit ReportPositionSelectorWidget(QWidget* parent = nullptr);
    void give(ReportParameters& parameters) const override;

private:
    QTreeWidget* tree_;
};

class ReportColorMapSelectionWidget : public ConditionWidget {
    Q_OBJECT

public:
    explicit ReportColorMapSelectionWidget(int levelMapId, QWidget* parent = nullptr);
    void give(ReportParameters& parameters) const override;

private:
    ColorMapWidget* map_;
};

class ReportFolderSelectionWidget : public ConditionWidget {
    Q_OBJECT

public:
    explicit ReportFolderSelectionWidget(QWidget* parent = nullptr);
    void give(ReportParameters& parameters) const override;

private:
    void chooseFolder();

    QLineEdit* folder_;
    QCheckBox* overwrite_;
    QCheckBox* merge_;
};

class ReportDefectOnliCheckWidget : public ConditionWidget { // the name is known so
    Q_OBJECT

public:
    explicit ReportDefectOnliCheckWidget(QWidget* parent = nullptr);
    void give(ReportParameters& parameters) const override;

private:
    QCheckBox* defectsOnly_;
};

struct Condition {
    quint32 bit;
    ConditionWidget* widget;
};
/// The widgets of a mask, in the order in which they stand in the list.
std::vector<Condition> makeConditions(quint32 conditions);
