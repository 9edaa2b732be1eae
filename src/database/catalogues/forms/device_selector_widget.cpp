#include "database/catalogues/forms/device_selector_widget.h"

#include "database/catalogues/forms/catalogue_box.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

DeviceSelectorWidget::DeviceSelectorWidget(QWidget* parent) : QWidget(parent)
{
    QPushButton* dots = dotsButton("DeviceFormBTN");
    connect(dots, &QPushButton::clicked, this, &DeviceSelectorWidget::openDevices);
    layOut(this).row({"Выбор устройства", growing(list_ = narrowCombo("DeviceList", 16)), dots});
    layout()->setContentsMargins(0, 0, 0, 0);
    refresh();
}

void DeviceSelectorWidget::refresh()
{
    enum Column { Id, Name, Serial, Description };
    const sql::Result rows = session().run("select device_id, name, serial, description from devices");
    setChoices(list_, choicesOf(rows, 3, QStringLiteral(" ")));
    devices_.clear();
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row)
        devices_.insert(rows.toInt(row, Id),
                        {rows.getvalue(row, Name), rows.getvalue(row, Serial), rows.getvalue(row, Description)});
}

int DeviceSelectorWidget::deviceId() const { return chosenId(list_); }

void DeviceSelectorWidget::setDeviceId(int id) { choose(list_, id); }

void DeviceSelectorWidget::openDevices()
{
    openCatalogue(CatalogueKind::Devices, window());
    refresh();
}
