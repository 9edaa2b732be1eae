#include "analysis/maps/forms/state_filter_form.h"

#include "session/project_session.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

StateFilterForm::StateFilterForm(const QStringList& chosen, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("StateFilterForm"));
    setWindowTitle(QStringLiteral("Фильтр состояний"));
    states_ = new QListWidget(this);
    states_->setObjectName(QStringLiteral("StatesList"));
    for (const ComboEntry& entry : session().stateEntries()) {
        auto* item = new QListWidgetItem(entry.text, states_);
        item->setData(Qt::UserRole, entry.data);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(chosen.contains(entry.data.toString()) ? Qt::Checked : Qt::Unchecked);
    }

    auto* all = new QPushButton(QStringLiteral("Все"), this);
    all->setObjectName(QStringLiteral("SelectAllBtn"));
    auto* none = new QPushButton(QStringLiteral("Снять"), this);
    none->setObjectName(QStringLiteral("SelectNoneBtn"));
    connect(all, &QPushButton::clicked, this, [this] { setAll(true); });
    connect(none, &QPushButton::clicked, this, [this] { setAll(false); });
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("OkBtn"));
    auto* cancel = buttons->addButton(QStringLiteral("Отмена"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("CancelBtn"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* choose = new QHBoxLayout;
    choose->addWidget(all);
    choose->addWidget(none);
    choose->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(states_);
    layout->addLayout(choose);
    layout->addWidget(buttons);
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
