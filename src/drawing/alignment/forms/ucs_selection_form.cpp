#include "drawing/alignment/forms/ucs_selection_form.h"

#include "base/text.h"
#include "drawing/alignment/ucs_table.h"
#include "session/forms/named_widget.h"
#include "session/project_session.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>
#include <cmath>

namespace {

constexpr int idRole = Qt::UserRole;
constexpr int dataRole = Qt::UserRole + 1;

struct FieldRow {
    const char* caption;
    std::array<const char*, 3> names;
};

const std::array<FieldRow, 3> fieldRows = {{
    {"Базовая точка", {"OrigX", "OrigY", "OrigZ"}},
    {"Ось Х", {"xAxisX", "xAxisY", "xAxisZ"}},
    {"Ось Y", {"yAxisX", "yAxisY", "yAxisZ"}},
}};

int idOf(const QListWidgetItem& item) { return item.data(idRole).toInt(); }

} // namespace

UCSSelectionForm::UCSSelectionForm(QWidget* parent) : QDialog(parent), list_(named<QListWidget>("UCSList", this))
{
    setObjectName("UCSSelectionForm");
    setWindowTitle("Выбор ПСК");
    // A double click or F2 renames; the name is stored with the numbers.
    list_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_);
    layout->addLayout(fieldsLayout());
    layout->addLayout(buttonsLayout());
    resize(460, 400);

    connect(list_, &QListWidget::currentItemChanged, this, &UCSSelectionForm::showCurrent);
    connect(list_, &QListWidget::customContextMenuRequested, this, &UCSSelectionForm::showMenu);
    fillList();
}

QLayout* UCSSelectionForm::fieldsLayout()
{
    auto* grid = new QGridLayout;
    size_t at = 0;
    for (int row = 0; row < int(fieldRows.size()); ++row) {
        const FieldRow& described = fieldRows[size_t(row)];
        grid->addWidget(label(described.caption), row, 0);
        for (int column = 0; column < int(described.names.size()); ++column) {
            auto* field = named<QLineEdit>(described.names[size_t(column)], this);
            field->setValidator(new QRegularExpressionValidator(session().numberPattern, field));
            grid->addWidget(field, row, column + 1);
            connect(field, &QLineEdit::textChanged, this, &UCSSelectionForm::enableButtons);
            fields_[at++] = field;
        }
    }
    return grid;
}

QLayout* UCSSelectionForm::buttonsLayout()
{
    auto* row = new QHBoxLayout;
    save_ = named<QPushButton>("SaveBTN", QStringLiteral("Сохранить"), this);
    auto* buttons = new QDialogButtonBox(this);
    ok_ = buttons->addButton("OK", QDialogButtonBox::AcceptRole);
    ok_->setObjectName("OkBtn");
    buttons->addButton("Отмена", QDialogButtonBox::RejectRole)->setObjectName("CancelBtn");
    row->addWidget(save_);
    row->addStretch();
    row->addWidget(buttons);
    save_->setAutoDefault(false);
    connect(save_, &QPushButton::clicked, this, &UCSSelectionForm::saveCurrent);
    connect(buttons, &QDialogButtonBox::accepted, this, &UCSSelectionForm::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &UCSSelectionForm::reject);
    return row;
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
        return;
    item->setText(ucs->name);
    item->setData(dataRole, ucs->text());
}

void UCSSelectionForm::deleteCurrent()
{
    const QListWidgetItem* item = list_->currentItem();
    if (item && deleteUcs(idOf(*item)))
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
