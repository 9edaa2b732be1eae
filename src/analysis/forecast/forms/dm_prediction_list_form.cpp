#include "analysis/forecast/forms/dm_prediction_list_form.h"

#include "analysis/forecast/predictions.h"
#include "base/placeholders.h"
#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"
#include "hostkit/console.h"

#include <QMenu>

using namespace formkit;

namespace {

constexpr int idRole = Qt::UserRole;

QString cycleText(int cycle) { return fill("Цикл %1", session().cycles.value(cycle).value(0)); }

} // namespace

DMPredictionListForm::DMPredictionListForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "DMPredictionListForm", "Список прогнозов деформаций");
    layOut(this).column({
        table_ = table("PredictionsView", {"Имя", "Дата прогноза", "Исходный цикл", "Текущий цикл", "Число марок"}),
        endButtons(this, {rejects("CloseBtn", "Закрыть")}),
    });
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(table_, &QTableWidget::customContextMenuRequested, this, &DMPredictionListForm::showMenu);
    resize(860, 360);
    refresh();
}

void DMPredictionListForm::refresh()
{
    QVector<StoredPrediction> predictions;
    QString problem;
    table_->setRowCount(0);
    if (!loadPredictions(predictions, &problem))
        return say(fill("Ошибка запроса списка прогнозов '%1'", problem));
    table_->setRowCount(predictions.size());
    for (int row = 0; row < predictions.size(); ++row) {
        const StoredPrediction& prediction = predictions[row];
        QTableWidgetItem* name = checkItem(false);
        name->setText(prediction.name);
        name->setData(idRole, prediction.id);
        name->setFlags(name->flags() | Qt::ItemIsSelectable);
        table_->setItem(row, 0, name);
        int column = 0;
        for (const QString& text : {prediction.day, cycleText(prediction.beginCycle), cycleText(prediction.endCycle),
                                    QString::number(prediction.marks)})
            table_->setItem(row, ++column, textItem(text));
    }
    fitColumns(table_);
}

void DMPredictionListForm::showMenu(const QPoint& place)
{
    QMenu menu(this);
    connect(menu.addAction("Удалить выбранные"), &QAction::triggered, this, &DMPredictionListForm::deleteMarked);
    menu.addSeparator();
    connect(menu.addAction("Выбрать все"), &QAction::triggered, this, [this] { markRows([](bool) { return true; }); });
    connect(menu.addAction("Снять все"), &QAction::triggered, this, [this] { markRows([](bool) { return false; }); });
    connect(menu.addAction("Инвертировать"), &QAction::triggered, this,
            [this] { markRows([](bool marked) { return !marked; }); });
    menu.exec(table_->viewport()->mapToGlobal(place));
}

void DMPredictionListForm::markRows(const std::function<bool(bool marked)>& change)
{
    for (int row = 0; row < table_->rowCount(); ++row) {
        QTableWidgetItem* item = table_->item(row, 0);
        item->setCheckState(change(item->checkState() == Qt::Checked) ? Qt::Checked : Qt::Unchecked);
    }
}

QVector<int> DMPredictionListForm::markedIds() const
{
    QVector<int> ids;
    for (int row = 0; row < table_->rowCount(); ++row) {
        if (table_->item(row, 0)->checkState() == Qt::Checked)
            ids.append(table_->item(row, 0)->data(idRole).toInt());
    }
    return ids;
}

void DMPredictionListForm::deleteMarked()
{
    const QVector<int> ids = markedIds();
    if (ids.isEmpty() || !confirm(this, "Удалить выбранные прогнозы деформаций?"))
        return;
    QString problem;
    if (!deletePredictions(ids, &problem))
        return say(fill("Ошибка удаления '%1'", problem));
    deleted_ = true;
    say(QStringLiteral("Успешное удаление"));
    refresh();
}
