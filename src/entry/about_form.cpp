#include "entry/about_form.h"

#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

AboutForm::AboutForm(QWidget* parent) : QDialog(parent)
{
    nameForm(this, "AboutForm", "О программе");
    const QString text = QStringLiteral("<h2>Терва</h2>"
                                        "<p>Геотехнический мониторинг зданий на многолетнемёрзлых грунтах</p>"
                                        "<p>Версия %1</p>")
                             .arg(QStringLiteral(TERVA_VERSION));
    layOut(this).column({named<QLabel>("AboutText", text), endButtons(this, {ok()})});
}
