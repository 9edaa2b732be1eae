#include "exchange/forms/measures_view.h"

#include <QHeaderView>

MeasuresView::MeasuresView(QWidget* parent) : QTableView(parent)
{
    horizontalHeader()->setDefaultSectionSize(160);
    horizontalHeader()->setStretchLastSection(true);
    setAlternatingRowColors(true);
}

void MeasuresView::fitRows()
{
    heights_.clear();
    resizeRowsToContents();
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
