#include "drawing/forms/tsg_catalog_selector.h"

#include "base/placeholders.h"
#include "formkit/modal.h"
#include "session/project_session.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>

TSGCatalogSelector::TSGCatalogSelector(QWidget* parent) : QDialog(parent), catalog_(new QComboBox(this))
{
    setWindowTitle("Укажите тип конструкции СОУ");
    catalog_->setObjectName("CatalogList");
    catalog_->setMinimumContentsLength(30);

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton("OK", QDialogButtonBox::AcceptRole)->setObjectName("OkBtn");
    buttons->addButton("Отмена", QDialogButtonBox::RejectRole)->setObjectName("CancelBTn");

    auto* layout = new QFormLayout(this);
    layout->addRow("Тип СОУ", catalog_);
    layout->addRow(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &TSGCatalogSelector::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &TSGCatalogSelector::reject);
    fillCatalog();
}

void TSGCatalogSelector::fillCatalog()
{
    const sql::Result rows = session().run("select catalog_id,name,note from tsg_catalog order by catalog_id,name");
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        catalog_->addItem(fill("%1 (%2)", rows.getvalue(row, 1), rows.getvalue(row, 2)), rows.toInt(row, 0));
}

std::optional<int> TSGCatalogSelector::catalogId() const
{
    if (catalog_->currentIndex() < 0)
        return {};
    return catalog_->currentData().toInt();
}

std::optional<int> TSGCatalogSelector::choose()
{
    std::optional<int> chosen;
    runModalThen<TSGCatalogSelector>([&chosen](TSGCatalogSelector& form, int result) {
        if (result == QDialog::Accepted)
            chosen = form.catalogId();
    });
    return chosen;
}
