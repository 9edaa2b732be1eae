#include "exchange/forms/measure_import_dialog.h"

#include "elements/measures/forms/combo_box_delegate.h"
#include "exchange/empty_result.h"
#include "exchange/forms/import_combos.h"
#include "exchange/forms/import_questions.h"
#include "exchange/forms/measures_view.h"
#include "formkit/file_questions.h"
#include "formkit/progress_box.h"
#include "formkit/table_items.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <QScopedValueRollback>
#include <QTableView>

using namespace formkit;

namespace {

enum Column { ElementColumn = 1, CycleColumn, DeviceColumn, PerformerColumn };

const QString readingFile = QStringLiteral("Чтение файла");
const QString readingLines = QStringLiteral("Разбор строк");
const QString checkingRows = QStringLiteral("Проверка строк");

const auto choiceChanged = QOverload<int>::of(&QComboBox::currentIndexChanged);

} // namespace

MeasureImportDialog::MeasureImportDialog(const ImportFamily& family, QWidget* parent)
    : QDialog(parent), family_(family), ui_(this), table_(family)
{
    nameForm(this, family_.dialogName, family_.title);
    ui_.measuresView->setModel(&table_);
    ui_.RawInput->setModel(&raw_);
    for (const ImportTemplate& format : family_.templates)
        ui_.ImportTemplate->addItem(format.filter);
    fillPositions(ui_.PositionCombo);
    ui_.PositionCombo->setCurrentIndex(ui_.PositionCombo->findData(session().currentPositionId));
    ui_.PositionLabel->setText(positionLabel(chosenPosition()));
    reloadLists();
    connectFormat();
    connectForAll();
    connectTable();
    showSummary();
}

void MeasureImportDialog::connectFormat()
{
    connect(ui_.OpenFileBtn, &QPushButton::clicked, this, &MeasureImportDialog::chooseFile);
    connect(ui_.ImportTemplate, choiceChanged, this, &MeasureImportDialog::readFile);
    ui_.onChange(this, [this] { readFile(); });
    connect(ui_.AllDatabase, &QRadioButton::toggled, this, &MeasureImportDialog::chooseScope);
    connect(ui_.PositionCombo, choiceChanged, this, &MeasureImportDialog::chooseScope);
}

void MeasureImportDialog::connectForAll()
{
    using Give = void (MeasureTable::*)(int id, const WorkStep& step);
    const auto toAll = [this](const QPushButton* button, const QComboBox* combo, Give give) {
        connect(button, &QPushButton::clicked, this,
                [=] { giveAll([&](const WorkStep& step) { (table_.*give)(combo->currentData().toInt(), step); }); });
    };
    toAll(ui_.BTNCyclesToAll, ui_.CyclesCombo, &MeasureTable::giveCycle);
    toAll(ui_.BTNToolToAll, ui_.DeviceCombo, &MeasureTable::giveDevice);
    toAll(ui_.BTNOperatorToAll, ui_.OperatorCombo, &MeasureTable::givePerformer);
    connect(ui_.BTNCycleList, &QPushButton::clicked, this, [this] { showCatalogue(CatalogueKind::Cycles); });
    connect(ui_.BTNDevicesList, &QPushButton::clicked, this, [this] { showCatalogue(CatalogueKind::Devices); });
    connect(ui_.BTNPerformersList, &QPushButton::clicked, this, [this] { showCatalogue(CatalogueKind::Performers); });
}

void MeasureImportDialog::connectTable()
{
    connect(&table_, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& first, const QModelIndex& last) {
        if (last.row() == first.row())
            ui_.measuresView->resizeRowToContents(first.row());
        else
            ui_.measuresView->fitRows();
        showSummary();
    });
    connect(ui_.ImportBtn, &QPushButton::clicked, this, &MeasureImportDialog::runImport);
    connect(ui_.CopyErrorsBtn, &QPushButton::clicked, this, &MeasureImportDialog::copyErrors);
    connect(ui_.CloseBtn, &QPushButton::clicked, this, &QDialog::reject);
}

void MeasureImportDialog::reject()
{
    if (!busy_)
        QDialog::reject();
}

// --- what is read --------------------------------------------------------------

void MeasureImportDialog::chooseFile()
{
    if (busy_)
        return;
    QStringList filters;
    for (const ImportTemplate& format : family_.templates)
        filters.append(format.filter);
    QString filter = filters.value(ui_.ImportTemplate->currentIndex());
    const QString path = askFileToOpen(this, {"Открыть файл", filters.join(";;"), ui_.FileName->text(), &filter});
    if (path.isEmpty())
        return;
    {
        const QScopedValueRollback<bool> asOne(quiet_, true);
        ui_.FileName->setText(path);
        ui_.ImportTemplate->setCurrentIndex(qMax(0, filters.indexOf(filter)));
        if (ui_.ImportTemplate->currentIndex() == 0)
            ui_.chooseUsualFormat();
    }
    readFile();
}

int MeasureImportDialog::chosenPosition() const { return chosenId(ui_.PositionCombo); }

void MeasureImportDialog::chooseScope()
{
    ui_.PositionCombo->setEnabled(!ui_.AllDatabase->isChecked());
    ui_.PositionLabel->setText(positionLabel(chosenPosition()));
    readFile();
}

