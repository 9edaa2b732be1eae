#include "database/catalogues/forms/states_table.h"

#include "base/placeholders.h"
#include "base/statement.h"
#include "database/catalogues/forms/catalogue_rows.h"
#include "formkit/boxes.h"

#include <nrx/color.h>
#include <nrx/editor.h>

#include <QAbstractItemView>
#include <QColor>

using namespace formkit;

namespace {

enum Column { NoteColumn, ColorColumn };
constexpr int stateRole = Qt::UserRole + 1; // of the note's cell
constexpr int colorRole = Qt::UserRole + 1; // of the colour's cell

} // namespace

StatesTable::StatesTable(QWidget* parent) : CatalogueList(statesCatalogue(), parent)
{
    connect(this, &CatalogueList::changed, this, [] { session().reloadStates(); });
}

void StatesTable::refresh()
{
    if (count() > 0) {
        const QStringList checked = checkedStates().keys();
        ticked_ = QSet<QString>(checked.begin(), checked.end());
    }
    CatalogueList::refresh();
}

void StatesTable::showFilter()
{
    const QStringList shown = session().stateFilter.keys();
    ticked_ = QSet<QString>(shown.begin(), shown.end());
    CatalogueList::refresh();
}

QMap<QString, QString> StatesTable::checkedStates() const
{
    QMap<QString, QString> checked;
    const QAbstractItemModel* model = view()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex note = model->index(row, NoteColumn);
        if (note.data(Qt::CheckStateRole).toInt() == Qt::Checked)
            checked.insert(note.data(stateRole).toString(), note.data().toString());
    }
    return checked;
}

void StatesTable::dress(int row, const QString& key)
{
    QAbstractItemModel* model = view()->model();
    const QModelIndex note = model->index(row, NoteColumn);
    model->setData(note, key, stateRole);
    model->setData(note, ticked_.contains(key) ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    const QModelIndex color = model->index(row, ColorColumn);
    const int colorIndex = color.data().toInt();
    model->setData(color, QString(), Qt::DisplayRole);
    model->setData(color, QStringLiteral("Двойной щелчок меняет цвет"), Qt::ToolTipRole);
    paint(row, colorIndex);
}

void StatesTable::paint(int row, int colorIndex)
{
    const NcCmColor color = NcCmColor::fromIndex(colorIndex);
    const QModelIndex cell = view()->model()->index(row, ColorColumn);
    view()->model()->setData(cell, colorIndex, colorRole);
    view()->model()->setData(cell, QColor(color.red(), color.green(), color.blue()), Qt::BackgroundRole);
}

// The colour has a box of its own.
void StatesTable::activate(const QModelIndex& place)
{
    if (place.column() != ColorColumn)
        return CatalogueList::activate(place);
    int colorIndex = place.data(colorRole).toInt();
    if (!ncedSetColorDialog(colorIndex))
        return;
    paint(place.row(), colorIndex);
    const QString state = place.sibling(place.row(), NoteColumn).data(stateRole).toString();
    session().run(compose("update states set colorindex=%1 where state_id='%2'", colorIndex, state));
    session().reloadStates();
}

bool StatesTable::mayDelete(const QString& key)
{
    if (isUsed(key))
        return false;
    const QModelIndex current = view()->currentIndex();
    const QString note = current.sibling(current.row(), NoteColumn).data().toString();
    // The misspelling is how users know the question.
    return confirm(this,
                   {fill("Удалить состояние обекта %1 ( %2 ) \n", key, note), attention(), Look::Question, Preset::No});
}
