#include "elements/geology/forms/heat_exchange_table.h"

#include "base/placeholders.h"
#include "exchange/text_file.h"
#include "formkit/boxes.h"
#include "formkit/cell_editors.h"
#include "formkit/file_questions.h"

#include "files/written_file.h"

#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextCodec>

using namespace formkit;

namespace {

enum Row { SpeedRow, CoefficientRow, RowCount };
const QString fileFilter = QStringLiteral("csv (*.csv)");
constexpr int pairWidth = 64;

} // namespace

HeatExchangeTable::HeatExchangeTable(QWidget* parent) : QTableWidget(RowCount, 0, parent)
{
    setVerticalHeaderLabels({speedTitle(), coefficientTitle()});
    horizontalHeader()->setDefaultSectionSize(pairWidth);
    setItemDelegate(new NumberDelegate(this));
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &HeatExchangeTable::showMenu);
    connect(this, &QTableWidget::itemChanged, this, [this] {
        if (!showing_)
            emit edited();
    });
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

// Both rows, and room for the bar below them.
QSize HeatExchangeTable::sizeHint() const
{
    return {QTableWidget::sizeHint().width(),
            horizontalHeader()->sizeHint().height() + verticalHeader()->length() + 2 * frameWidth()
                + horizontalScrollBar()->sizeHint().height()};
}

// The rows have got their height by now.
void HeatExchangeTable::showEvent(QShowEvent* event)
{
    QTableWidget::showEvent(event);
    updateGeometry();
}

QString HeatExchangeTable::text(int row, int column) const
{
    const QTableWidgetItem* cell = item(row, column);
    return cell ? cell->text() : QString();
}

void HeatExchangeTable::showPairs(const HeatExchange& pairs)
{
    const QScopedValueRollback<bool> showing(showing_, true);
    setColumnCount(pairs.size());
    for (int column = 0; column < pairs.size(); ++column) {
        setItem(SpeedRow, column, new QTableWidgetItem(pairs[column].speed));
        setItem(CoefficientRow, column, new QTableWidgetItem(pairs[column].coefficient));
    }
    updateGeometry(); // titles stand above columns alone
}

HeatExchange HeatExchangeTable::pairs() const
{
    HeatExchange pairs;
    for (int column = 0; column < columnCount(); ++column)
        pairs.append({text(SpeedRow, column), text(CoefficientRow, column)});
    return pairs;
}

void HeatExchangeTable::put(const HeatExchange& pairs)
{
    showPairs(pairs);
    emit edited();
}

void HeatExchangeTable::showMenu(const QPoint& place)
{
    QMenu menu(this);
    const auto add = [&](const char* caption, void (HeatExchangeTable::*slot)(), bool can) {
        connect(menu.addAction(caption), &QAction::triggered, this, slot);
        menu.actions().last()->setEnabled(can);
    };
    add("Создать столбец", &HeatExchangeTable::createColumn, true);
    add("Удалить столбец", &HeatExchangeTable::deleteColumn, currentColumn() >= 0);
    add("Очистить", &HeatExchangeTable::clearPairs, columnCount() > 0);
    add("Экспорт CSV", &HeatExchangeTable::exportFile, true);
    add("Импорт CSV", &HeatExchangeTable::importFile, true);
    menu.exec(viewport()->mapToGlobal(place));
}

// Behind the current pair.
void HeatExchangeTable::createColumn()
{
    HeatExchange now = pairs();
    const int at = currentColumn() < 0 ? now.size() : currentColumn() + 1;
    now.insert(at, HeatExchangePair());
    put(now);
    setCurrentCell(SpeedRow, at);
}

void HeatExchangeTable::deleteColumn()
{
    HeatExchange now = pairs();
    now.removeAt(currentColumn());
    put(now);
}

void HeatExchangeTable::clearPairs() { put({}); }

void HeatExchangeTable::exportFile()
{
    const QString path = askFileToSave(this, {"Экспорт CSV", fileFilter, heatExchangeFileName(entryName_)});
    if (path.isEmpty())
        return;
    const QByteArray bytes = QTextCodec::codecForName("Windows-1251")->fromUnicode(heatExchangeCsv(pairs()));
    QString problem;
    if (!saveFile(path, bytes, &problem))
        warn(this, fill("Не удалось записать файл %1: %2", path, problem), "Ошибка");
}

void HeatExchangeTable::importFile()
{
    const QString path = askFileToOpen(this, {"Импорт CSV", fileFilter});
    if (path.isEmpty())
        return;
    const TextFile file = readTextFile(path, TextEncoding::Windows1251);
    const HeatExchange read = readHeatExchangeCsv(file.lines);
    if (read.isEmpty())
        return warn(this, (QStringList(file.remarks) << "В файле нет пар скорости и коэффициента").join('\n'));
    put(read);
}
