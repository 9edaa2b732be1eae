#include "drawing/alignment/forms/ucs_selection_form.h"

#include "base/placeholders.h"
#include "base/text.h"
#include "drawing/alignment/ucs_table.h"
#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/unit.h"
#include "formkit/widgets.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <QMenu>
#include <cmath>

using namespace formkit;

namespace {

constexpr int idRole = Qt::UserRole;
constexpr int dataRole = Qt::UserRole + 1;

struct FieldRow {
    const char* caption;
    std::array<const char*, 3> names;
    const char* unit; // of the directions none
};

const std::array<FieldRow, 3> fieldRows = {{
    {"Базовая точка", {"OrigX", "OrigY", "OrigZ"}, "м"},
    {"Ось Х", {"xAxisX", "xAxisY", "xAxisZ"}, ""},
    {"Ось Y", {"yAxisX", "yAxisY", "yAxisZ"}, ""},
}};

int idOf(const QListWidgetItem& item) { return item.data(idRole).toInt(); }

} // namespace

UCSSelectionForm::UCSSelectionForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "UCSSelectionForm", "Выбор ПСК");
    layOut(this).column({
        list_ = listBox("UCSList"),
        numbers(),
        row({save_ = button("SaveBTN", "Сохранить", this, &UCSSelectionForm::saveCurrent), stretch(),
             endButtons(this, {ok(), cancel()})}),
    });
    ok_ = findChild<QPushButton*>("OkBtn");
    // A double click or F2 renames; the name is stored with the numbers.
    list_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    resize(460, 400);

    connect(list_, &QListWidget::currentItemChanged, this, &UCSSelectionForm::showCurrent);
    connect(list_, &QListWidget::customContextMenuRequested, this, &UCSSelectionForm::showMenu);
    fillList();
}

QLayout* UCSSelectionForm::numbers()
{
    std::vector<Cells> rows;
    size_t at = 0;
    for (const FieldRow& described : fieldRows) {
        rows.push_back({described.caption});
        for (const char* name : described.names) {
            rows.back().push_back(fields_[at] = inUnit(described.unit, numberEdit(name)));
            connect(fields_[at++], &QLineEdit::textChanged, this, &UCSSelectionForm::enableButtons);
        }
    }
    return grid(rows);
}

void UCSSelectionForm::fillList()
{
    for (const StoredUcs& stored : storedUcs()) {
        auto* item = new QListWidgetItem(stored.name, list_);
        item->setData(idRole, stored.id);
        item->setData(dataRole, stored.data);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    list_->setCurrentRow(0);
    showCurrent();
}

void UCSSelectionForm::showCurrent()
{
    const QListWidgetItem* item = list_->currentItem();
    const std::optional<UcsRecord::Numbers> numbers = item ? ucsNumbers(item->data(dataRole).toString()) : std::nullopt;
    for (size_t i = 0; i < fields_.size(); ++i)
        fields_[i]->setText(numbers ? fixed((*numbers)[i], 6) : QString());
    enableButtons();
}

void UCSSelectionForm::enableButtons()
{
    const bool complete = shownUcs().has_value();
    save_->setEnabled(complete);
    ok_->setEnabled(complete);
}

std::optional<UcsRecord> UCSSelectionForm::shownUcs() const
{
    const QListWidgetItem* item = list_->currentItem();
    if (!item)
        return {};
    UcsRecord ucs;
    ucs.name = item->text();
    for (size_t i = 0; i < fields_.size(); ++i) {
        bool ok = false;
        ucs.numbers[i] = fields_[i]->text().toDouble(&ok);
        if (!ok || !std::isfinite(ucs.numbers[i]))
            return {};
    }
    return ucs;
}

void UCSSelectionForm::saveCurrent()
{
    std::optional<UcsRecord> ucs = shownUcs();
    if (!ucs)
        return;
    ucs->name = storableUcsName(ucs->name);
    QListWidgetItem* item = list_->currentItem();
    if (!updateUcs(idOf(*item), *ucs))
        return say(fill("\nПСК '%1' не сохранена: %2\n", ucs->name, session().connection.errorMessage()));
    item->setText(ucs->name);
    item->setData(dataRole, ucs->text());
}

void UCSSelectionForm::deleteCurrent()
{
    const QListWidgetItem* item = list_->currentItem();
    if (!item)
        return;
    if (!deleteUcs(idOf(*item)))
        return say(fill("\nПСК '%1' не удалена: %2\n", item->text(), session().connection.errorMessage()));
    delete item;
}

void UCSSelectionForm::showMenu(const QPoint& place)
{
    if (!list_->itemAt(place))
        return;
    QMenu menu(this);
    connect(menu.addAction("Удалить"), &QAction::triggered, this, &UCSSelectionForm::deleteCurrent);
    menu.exec(list_->viewport()->mapToGlobal(place));
}
