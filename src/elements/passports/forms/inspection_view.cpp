#include "elements/passports/forms/inspection_view.h"

#include "elements/inspections/forms/inspection_form.h"
#include "formkit/boxes.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <QHeaderView>
#include <QMenu>

using namespace formkit;

InspectionView::InspectionView(PassportRecord& record, QWidget* parent)
    : QTableView(parent), record_(record), model_(new InspectionColumns(record, this))
{
    setModel(model_);
    setAlternatingRowColors(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
    verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + 8);
    connect(this, &QWidget::customContextMenuRequested, this, &InspectionView::showMenu);
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& cell) {
        const int id = model_->inspectionAt(cell.column());
        if (id != -1)
            edit(id);
    });
}

void InspectionView::showInspections()
{
    model_->showInspections();
    horizontalHeader()->setResizeContentsPrecision(0);
    resizeColumnsToContents();
}

void InspectionView::showMenu(const QPoint& place)
{
    if (!record_.row.isRead())
        return;
    const QModelIndex cell = indexAt(place);
    const int cycle = cell.isValid() ? model_->cycleAt(cell.column()) : session().currentCycleId;
    const int id = cell.isValid() ? model_->inspectionAt(cell.column()) : -1;
    QMenu menu(this);
    const auto add = [&](const char* caption, void (InspectionView::*slot)(int), int argument, bool enabled) {
        QAction* action = menu.addAction(QString::fromUtf8(caption));
        action->setEnabled(enabled);
        connect(action, &QAction::triggered, this, [this, slot, argument] { (this->*slot)(argument); });
    };
    add("Создать ведомость обследования", &InspectionView::create, cycle, true);
    add("Редактировать ведомость обследования", &InspectionView::edit, id, id != -1);
    add("Копировать ведомость обследования", &InspectionView::copy, id, id != -1);
    add("Удалить ведомость обследования", &InspectionView::erase, id, id != -1);
    menu.exec(viewport()->mapToGlobal(place));
}

void InspectionView::create(int cycleId)
{
    InspectionForm form(record_.family().family, window());
    form.startNew(record_.id(), cycleId);
    if (form.exec() == QDialog::Accepted)
        finish(InspectionChange::Created);
}

void InspectionView::edit(int inspectId)
{
    InspectionForm form(record_.family().family, window());
    if (form.load(inspectId) && form.exec() == QDialog::Accepted)
        finish(InspectionChange::Edited);
}

void InspectionView::copy(int inspectId)
{
    InspectionForm form(record_.family().family, window());
    if (form.startCopy(inspectId) && form.exec() == QDialog::Accepted)
        finish(InspectionChange::Copied);
}

void InspectionView::erase(int inspectId)
{
    if (confirm(this, "Ведомость обследования будет удалена") && record_.deleteInspection(inspectId))
        finish(InspectionChange::Deleted);
}

void InspectionView::finish(InspectionChange change)
{
    record_.recomputeState();
    record_.readInspections();
    showInspections();
    say(QLatin1Char('\n') + inspectionMessage(record_.family(), change, record_.row.name()));
    emit changed();
}
