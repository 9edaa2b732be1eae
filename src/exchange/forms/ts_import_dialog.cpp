#include "exchange/forms/ts_import_dialog.h"

#include "base/text.h"
#include "charts/forms/ts_data_viewer.h"
#include "elements/measures/forms/button_delegate.h"
#include "exchange/forms/measures_view.h"

#include <QDoubleSpinBox>
#include <QPushButton>

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
    airTemperature_ = new QDoubleSpinBox;
    airTemperature_->setObjectName(QStringLiteral("EnvTempSpin"));
    airTemperature_->setRange(-100.0, 100.0);
    airTemperature_->setSingleStep(0.1);
    QPushButton* toAll = controls().addForAllRow(QStringLiteral("Температура воздуха"), airTemperature_,
                                                 QStringLiteral("BTNEnvTempToAll"));
    connect(toAll, &QPushButton::clicked, this, [this] { table().giveValue(fixed(airTemperature_->value(), 2)); });
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
