#include "entry/palette_sets.h"

#include "database/catalogues/forms/catalogue_forms.h"
#include "database/catalogues/forms/cycles_list_form.h"
#include "database/forms/project_placement_props.h"
#include "database/forms/sql_form.h"
#include "database/hierarchy/forms/project_explorer_widget.h"
#include "drawing/inspector/forms/object_inspector_page.h"
#include "elements/list/forms/element_list.h"
#include "formkit/palette_page.h"
#include "session/forms/project_path_form.h"
#include "session/forms/project_props_form.h"

#include <nrx/application.h>
#include <nrx/palettes.h>

#include <QLabel>
#include <QVBoxLayout>
#include <array>
#include <vector>

namespace {

constexpr unsigned kPageStyle = 0x50000000;
constexpr unsigned kPaletteStyle = 46;
constexpr unsigned kDockBar = 59420;
const QRect kFirstPlace(30, 50, 270, 300);

struct Description {
    const char* title;
    unsigned windowStyle;
    std::vector<PalettePage> pages;
    bool active = false; ///< a set of the host's Qt kind, whose pages start active
};

PalettePage samplePage(const char* title)
{
    return {title, [](QWidget* parent) -> QWidget* { return new QLabel(QStringLiteral("Terva"), parent); },
            [](QWidget*) {}};
}

// A slot without pages has no form built for it yet; nothing opens it.
const std::array<Description, kPaletteSlotCount>& descriptions()
{
    static const std::array<Description, kPaletteSlotCount> rows = {{
        {"Test Qt Palette Set", 0x50400000, {samplePage("Test Qt Palette1"), samplePage("Another Qt Palette1")}},
        {"UI pal set", 0x50400000, {}},
        {"Параметры проекта",
         0x50400000,
         {
             palettePage<ProjectPropsForm>("Проект"),
             palettePage<SQLForm>("SQL"),
             palettePage<ProjectPathForm>("Пути"),
             palettePage<ProjectPlacementProps>("Расстановка"),
         }},
        {"Состав проекта",
         0x50410000,
         {
             palettePage<ProjectExplorerWidget>("Состав"),
             palettePage<CyclesListForm>("Циклы измерений"),
             palettePage<DevicesListForm>("Оборудование"),
             palettePage<PerformersListForm>("Исполнители"),
         },
         true},
        {"Элемент ГМН", 0x50410000, {palettePage<ObjectInspectorPage>("Объект")}, true},
        {"Элементы ГМН", 0x50400000, {palettePage<ElementList>("Проект")}},
    }};
    return rows;
}

std::array<std::unique_ptr<hostUiPaletteSet>, kPaletteSlotCount>& sets()
{
    static std::array<std::unique_ptr<hostUiPaletteSet>, kPaletteSlotCount> all;
    return all;
}

const Description& description(PaletteSlot slot) { return descriptions()[size_t(slot)]; }

void addPage(hostUiPaletteSet* set, const PalettePage& page, bool active)
{
    auto* palette = new hostQtPalette;
    hostQtPalette_Create(palette, kPageStyle, QString::fromUtf8(page.title));
    hostUiPaletteSet_AddPalette(set, palette);
    QWidget* holder = hostQtPalette_paletteWidget(palette);
    QWidget* form = page.make(holder);
    auto* layout = new QVBoxLayout(holder);
    layout->addWidget(form);
    form->show();
    if (active)
        holder->setWindowState(holder->windowState() | Qt::WindowActive);
}

std::unique_ptr<hostUiPaletteSet> makeSet(const Description& wanted)
{
    std::unique_ptr<hostUiPaletteSet> set;
    if (wanted.active)
        set = std::make_unique<hostUiQtPaletteSet>();
    else
        set = std::make_unique<hostUiPaletteSet>();
    hostUiPaletteSet_Create(set.get(), QString::fromUtf8(wanted.title), wanted.windowStyle, kFirstPlace,
                            ndsw_ncadMainWnd(), kPaletteStyle);
    hostUiPaletteSet_EnableDocking(set.get(), kDockAnySide);
    hostUiPaletteSet_RestoreControlBar(set.get(), kDockBar);
    for (const PalettePage& page : wanted.pages)
        addPage(set.get(), page, wanted.active);
    hostUiPaletteSet_SetActivePalette(set.get(), 0);
    set->window()->resize(hostUiPaletteSet_GetClientRect(set.get()).size());
    return set;
}

// The form of a page: the first item of the layout of the page's widget.
QWidget* pageForm(const hostUiPaletteSet* set, int index)
{
    hostQtPalette* palette = hostUiPaletteSet_GetPalette(set, index);
    QWidget* holder = palette ? hostQtPalette_paletteWidget(palette) : nullptr;
    QLayout* layout = holder ? holder->layout() : nullptr;
    QLayoutItem* item = layout ? layout->itemAt(0) : nullptr;
    return item ? item->widget() : nullptr;
}

void refreshSet(PaletteSlot slot)
{
    const hostUiPaletteSet* set = paletteSet(slot);
    if (!set)
        return;
    const std::vector<PalettePage>& pages = description(slot).pages;
    for (int i = 0; i < int(pages.size()); ++i) {
        if (QWidget* form = pageForm(set, i))
            pages[size_t(i)].refresh(form);
    }
}

} // namespace

hostUiPaletteSet* paletteSet(PaletteSlot slot) { return sets()[size_t(slot)].get(); }

void togglePaletteSet(PaletteSlot slot)
{
    if (hostUiPaletteSet* set = paletteSet(slot)) {
        refreshSet(slot);
        hostUiPaletteSet_Show(set, !IsWindowVisible(set));
        return;
    }
    sets()[size_t(slot)] = makeSet(description(slot));
    refreshSet(slot);
    hostUiPaletteSet_Show(paletteSet(slot), true);
}

InspectorPlace inspectorPlace()
{
    constexpr PaletteSlot slot = PaletteSlot::ObjectInspector;
    InspectorPlace place;
    place.page = [] {
        if (!paletteSet(slot))
            sets()[size_t(slot)] = makeSet(description(slot));
        return qobject_cast<ObjectInspectorPage*>(pageForm(paletteSet(slot), 0));
    };
    place.show = [](bool visible) {
        if (hostUiPaletteSet* set = paletteSet(slot))
            hostUiPaletteSet_Show(set, visible);
    };
    // Behind another palette's tab it is kept up to date too.
    place.isVisible = [] {
        const QWidget* window = paletteSet(slot) ? paletteSet(slot)->window() : nullptr;
        return window && !window->isHidden();
    };
    return place;
}

void refreshAllPaletteSets()
{
    for (PaletteSlot slot : {PaletteSlot::ProjectSettings, PaletteSlot::ProjectExplorer, PaletteSlot::ElementList,
                             PaletteSlot::ObjectInspector})
        refreshSet(slot);
}

void refreshExplorerPaletteSet() { refreshSet(PaletteSlot::ProjectExplorer); }

void destroyPaletteSets()
{
    for (auto& set : sets()) {
        if (set)
            hostUiPaletteSet_DestroyWindow(set.get());
        set.reset();
    }
}
