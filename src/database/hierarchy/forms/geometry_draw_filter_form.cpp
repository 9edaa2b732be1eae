#include "database/hierarchy/forms/geometry_draw_filter_form.h"

#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

GeometryDrawFilterForm::GeometryDrawFilterForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "GeometryDrawFilterForm", "Вывод геометрии");
    layOut(this).column({
        contours_ = check("Contours", "Контуры", true),
        deformations_ = check("DeformationProfiles", "Профили деформаций", true),
        temperatures_ = check("TemperatureProfiles", "Профили температур", true),
        stretch(),
        endButtons(this, {accepts("OkBtn", "ОК"), cancel()}),
    });
    setMinimumWidth(280);
}

StoredLines GeometryDrawFilterForm::wanted() const
{
    return {contours_->isChecked(), deformations_->isChecked(), temperatures_->isChecked()};
}
