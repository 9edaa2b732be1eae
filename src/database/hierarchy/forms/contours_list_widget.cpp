#include "database/hierarchy/forms/contours_list_widget.h"

#include "base/placeholders.h"
#include "database/hierarchy/contour_line.h"
#include "database/hierarchy/position_contours.h"
#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <QAbstractItemView>
#include <QMenu>

using namespace formkit;

namespace {

enum Column { ChoiceColumn, NameColumn };

Catalogue contoursCatalogue()
{
    Catalogue contours;
    contours.listName = "ContoursTable";
    contours.statement = ""; // of a position that is told later
    contours.texts = 2;      // the position's id gives its place to the check box
    contours.titles = {"Выбор", "Имя"};
    contours.remove = "delete from  contours where contour_id = %1";
    contours.erase.name.clear(); // the menu alone
    return contours;
}

} // namespace

ContoursListWidget::ContoursListWidget(QWidget* parent) : CatalogueList(contoursCatalogue(), parent) { }

void ContoursListWidget::setPosition(int positionId)
{
    setStatement(contoursStatement(positionId));
    refresh();
}

QVector<int> ContoursListWidget::checkedContours() const
{
    QVector<int> checked;
    const QAbstractItemModel* model = view()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex choice = model->index(row, ChoiceColumn);
        if (choice.data(Qt::CheckStateRole).toInt() == Qt::Checked)
            checked << choice.data(Qt::UserRole).toInt();
    }
    return checked;
}

void ContoursListWidget::dress(int row, const QString&)
{
    QAbstractItemModel* model = view()->model();
    const QModelIndex choice = model->index(row, ChoiceColumn);
    model->setData(choice, QString(), Qt::DisplayRole);
    model->setData(choice, Qt::Unchecked, Qt::CheckStateRole);
}

void ContoursListWidget::addToMenu(QMenu& menu)
{
    QAction* draw = menu.addAction("Вывести");
    draw->setEnabled(!currentKey().isEmpty());
    connect(draw, &QAction::triggered, this, &ContoursListWidget::drawCurrent);
}

// A contour has no record to edit: its line comes from the drawing.
void ContoursListWidget::activate(const QModelIndex&) { }

void ContoursListWidget::drawCurrent() { drawOpenLine(contourPoints(currentKey().toInt())); }

bool ContoursListWidget::mayDelete(const QString&)
{
    const QModelIndex current = view()->currentIndex();
    return confirm(this, fill("Удалить контур '%1' ?", current.sibling(current.row(), NameColumn).data().toString()));
}

void openPositionContours(int positionId, QWidget* parent)
{
    QDialog box(parent);
    nameForm(&box, "PositionContours", "Контуры позиции");
    auto* contours = new ContoursListWidget;
    layOut(&box).column({growing(contours), endButtons(&box, {ok()})});
    contours->setPosition(positionId);
    box.resize(360, 300);
    box.exec();
}
