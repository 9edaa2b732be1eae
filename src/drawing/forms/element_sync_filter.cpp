#include "drawing/forms/element_sync_filter.h"

#include <QAction>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

enum class Start { Checked, Unchecked, Disabled };

struct BoxRow {
    const char* name;
    const char* text;
    unsigned bit;
    Start start;
};

// The last two stand for elements that no synchronisation knows yet.
constexpr BoxRow boxRows[] = {
    {"DMSelect", "Деформационные марки", 1, Start::Checked},
    {"TSSelect", "Термоскважины", 2, Start::Checked},
    {"RPSelect", "Реперы", 4, Start::Checked},
    {"GGSSelect", "Гидрогеологические скважины", 8, Start::Unchecked},
    {"IGSSelect", "Инженерно-геологические скважины", 16, Start::Unchecked},
    {"SPSelect", "Снегомерные посты", 32, Start::Unchecked},
    {"TSGSelect", "Термостабилизационные эл-ты", 64, Start::Unchecked},
    {"SVSelect", "Сваи", 128, Start::Disabled},
    {"PKSelect", "Пикеты", 256, Start::Disabled},
};

} // namespace

ElementSyncFilter::ElementSyncFilter(QWidget* parent) : QDialog(parent)
{
    setWindowTitle("Выбор элементов");
    setObjectName("ElementSyncFilter");
    new QVBoxLayout(this);
    addBoxes();
    addButtons();
    setMinimumWidth(320);

    setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* all = new QAction("Выбрать все", this);
    auto* none = new QAction("Снять все", this);
    addActions({all, none});
    connect(all, &QAction::triggered, this, [this] { checkAll(true); });
    connect(none, &QAction::triggered, this, [this] { checkAll(false); });
}

void ElementSyncFilter::addBoxes()
{
    for (const BoxRow& row : boxRows) {
        auto* check = new QCheckBox(row.text, this);
        check->setObjectName(row.name);
        check->setChecked(row.start == Start::Checked);
        check->setEnabled(row.start != Start::Disabled);
        layout()->addWidget(check);
        boxes_.append({check, row.bit});
    }
}

void ElementSyncFilter::addButtons()
{
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton("Применить", QDialogButtonBox::AcceptRole)->setObjectName("ApplyBtn");
    buttons->addButton("Отмена", QDialogButtonBox::RejectRole)->setObjectName("CancelBtn");
    layout()->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &ElementSyncFilter::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ElementSyncFilter::reject);
}

void ElementSyncFilter::checkAll(bool checked)
{
    for (const Box& box : boxes_) {
        if (box.check->isEnabled())
            box.check->setChecked(checked);
    }
}

void ElementSyncFilter::accept()
{
    mask_ = 0;
    for (const Box& box : boxes_) {
        if (box.check->isChecked())
            mask_ |= box.bit;
    }
    QDialog::accept();
}