void MeasureImportDialog::reloadLists()
{
    loadCycles(lists_);
    loadDevices(lists_);
    loadPerformers(lists_);
    fillCycles(ui_.CyclesCombo);
    fillDevices(ui_.DeviceCombo);
    fillPerformers(ui_.OperatorCombo);
}

void MeasureImportDialog::showCatalogue(CatalogueKind kind)
{
    if (busy_)
        return;
    openCatalogue(kind, this);
    reloadLists();
    table_.setLists(lists_);
    setDelegates(elements_);
}

void MeasureImportDialog::readFile()
{
    if (quiet_ || busy_ || ui_.FileName->text().isEmpty())
        return;
    const QScopedValueRollback<bool> reading(busy_, true);
    ReadingTask task;
    task.positionId = chosenPosition();
    loadScope(measureFamily(family_.family)->elementTable, task.positionId, ui_.AllDatabase->isChecked(), task.scope);
    table_.clear();
    ProgressBox box(this, family_.title, readingFile, "Остановить");
    const TextFile text = readTextFile(ui_.FileName->text(), ui_.encoding(),
                                       [&](int done, int total) { return box.step(done, total, readingFile); });
    task.lines = text.lines;
    ui_.chooseEncoding(text.encoding);
    task.separator = ui_.separator();
    task.format = &family_.templates[qMax(0, ui_.ImportTemplate->currentIndex())];
    task.lists = lists_;
    raw_.setLines(task.lines, task.separator);
    const bool whole = takeLines(task, box);
    elements_ = task.scope.elements;
    setDelegates(elements_);
    ui_.measuresView->fitRows();
    showSummary();
    if (whole)
        showRemarks(text.remarks, !text.lines.isEmpty());
    else
        showRemarks({"Чтение файла остановлено."}, false);
}

// False when the user has stopped it: the table is empty then.
bool MeasureImportDialog::takeLines(const ReadingTask& task, ProgressBox& box)
{
    const int lines = task.lines.size();
    progress_.start(ui_.ReadProgress, lines);
    bool whole = true;
    MeasureTable::Measures measures = readMeasures(family_, task, [&](int line) {
        progress_.step(line);
        whole = box.step(line, lines, readingLines);
        return whole;
    });
    return whole && table_.setMeasures(std::move(measures), task.scope, [&](int done, int total) {
        return box.step(done, total, checkingRows);
    });
}

// On the command line, and where the user looks.
void MeasureImportDialog::showRemarks(QStringList remarks, bool anyLine)
{
    if (table_.rowCount() == 0) {
        const ReadingChoice chosen{qMax(0, ui_.ImportTemplate->currentIndex()), ui_.separator(), ui_.encoding()};
        if (anyLine)
            remarks << QStringLiteral("Не прочитано ни одной строки. ")
                    + emptyCause(family_, ui_.FileName->text(), chosen);
        else if (remarks.isEmpty())
            remarks << QStringLiteral("Файл пуст.");
    }
    for (const QString& remark : qAsConst(remarks))
        say(QLatin1Char('\n') + remark + QLatin1Char('\n'));
    ui_.RemarkLabel->setText(remarks.join(QLatin1Char('\n')));
    ui_.RemarkLabel->setVisible(!remarks.isEmpty());
}

void MeasureImportDialog::setDelegates(const EntryList& elements)
{
    if (table_.columnCount() < 5)
        return;
    const std::pair<int, const EntryList&> columns[] = {
        {ElementColumn, elements},
        {CycleColumn, lists_.cycles},
        {DeviceColumn, lists_.devices},
        {PerformerColumn, lists_.performers},
    };
    for (const auto& [column, entries] : columns) {
        const QAbstractItemDelegate* before = ui_.measuresView->itemDelegateForColumn(column);
        ui_.measuresView->setItemDelegateForColumn(column, new ComboBoxDelegate(entries, ui_.measuresView));
        delete before;
    }
}

void MeasureImportDialog::giveAll(const std::function<void(const WorkStep& step)>& give)
{
    if (busy_)
        return;
    const QScopedValueRollback<bool> giving(busy_, true);
    ProgressBox box(this, family_.title, checkingRows, QString());
    give([&](int done, int total) { return box.step(done, total); });
}

void MeasureImportDialog::showSummary() { ui_.SummaryLabel->setText(table_.summaryText()); }

// --- what is written -------------------------------------------------------------

void MeasureImportDialog::runImport()
{
    if (busy_)
        return;
    const QScopedValueRollback<bool> writing(busy_, true);
    ProgressBox box(this, family_.title, "Запись измерений в базу данных", "Остановить");
    progress_.start(ui_.ReadProgress, table_.rowCount());
    importMeasures(
        family_, table_.candidates(), [this](const QString& text) { return askImport(text, this); },
        [&](int row) {
            progress_.step(row);
            return box.step(row, table_.rowCount());
        });
}

void MeasureImportDialog::copyErrors()
{
    if (busy_)
        return;
    const QScopedValueRollback<bool> copying(busy_, true);
    ProgressBox box(this, family_.title, "Копирование строк", "Остановить");
    bool whole = true;
    const QString text = table_.uncheckedText([&](int done, int total) { return whole = box.step(done, total); });
    if (whole)
        copyText(text);
}
