#include "analysis/forecast/forms/device_choice.h"

#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

DeviceChoice::DeviceChoice(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "DeviceChoice", "Укажите оборудование");
    layOut(this).column({
        row({"Выбор устройства", growing(devices_ = narrowCombo("DeviceList", 32))}),
        endButtons(this, {ok(), cancel()}),
    });
    findChild<QPushButton*>("OkBtn")->setText(QStringLiteral("ОК"));
    enum Column { Id, Name, Serial, Description };
    const sql::Result rows = session().run("select device_id, name, serial, description from devices");
    for (int row = 0; rows.isTuples() && row < rows.ntuples(); ++row) {
        const QStringList texts{rows.getvalue(row, Name), rows.getvalue(row, Serial), rows.getvalue(row, Description)};
        devices_->addItem(texts.join(QLatin1Char(' ')), rows.getvalue(row, Serial));
    }
    devices_->setCurrentIndex(-1);
}

QString DeviceChoice::serial() const
{
    const QString chosen = devices_->currentIndex() < 0 ? QString() : devices_->currentData().toString();
    return chosen.isEmpty() ? QStringLiteral("00000") : chosen;
}
