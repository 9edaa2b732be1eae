#pragma once

#include "exchange/geology/well_geology.h"
#include "exchange/text_file.h"

#include <QDialog>

class QComboBox;
class QLineEdit;
class QTableWidget;
class QTableWidgetItem;

/// Reads geological columns from a file, shows them well by well, and brings
/// those that are ticked into the database.
class IGSGeologyImportDialog : public QDialog {
    Q_OBJECT

public:
    explicit IGSGeologyImportDialog(QWidget* parent = nullptr);

    void reject() override; ///< not while wells are written

private:
    void chooseFile();
    void readFile();
    void showWells();
    void showWell(int row, const WellGeology& well);
    void showLayers(int row, const QVector<WellLayer>& layers);
    void runImport();
    QVector<WellGeology> checkedWells() const;
    TextEncoding encoding() const;

    QLineEdit* fileName_;
    QComboBox* encoding_;
    QLineEdit* separator_;
    QComboBox* positions_;
    QTableWidget* table_;
    QVector<WellGeology> wells_;
    bool busy_ = false;
};
