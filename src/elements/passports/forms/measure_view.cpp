#include "elements/passports/forms/measure_view.h"

#include "elements/passports/forms/measure_actions.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QMenu>

using namespace formkit;

namespace {

constexpr int kCellMargins = 14; // pixels that a cell adds to its text

MeasureTableModel* modelOf(const PassportRecord& record, QObject* parent)
{
    if (record.family().tables().hasProfile)
        return new ProfileTable(record, parent);
    return new MeasureRows(record, parent);
}

} // namespace

MeasureView::MeasureView(PassportRecord& record, QWidget* parent)
    : QTableView(parent), record_(record), model_(modelOf(record, this)), actions_(new MeasureActions(record, this))
{
    setModel(model_);
    setAlternatingRowColors(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
    verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + 8);
    connect(this, &QWidget::customContextMenuRequested, this, &MeasureView::showMenu);
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& cell) {
        if (const BaseMeasure* measure = model_->measureAt(cell))
            actions_->edit(measure->measureId);
    });
    connect(actions_, &MeasureActions::changed, this, [this] {
        showMeasures();
        emit changed();
    });
    if (record.family().tables().hasProfile)
        nameRowTitles();
}

// The corner of the headers is the one place above the titles of the rows.
void MeasureView::nameRowTitles()
{
    auto* corner = findChild<QAbstractButton*>();
    if (!corner)
        return;
    QLabel* title = label(ProfileTable::rowHeader());
    title->setAlignment(Qt::AlignCenter);
    auto* layout = row({title});
    layout->setContentsMargins(2, 0, 2, 0);
    corner->setLayout(layout);
    horizontalHeader()->setMinimumHeight(title->sizeHint().height() + 4);
    verticalHeader()->setMinimumWidth(title->sizeHint().width() + 8);
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void MeasureView::showMeasures()
{
    model_->showMeasures();
    // A few measures say how wide a column of them is.
    horizontalHeader()->setResizeContentsPrecision(30);
    if (!record_.family().tables().hasProfile)
        return resizeColumnsToContents();
    int widest = 0;
    for (int row = 0; row < model_->rowCount() && model_->columnCount() > 0; ++row) {
        for (int column = 0; column < qMin(8, model_->columnCount()); ++column)
            widest = qMax(widest, fontMetrics().horizontalAdvance(model_->index(row, column).data().toString()));
    }
    horizontalHeader()->setDefaultSectionSize(qMax(70, widest + kCellMargins));
}

void MeasureView::showMenu(const QPoint& place)
{
    const BaseMeasure* measure = model_->measureAt(indexAt(place));
    if (!measure)
        return;
    QMenu menu(this);
    actions_->addTo(menu, measure->measureId);
    menu.exec(viewport()->mapToGlobal(place));
}
