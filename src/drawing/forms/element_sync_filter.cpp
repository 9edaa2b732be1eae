#include "drawing/forms/element_sync_filter.h"

#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <QAction>
#include <algorithm>

using namespace formkit;

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
    nameForm(this, "ElementSyncFilter", "Выбор элементов");
    std::vector<Item> parts;
    for (const BoxRow& row : boxRows) {
        QCheckBox* box = check(row.name, row.text, row.start == Start::Checked);
        box->setEnabled(row.start != Start::Disabled);
        boxes_.append({box, row.bit});
        parts.push_back(box);
    }
    parts.push_back(endButtons(this, {accepts("ApplyBtn", "Применить"), cancel()}));
    layOut(this).column(parts);
    setMinimumWidth(std::max(320, minimumSizeHint().width()));

    setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* all = new QAction("Выбрать все", this);
    auto* none = new QAction("Снять все", this);
    addActions({all, none});
    connect(all, &QAction::triggered, this, [this] { checkAll(true); });
    connect(none, &QAction::triggered, this, [this] { checkAll(false); });
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
