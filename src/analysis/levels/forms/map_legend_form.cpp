#include "analysis/levels/forms/map_legend_form.h"

#include "analysis/levels/forms/color_map_widget.h"
#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/modal.h"
#include "formkit/widgets.h"
#include "hostkit/console.h"

#include <nrx/editor.h>

using namespace formkit;

MapLegendForm::MapLegendForm(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Вставка легенды"));
    layOut(this).column({
        group("Тип карты")
            .row({
                temperatureOut_ = radio("TemperatureOut", "Температура "),
                radio("DeformationOut", "Деформации", true),
                stretch(),
            }),
        colorMap_ = named<ColorMapWidget>("ColorMap"),
        endButtons(this, {ok("okButton"), cancel("cancelButton")}),
    });
    colorMap_->setLevelMapId(LevelMap::Deformation);
}

LegendKind MapLegendForm::kind() const
{
    return temperatureOut_->isChecked() ? LegendKind::Temperature : LegendKind::Deformation;
}

const LevelMap& MapLegendForm::levelMap() const { return colorMap_->current(); }

void insertMapLegend()
{
    const std::optional<MapLegendForm::Legend> wanted = askModal(&MapLegendForm::legend);
    if (!wanted)
        return;
    NcGePoint3d place;
    if (ncedGetPoint(nullptr, QStringLiteral("Точка вставки легенды:"), place) != kPromptNormal) {
        say(QStringLiteral("Необходимо указать точку вставки легенды"));
        return;
    }
    insertLegend(wanted->map, wanted->kind, place);
}
