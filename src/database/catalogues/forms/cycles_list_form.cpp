#include "database/catalogues/forms/cycles_list_form.h"

#include "database/catalogues/forms/catalogue_rows.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"
#include "session/forms/palette_refresh.h"

#include <QMenu>

using namespace formkit;

CyclesListForm::CyclesListForm(QWidget* parent) : CatalogueList(cyclesCatalogue(), parent)
{
    putUnderList(lines({
        {"Исходный", source_ = note("SourceCycle")},
        {"Текущий", current_ = note("CurrentCycle")},
    }));
    connect(this, &CatalogueList::changed, this, [] {
        refreshProjectExplorer();
        session().reloadCycles();
    });
}

void CyclesListForm::refresh()
{
    CatalogueList::refresh();
    source_->setText(textOf(QString::number(session().baseCycleId)));
    current_->setText(textOf(QString::number(session().currentCycleId)));
}

// The two compared cycles stand out.
void CyclesListForm::dress(int row, const QString& key)
{
    const int id = key.toInt();
    if (id != session().baseCycleId && id != session().currentCycleId)
        return;
    QFont font = view()->font();
    font.setWeight(QFont::Bold);
    font.setUnderline(true);
    view()->model()->setData(view()->model()->index(row, 0), font, Qt::FontRole);
}

// The project file learns of the choice when it is saved.
void CyclesListForm::addToMenu(QMenu& menu)
{
    const auto add = [&](const QString& caption, int ProjectSession::*which) {
        QAction* entry = menu.addAction(caption);
        entry->setEnabled(!currentKey().isEmpty());
        connect(entry, &QAction::triggered, this, [this, which] { compare(which); });
    };
    add("Установить исходным", &ProjectSession::baseCycleId);
    add("Установить текущим", &ProjectSession::currentCycleId);
}

void CyclesListForm::compare(int ProjectSession::*which)
{
    session().*which = currentKey().toInt();
    refresh();
}
