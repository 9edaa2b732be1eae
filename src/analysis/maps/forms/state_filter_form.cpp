#include "analysis/maps/forms/state_filter_form.h"

#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

StateFilterForm::StateFilterForm(const QStringList& chosen, QWidget* parent) : QDialog(parent)
{
    nameForm(this, "StateFilterForm", "Фильтр состояний");
    layOut(this).column({
        states_ = listBox("StatesList"),
        row({
            button("SelectAllBtn", "Все", this, [this] { setAll(true); }),
            button("SelectNoneBtn", "Снять", this, [this] { setAll(false); }),
            stretch(),
        }),
        endButtons(this, {ok(), cancel()}),
    });
    for (const ComboEntry& entry : session().stateEntries()) {
        auto* item = new QListWidgetItem(entry.text, states_);
        item->setData(Qt::UserRole, entry.data);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(chosen.contains(entry.data.toString()) ? Qt::Checked : Qt::Unchecked);
    }
}

void StateFilterForm::setAll(bool checked)
{
    for (int i = 0; i < states_->count(); ++i)
        states_->item(i)->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

QStringList StateFilterForm::chosenStates() const
{
    QStringList chosen;
    for (int i = 0; i < states_->count(); ++i) {
        if (states_->item(i)->checkState() == Qt::Checked)
            chosen << states_->item(i)->data(Qt::UserRole).toString();
    }
    return chosen;
}

QString stateNotes(const QStringList& states)
{
    if (states.isEmpty())
        return QStringLiteral("Все");
    QStringList notes;
    for (const QString& state : states)
        notes << session().states.value(state, state);
    return notes.join(QStringLiteral(", "));
}
