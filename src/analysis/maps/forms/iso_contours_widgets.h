// The controls of the isocontour dialog and how they lie.
#pragma once

#include <QObject>

class ColorMapWidget;
class QCheckBox;
class QComboBox;
class QDialog;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QSlider;
class QSpinBox;
class QWidget;

// Every control carries its own name as object name. Defaults stand; combos of
// layers are empty.
struct IsoContoursWidgets {
    explicit IsoContoursWidgets(QDialog* dialog);

    QWidget* boundGroup;
    QComboBox* BoundLayer;
    QPushButton* SelectBoundBth;
    QCheckBox* CalculateBoundCheck;
    QWidget* pointGroup;
    QComboBox* PointLayer;
    QPushButton* SelectPointBtn;
    QComboBox* MethodCombo;
    QLabel* MethodParamOneLabel;
    QLabel* MethodParamTwoLabel;
    QLineEdit* MethodParamOne;
    QLineEdit* MethodParamTwo;
    QLineEdit* MethodParamThree;
    QCheckBox* SplineLine;
    QSlider* TauSlider;
    QLineEdit* TauValue;
    QSpinBox* SplinePointNum;
    QCheckBox* IsolineFilterCheck;
    QLineEdit* FilterLinesDistance;
    QCheckBox* RefineLine;
    QLineEdit* RefineLineDist;
    QSpinBox* RefineLineCount;
    QLabel* PointCount;
    QLabel* TriangCount;
    QLabel* EdgeLength;
    QLabel* XMin;
    QLabel* XMax;
    QLabel* YMin;
    QLabel* YMax;
    QLabel* ZMin;
    QLabel* ZMax;
    ColorMapWidget* ColorMap;
    QCheckBox* HatchOutChek;
    QComboBox* HatchOutLayer;
    QCheckBox* IsoLineOutCheck;
    QComboBox* IsoLineOutLayer;
    QCheckBox* IsoContoursOutCheck;
    QComboBox* IsoContoursOutLayer;
    QPushButton* PreviewBTN;
    QPushButton* okButton;
    QPushButton* cancelButton;

private:
    QWidget* sourceGroup(QDialog* dialog);
    QWidget* methodGroup(QDialog* dialog);
    QWidget* lineGroup(QDialog* dialog);
    QWidget* statisticsGroup(QDialog* dialog);
    QWidget* outputGroup(QDialog* dialog);
    QLayout* buttonRow(QDialog* dialog);
};
