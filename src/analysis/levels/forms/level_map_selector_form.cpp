#include "analysis/levels/forms/level_map_selector_form.h"

#include "formkit/end_buttons.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

LeveMapSelectorForm::LeveMapSelectorForm(int id, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Выбор цветовой схемы"));
    setMinimumWidth(320);
    layOut(this).column({
        levelMap_ = combo("LevelMap"),
        endButtons(this, {accepts("SelectBtn", "Выбрать"), cancel()}),
    });
    session().reloadLevelMaps();
    const QMap<int, QString>& maps = session().levelMaps;
    for (auto map = maps.begin(); map != maps.end(); ++map)
        levelMap_->addItem(map.value(), map.key());
    choose(levelMap_, id);
}

int LeveMapSelectorForm::levelMapId() const { return levelMap_->currentData().toInt(); }
