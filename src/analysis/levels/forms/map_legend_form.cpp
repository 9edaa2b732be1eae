#include "analysis/levels/forms/map_legend_form.h"

#include "analysis/levels/forms/color_map_widget.h"
#include "hostkit/console.h"
#include "formkit/modal.h"

#include <nrx/editor.h>

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

MapLegendForm::MapLegendForm(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Вставка легенды"));
    auto* type = new QGroupBox(QStringLiteral("Тип карты"), this);
    temperatureOut_ = new QRadioButton(QStringLiteral("Температура "), type);
    temperatureOut_->setObjectName(QStringLiteral("TemperatureOut"));
    deformationOut_ = new QRadioButton(QStringLiteral("Деформации"), type);
    deformationOut_->setObjectName(QStringLiteral("DeformationOut"));
    deformationOut_->setChecked(true);
    auto* types = new QHBoxLayout(type);
    types->addWidget(temperatureOut_);
    types->addWidget(deformationOut_);
    types->addStretch();

    colorMap_ = new ColorMapWidget(this);
    colorMap_->setObjectName(QStringLiteral("ColorMap"));
    colorMap_->setLevelMapId(LevelMap::Deformation);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("okButton"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cancelButton"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Отмена"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(type);
    layout->addWidget(colorMap_);
    layout->addWidget(buttons);
}

LegendKind MapLegendForm::kind() const
{
    return temperatureOut_->isChecked() ? LegendKind::Temperature : LegendKind::Deformation;
}

const LevelMap& MapLegendForm::levelMap() const { return colorMap_->current(); }

void insertMapLegend()
{
    LegendKind kind = LegendKind::Deformation;
    LevelMap map;
    const int result = runModalThen<MapLegendForm>([&](const MapLegendForm& form, int answer) {
        if (answer == QDialog::Accepted) {
            kind = form.kind();
            map = form.levelMap();
        }
    });
    if (result != QDialog::Accepted)
        return;
    NcGePoint3d place;
    if (ncedGetPoint(nullptr, QStringLiteral("Точка вставки легенды:"), place) != kPromptNormal) {
        say(QStringLiteral("Необходимо указать точку вставки легенды"));
        return;
    }
    insertLegend(map, kind, place);
}
