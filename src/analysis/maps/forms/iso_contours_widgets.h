// The controls of the isocontour dialog and how they lie.
#pragma once

#include <QObject>

class ColorMapWidget;
class QCheckBox;
class QComboBox;
class QDialog;
class QGroupBox;
class QLabel;
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

private:
    QWidget* boundPane();
    QWidget* pointPane();
    QWidget* methodPane();
    QWidget* linePane();
    QWidget* statisticsPane();
    QWidget* outputPane();
};
