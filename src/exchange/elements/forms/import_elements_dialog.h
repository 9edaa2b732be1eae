// Elements out of a file: the user says what each column holds, sees what
// would become of them, and lets them go into the drawing or, by their names,
// into the whole database.
#pragma once

#include "exchange/elements/element_preview.h"
#include "exchange/forms/file_format_controls.h"

#include <QDialog>

class RoleView;

class ImportElementsDialog : public QDialog, private FileFormatControls {
    Q_OBJECT

public:
    explicit ImportElementsDialog(QWidget* parent = nullptr);

    void reject() override; ///< not while elements are written

private:
    QWidget* targetGroup();
    void fillChoices();
    void connectChanges();
    void chooseFile();
    void readFile();
    void readRecords();
    void showRecords();
    void showRow(int row, const QVector<PreviewCell>& cells);
    void rememberColumns() const;
    QHash<QString, int> knownIds() const;
    int chosenKind() const;
    void runImport();
    bool isReady();

    QLineEdit* fileName_;
    QRadioButton* byRows_;
    QRadioButton* byColumns_;
    QCheckBox* update_;
    QComboBox* types_;
    QComboBox* positions_;
    QComboBox* catalog_;
    QLabel* catalogCaption_;
    RoleView* raw_;
    QTableWidget* preview_;
    QStringList lines_;
    QVector<ElementRecord> records_;
    BaseElements base_;
    bool busy_ = false;
};
