#include "exchange/forms/measures_view.h"

#include <QHeaderView>
#include <algorithm>

MeasuresView::MeasuresView(QWidget* parent) : QTableView(parent)
{
    horizontalHeader()->setDefaultSectionSize(160);
    horizontalHeader()->setStretchLastSection(true);
    setAlternatingRowColors(true);
}

void MeasuresView::fitRows()
{
    heights_.clear();
    fitted_.clear();
    fitShown();
}

void MeasuresView::reset()
{
    QTableView::reset();
    fitted_.clear();
}

// No fewer rows than may stand in sight at once.
int MeasuresView::page() const { return viewport()->height() / qMax(1, verticalHeader()->minimumSectionSize()) + 2; }

// The last rows too: how far the view scrolls follows from their heights.
void MeasuresView::fitShown()
{
    fit(qMax(0, rowAt(0)), page());
    fit(model()->rowCount() - page(), page());
}

void MeasuresView::fit(int first, int count)
{
    const int rows = model()->rowCount();
    fitted_.resize(size_t(rows));
    const auto end = fitted_.begin() + qBound(0, first + count, rows);
    auto row = std::find(fitted_.begin() + qBound(0, first, rows), end, false);
    if (row >= end)
        return;
    // A header at work would look for the place of each row after each change.
    verticalHeader()->setUpdatesEnabled(false);
    for (; row != end; row = std::find(row, end, false)) {
        *row = true;
        resizeRowToContents(int(row - fitted_.begin()));
    }
    verticalHeader()->setUpdatesEnabled(true);
}

void MeasuresView::updateGeometries()
{
    QTableView::updateGeometries();
    if (model())
        fitShown();
}

void MeasuresView::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    fitShown();
}

// Where a row comes to stand depends on the heights of those around it.
void MeasuresView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    fit(index.row() - page(), 2 * page());
    QTableView::scrollTo(index, hint);
}

int MeasuresView::sizeHintForRow(int row) const
{
    // Rows with the same texts are equally high; a text without a blank is one line.
    QString texts;
    for (int column = 0; column < model()->columnCount(); ++column) {
        const QString text = model()->index(row, column).data().toString();
        if (text.contains(QLatin1Char(' ')) || text.contains(QLatin1Char('\n')))
            texts += text + QLatin1Char('\t');
    }
    const auto known = heights_.constFind(texts);
    if (known != heights_.constEnd())
        return *known;
    return *heights_.insert(texts, QTableView::sizeHintForRow(row));
}
