// The controls of the temperature map's form and how they lie.
#pragma once

class QCheckBox;
class QComboBox;
class QDialog;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTableWidget;
class QWidget;

// Every control carries its own name as object name.
struct TemperatureMapWidgets {
    explicit TemperatureMapWidgets(QDialog* dialog);

    QRadioButton* ByPosition;
    QComboBox* PositionContourList;
    QRadioButton* ByDataBase;
    QComboBox* BoundLayer;
    QLabel* BoundStatus;
    QComboBox* MeasData;
    QRadioButton* DeepSampling;
    QRadioButton* HSampling;
    QRadioButton* AverageSampling;
    QDoubleSpinBox* DeepSpin;
    QDoubleSpinBox* IntervalBegin;
    QDoubleSpinBox* IntervalEnd;
    QCheckBox* ToEndSamplihg; // scripts know it by this spelling
    QCheckBox* EndPoint;
    QPushButton* StateFilterBtn;
    QLabel* SelectedStatesLb;
    QTableWidget* PointData;
    QTableWidget* ValuesData;
    QLabel* ValuesCorner;
    QPushButton* ExportCSVBTN;
    QPushButton* CopyClipBTN;
    QCheckBox* LabelsOutEnabled;
    QLabel* StatusLabel;
    QPushButton* okButton;
    QPushButton* cancelButton;

private:
    QWidget* placeGroup(QDialog* dialog);
    QWidget* samplingGroup(QDialog* dialog);
    QWidget* stateRow(QDialog* dialog);
    QWidget* tables(QDialog* dialog);
};
