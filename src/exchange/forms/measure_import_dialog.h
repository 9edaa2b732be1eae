// The import of a family's measures from a file: shows every row as a candidate,
// lets it be mended, and writes the checked ones. A family is a row of data; an
// heir adds what its family alone has.
#pragma once

#include "database/catalogues/forms/catalogue_box.h"
#include "exchange/forms/import_controls.h"
#include "exchange/measure_reading.h"
#include "exchange/raw_lines.h"
#include "formkit/progress_box.h"

#include <QDialog>
#include <functional>

class MeasureImportDialog : public QDialog {
    Q_OBJECT

public:
    explicit MeasureImportDialog(const ImportFamily& family, QWidget* parent = nullptr);

    void reject() override; ///< not while a file is read or written

protected:
    const ImportFamily& family() const { return family_; }
    ImportControls& controls() { return ui_; }
    MeasureTable& table() { return table_; }
    /// Gives all rows something under a box of progress.
    void giveAll(const std::function<void(const WorkStep& step)>& give);

private:
    void connectFormat();
    void connectForAll();
    void connectTable();
    void chooseFile();
    void chooseScope();
    int chosenPosition() const;
    void reloadLists();
    void showCatalogue(CatalogueKind kind);
    void readFile();
    bool takeLines(const ReadingTask& task, formkit::ProgressBox& box);
    void setDelegates(const EntryList& elements);
    void showSummary();
    void showRemarks(QStringList remarks, bool anyLine);
    void runImport();
    void copyErrors();

    const ImportFamily& family_;
    ImportControls ui_;
    MeasureTable table_;
    RawLines raw_;
    MeasureLists lists_; ///< cycles, devices, performers
    EntryList elements_; ///< of the chosen scope
    bool quiet_ = false; ///< several settings change as one
    bool busy_ = false;
    formkit::BarProgress progress_;
};
