#include "database/catalogues/forms/catalogue_forms.h"

#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

namespace {

DevicesImport& knownImport()
{
    static DevicesImport known;
    return known;
}

} // namespace

void setDevicesImport(DevicesImport import) { knownImport() = std::move(import); }

DevicesListForm::DevicesListForm(QWidget* parent) : CatalogueList(devicesCatalogue(), parent)
{
    QPushButton* fromFile = button("ImportBTN", "Импорт из .csv", this, &DevicesListForm::importDevices);
    fromFile->setEnabled(bool(knownImport()));
    putUnderList(row({fromFile, stretch()}));
}

void DevicesListForm::importDevices()
{
    knownImport()(window());
    refresh();
    emit changed();
}
