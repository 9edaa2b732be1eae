#include "analysis/settlements/forms/settlement_commands.h"

#include "analysis/settlements/forms/settlements_map_form.h"
#include "formkit/modal.h"

void showSettlements()
{
    formkit::OverHost host;
    SettlementsMapForm form(host);
    ProfileLine line;
    switch (askForLine(QStringLiteral("Укажите линию профиля (ESC - список существующих)"), line)) {
    case LinePick::NotALine: return;
    case LinePick::Picked: form.setLine(line); break;
    case LinePick::Left: form.offerStored(); break;
    }
    if (form.exec() == QDialog::Accepted)
        drawSketch(form.epure(), QStringLiteral("TERVA_DEF_"));
}
