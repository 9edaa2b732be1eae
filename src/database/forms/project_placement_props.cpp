#include "database/forms/project_placement_props.h"

#include "analysis/levels/forms/level_map_selector_form.h"
#include "database/catalogues/forms/states_table.h"
#include "formkit/boxes.h"
#include "formkit/layout.h"
#include "formkit/modal.h"
#include "formkit/unit.h"
#include "formkit/widgets.h"

using namespace formkit;

namespace {

struct MapUse {
    const char* button;
    const char* caption;
    int ProjectSession::*id;
};

// Scripts know the last button spelled so.
const std::array<MapUse, 3> mapUses = {{
    {"DeformationMapBTN", "Карта деформаций", &ProjectSession::deformationColormapId},
    {"TemperatureBTN", "Карта температур", &ProjectSession::temperatureColormapId},
    {"DynTemperatureBNT", "Карта динамики температур", &ProjectSession::dynamicTemperatureColormapId},
}};

// A palette is narrow: captions go on below.
QLabel* wrapped(const char* caption) { return note(QString(), QString::fromUtf8(caption)); }

constexpr int kServiceMap = -1; // what the editor of maps works on

} // namespace

ProjectPlacementProps::ProjectPlacementProps(QWidget* parent) : QWidget(parent)
{
    nameForm(this, "ProjectPlacementProps", QString());
    layOut(this).column({
        row({
            growing(wrapped("Масштабный  коэфициент элементов"), 2),
            growing(scale_ =
                        withoutUnit(tipped(realSpin("ScaleFactor", 0.01, 1000.0, 0.1),
                                           "Коэффициент вставки блоков 1 (1:1000), 0.5 (1:500), 2 (1:2000) и т.д."))),
        }),
        label("Цветовые схемы:"),
        colorMaps(),
        wrapped("Состояние элементов ГМН (цветовая легенда)"),
        growing(states_ = new StatesTable),
        row({stretch(), button("ApplyBtn", "Применить", this, &ProjectPlacementProps::apply)}),
    });
    refresh();
}

QLayout* ProjectPlacementProps::colorMaps()
{
    std::vector<Cells> rows;
    for (int use = 0; use < int(mapUses.size()); ++use) {
        QPushButton*& choosing = maps_[size_t(use)];
        choosing = button(mapUses[size_t(use)].button, QString());
        choosing->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // a long name does not widen the page
        connect(choosing, &QPushButton::clicked, this, [this, use] { chooseMap(use); });
        rows.push_back({growing(wrapped(mapUses[size_t(use)].caption)), growing(choosing)});
    }
    return grid(rows);
}

void ProjectPlacementProps::refresh()
{
    scale_->setValue(session().placementScale);
    showMaps();
    states_->showFilter();
}

void ProjectPlacementProps::showMaps()
{
    for (size_t use = 0; use < mapUses.size(); ++use) {
        const QString name = session().levelMaps.value(session().*mapUses[use].id);
        maps_[use]->setText(name);
        maps_[use]->setToolTip(name);
    }
}

void ProjectPlacementProps::chooseMap(int use)
{
    int ProjectSession::*const id = mapUses[size_t(use)].id;
    const std::optional<int> chosen = askOver(window(), &LeveMapSelectorForm::levelMapId, session().*id);
    if (!chosen)
        return;
    if (*chosen == kServiceMap)
        return warn(this, "Это служебная палитра. Её нельзя выбрать.");
    session().reloadLevelMaps();
    session().*id = *chosen;
    showMaps();
}

void ProjectPlacementProps::apply()
{
    session().placementScale = scale_->value();
    session().stateFilter = states_->checkedStates();
    session().saveProject();
}
