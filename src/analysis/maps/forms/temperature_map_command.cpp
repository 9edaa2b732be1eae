#include "analysis/maps/forms/temperature_map_command.h"

#include "analysis/maps/forms/iso_contours_cmd_dialog.h"
#include "analysis/maps/forms/temperature_map_form.h"
#include "analysis/maps/value_labels.h"
#include "session/project_session.h"

#include <nrx/application.h>
#include <nrx/palettes.h>

namespace {

void drawMap(const TemperatureMapForm& form, const geometry::PointList& points, QWidget* parent)
{
    IsoContoursCmdDialog dialog(parent);
    dialog.SetPoints(points);
    dialog.HidePointSelection(true);
    if (form.border()) {
        dialog.SetBoundLayer(form.borderLayer());
        dialog.SetBounds(*form.border(), false);
        dialog.HideBoundSelection(true);
    }
    dialog.SetLevelMapID(session().temperatureColormapId);
    if (dialog.exec() != QDialog::Accepted)
        return;
    dialog.build();
    if (form.labelsWanted())
        drawValueLabels(points);
}

} // namespace

void buildTemperatureMap()
{
    QWinWidget window(ndsw_ncadMainWnd());
    window.showCentered();
    TemperatureMapForm form(&window);
    if (const auto border = askForBorder(QStringLiteral("Укажите линию границы (ESC список в позиции)")))
        form.setBorder(*border);
    else
        form.offerPositionContours();
    if (form.exec() != QDialog::Accepted)
        return;
    const geometry::PointList points = form.usedPoints();
    if (!points.empty())
        drawMap(form, points, &window);
}
