#include "exchange/geology/forms/igs_geology_import_dialog.h"

#include "base/dates.h"
#include "base/placeholders.h"
#include "base/text.h"
#include "exchange/geology/geology_import.h"
#include "formkit/file_questions.h"
#include "formkit/layout.h"
#include "formkit/progress_box.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"
#include "hostkit/console.h"

#include <QScopedValueRollback>

using namespace formkit;

namespace {

enum Column { StatusColumn, NameColumn, DateColumn, MarkColumn, CountColumn, FirstLayerColumn };
const QStringList fixedTitles = {"Статус", "Имя скважины", "Дата", "Отметка Z", "Слоев"};
constexpr int depthDecimals = 2;
constexpr int markDecimals = 3;

QTableWidgetItem* warned(QTableWidgetItem* item, const QString& why)
{
    item->setForeground(Qt::red);
    item->setToolTip(why);
    return item;
}

QTableWidgetItem* statusItem(bool valid)
{
    QTableWidgetItem* item = checkItem(valid);
    item->setText(valid ? "OK" : "Error");
    if (valid)
        return item;
    item->setFlags(item->flags() & ~Qt::ItemIsEnabled);
    item->setToolTip("Данные не валидны (скважина или ИГЭ не найдены)");
    return item;
}

QTableWidgetItem* codeItem(const WellLayer& layer)
{
    if (layer.egeId == -1)
        return warned(textItem(layer.code), "Код ИГЭ не найден в справочнике");
    return textItem(fill("  %1", layer.code));
}

QTableWidgetItem* depthItem(const WellLayer& layer)
{
    QTableWidgetItem* item = textItem(fill("%1 м", fixed(layer.to, depthDecimals)));
    item->setToolTip(fill("От %1 до %2", fixed(layer.from, depthDecimals), fixed(layer.to, depthDecimals)));
    return item;
}

Choices positionChoices()
{
    Choices choices = {{"Все позиции", -1}};
    return choices
        + choicesOf(session().run("select position_id, position from positions   order by subobject_id,appearence"));
}

} // namespace

IGSGeologyImportDialog::IGSGeologyImportDialog(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "IGSGeologyImportDialog", "Импорт геологии скважин");
    layOut(this).column({
        row({
            button("OpenFileBtn", "Открыть файл", this, &IGSGeologyImportDialog::chooseFile),
            growing(fileName_ = readOnly(edit("FileName"))),
        }),
        row({
            "Кодировка",
            encoding_ = combo("Encoding",
                              {{"Windows-1251", int(TextEncoding::Windows1251)}, {"UTF-8", int(TextEncoding::Utf8)}}),
            "Разделитель",
            separator_ = within(48, edit("Separator", ";")),
            "Позиция",
            growing(positions_ = narrowCombo("PositionCombo", 20, positionChoices())),
        }),
        growing(table_ = table("Preview", fixedTitles)),
        row({
            stretch(),
            button("ImportBtn", "Импорт", this, &IGSGeologyImportDialog::runImport),
            button("CloseBtn", "Закрыть", this, &IGSGeologyImportDialog::reject),
        }),
    });
    table_->setSortingEnabled(false); // a row stands for its well
    choose(positions_, session().currentPositionId);
    const auto chosen = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(encoding_, chosen, this, &IGSGeologyImportDialog::readFile);
    connect(positions_, chosen, this, &IGSGeologyImportDialog::readFile);
    connect(separator_, &QLineEdit::textChanged, this, &IGSGeologyImportDialog::readFile);
    resize(900, 520);
}

void IGSGeologyImportDialog::reject()
{
    if (!busy_)
        QDialog::reject();
}

TextEncoding IGSGeologyImportDialog::encoding() const { return TextEncoding(encoding_->currentData().toInt()); }

void IGSGeologyImportDialog::chooseFile()
{
    const QString path = askFileToOpen(this, {"Открыть файл", "CSV Files (*.csv);;All Files (*)", fileName_->text()});
    if (path.isEmpty())
        return;
    fileName_->setText(path);
    readFile();
}

void IGSGeologyImportDialog::readFile()
{
    if (busy_ || fileName_->text().isEmpty())
        return;
    const TextFile file = readTextFile(fileName_->text(), encoding());
    for (const QString& remark : file.remarks)
        say(QLatin1Char('\n') + remark);
    wells_ = readGeology(file.lines, separator_->text(), loadGeologyLists(chosenId(positions_)));
    showWells();
}

void IGSGeologyImportDialog::showWells()
{
    int mostLayers = 0;
    for (const WellGeology& well : wells_)
        mostLayers = qMax(mostLayers, well.layers.size());
    QStringList titles = fixedTitles;
    for (int layer = 1; layer <= mostLayers; ++layer)
        titles << fill("ИГЭ %1", layer) << fill("Подошва %1", layer);
    table_->clear();
    table_->setColumnCount(titles.size());
    table_->setHorizontalHeaderLabels(titles);
    table_->setRowCount(wells_.size());
    for (int row = 0; row < wells_.size(); ++row)
        showWell(row, wells_[row]);
    table_->resizeColumnsToContents();
}

void IGSGeologyImportDialog::showWell(int row, const WellGeology& well)
{
    QTableWidgetItem* name = textItem(well.name);
    table_->setItem(row, StatusColumn, statusItem(well.isValid()));
    table_->setItem(row, NameColumn, well.elementId == -1 ? warned(name, "Скважина не найдена в базе данных") : name);
    table_->setItem(row, DateColumn, textItem(dateText(well.drilled, "dd.MM.yyyy")));
    table_->setItem(row, MarkColumn, textItem(well.z ? fixed(*well.z, markDecimals) : QString()));
    table_->setItem(row, CountColumn, textItem(QString::number(well.layers.size())));
    showLayers(row, well.layers);
}

void IGSGeologyImportDialog::showLayers(int row, const QVector<WellLayer>& layers)
{
    for (int column = FirstLayerColumn; column < table_->columnCount(); column += 2) {
        const int layer = (column - FirstLayerColumn) / 2;
        const bool isThere = layer < layers.size();
        table_->setItem(row, column, isThere ? codeItem(layers[layer]) : textItem("---"));
        table_->setItem(row, column + 1, isThere ? depthItem(layers[layer]) : textItem(QString()));
    }
}

QVector<WellGeology> IGSGeologyImportDialog::checkedWells() const
{
    QVector<WellGeology> checked;
    for (int row = 0; row < wells_.size(); ++row) {
        if (table_->item(row, StatusColumn)->checkState() == Qt::Checked)
            checked.append(wells_[row]);
    }
    return checked;
}

void IGSGeologyImportDialog::runImport()
{
    if (busy_)
        return;
    {
        const QScopedValueRollback<bool> writing(busy_, true);
        ProgressBox box(this, windowTitle(), "Импорт геологии...");
        importGeology(checkedWells(), [&box](int done, int total) { return box.step(done, total); });
    }
    QDialog::accept();
}
