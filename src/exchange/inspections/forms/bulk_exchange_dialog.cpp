#include "exchange/inspections/forms/bulk_exchange_dialog.h"

#include "formkit/boxes.h"
#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

BulkExchangeDialog::BulkExchangeDialog(const BulkExchangeTexts& texts, QWidget* more, QWidget* parent) : QDialog(parent)
{
    nameForm(this, texts.name, texts.title);
    std::vector<Item> parts = {
        texts.cycle,
        cycles_ = narrowCombo("CycleCombo", 30),
        texts.path,
        row({growing(path_ = edit("PathEdit")), button("BrowseBtn", "Обзор...", this, &BulkExchangeDialog::browse)}),
    };
    if (more)
        parts.push_back(more);
    parts.push_back(stretch());
    parts.push_back(endButtons(this, {accepts("ApplyBtn", texts.apply), cancel()}));
    layOut(this).column(parts);
    fillCycleCombo(cycles_, " | ");
    resize(520, sizeHint().height());
}

int BulkExchangeDialog::cycleId() const { return chosenId(cycles_); }

QString BulkExchangeDialog::path() const { return path_->text().trimmed(); }

void BulkExchangeDialog::setPath(const QString& path) { path_->setText(path); }

void BulkExchangeDialog::browse()
{
    const QString chosen = askPath();
    if (!chosen.isEmpty())
        setPath(chosen);
}

void BulkExchangeDialog::accept()
{
    if (path().isEmpty())
        warn(this, "Не указан файл");
    else
        QDialog::accept();
}
