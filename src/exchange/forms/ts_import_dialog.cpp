#include "exchange/forms/ts_import_dialog.h"

#include "base/text.h"
#include "charts/forms/ts_data_viewer.h"
#include "elements/measures/forms/button_delegate.h"
#include "exchange/forms/measures_view.h"
#include "formkit/unit.h"

using namespace formkit;

namespace {

void showMeasure(const TSMeasure& measure, QWidget* parent)
{
    TSDataViewer viewer(parent);
    viewer.setMeasure(measure);
    viewer.exec();
}

} // namespace

TSImportCmdDialog::TSImportCmdDialog(QWidget* parent) : MeasureImportDialog(*importFamily(FamilyKey::Ts), parent)
{
    addAirTemperature();
    addProfileButtons();
}

void TSImportCmdDialog::addAirTemperature()
{
    airTemperature_ = inUnit("°C", realSpin("EnvTempSpin", -100.0, 100.0, 0.1));
    const QPushButton* toAll = controls().addForAll("Температура воздуха", airTemperature_, "BTNEnvTempToAll");
    connect(toAll, &QPushButton::clicked, this, [this] {
        giveAll([&](const WorkStep& step) { table().giveValue(fixed(airTemperature_->value(), 2), step); });
    });
}

void TSImportCmdDialog::addProfileButtons()
{
    auto* buttons = new ButtonDelegate(this);
    for (int column = 0; column < family().columns.size(); ++column) {
        if (family().columns[column].content == ImportContent::Profile)
            controls().measuresView->setItemDelegateForColumn(column, buttons);
    }
    connect(buttons, &ButtonDelegate::btnClicked, this, [this](TSMeasure* measure) { showMeasure(*measure, this); });
}
