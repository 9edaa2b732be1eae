// The controls of an import dialog and how they lie.
#pragma once

#include "exchange/forms/file_format_controls.h"

class MeasuresView;
class QDialog;
class QGridLayout;
class QProgressBar;
class QTableView;

// Every control carries its own name as object name.
struct ImportControls : FileFormatControls {
    explicit ImportControls(QDialog* dialog);

    QPushButton* OpenFileBtn;
    QLineEdit* FileName;
    QComboBox* ImportTemplate;
    QRadioButton* ProjectPosition;
    QRadioButton* AllDatabase;
    QComboBox* PositionCombo;
    QLabel* PositionLabel;
    QComboBox* CyclesCombo;
    QPushButton* BTNCyclesToAll;
    QPushButton* BTNCycleList;
    QComboBox* DeviceCombo;
    QPushButton* BTNToolToAll;
    QPushButton* BTNDevicesList;
    QComboBox* OperatorCombo;
    QPushButton* BTNOperatorToAll;
    QPushButton* BTNPerformersList;
    MeasuresView* measuresView;
    QTableView* RawInput;
    QProgressBar* ReadProgress;
    QLabel* RemarkLabel; ///< what is odd about the file; hidden while nothing is
    QLabel* SummaryLabel;
    QPushButton* ImportBtn;
    QPushButton* CopyErrorsBtn;
    QPushButton* CloseBtn;

    /// Another value that can be given to all rows; returns its button "Все".
    QPushButton* addForAll(const QString& caption, QWidget* value, const QString& buttonName);

private:
    QWidget* elementsGroup();
    QWidget* forAllGroup();
    static QTableView* rawTable();

    QGridLayout* forAll_ = nullptr;
};
