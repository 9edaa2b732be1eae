#include "elements/list/forms/element_list_changer.h"

#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

ElementListChanger::ElementListChanger(const QString& text, const Choices& choices, QWidget* parent)
    : QDialog(parent), selection_(combo("SelectionCombo", choices))
{
    nameForm(this, "ElementListChanger", "Изменить");
    layOut(this).column({
        row({named<QLabel>("TextLabel", text), growing(selection_)}),
        endButtons(this, {ok(), cancel()}),
    });
    resize(391, 94);
}

QVariant ElementListChanger::chosen() const { return selection_->currentData(); }

bool askColumns(QWidget* parent, const QStringList& titles, QVector<bool>& seen)
{
    QDialog form(parent);
    nameForm(&form, "ColumnsForm", "Выбрать столбцы");
    QListWidget* list = listBox("ColumnsList");
    for (int i = 0; i < titles.size(); ++i) {
        auto* item = new QListWidgetItem(titles[i], list);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(seen.value(i) ? Qt::Checked : Qt::Unchecked);
    }
    layOut(&form).column({growing(list), endButtons(&form, {accepts("OkBtn", "Ок"), cancel()})});
    form.resize(260, 380);
    if (form.exec() != QDialog::Accepted)
        return false;
    for (int i = 0; i < titles.size(); ++i)
        seen[i] = list->item(i)->checkState() == Qt::Checked;
    return true;
}
