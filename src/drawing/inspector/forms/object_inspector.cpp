#include "drawing/inspector/forms/object_inspector.h"

#include "base/placeholders.h"
#include "drawing/inspector/forms/object_inspector_page.h"
#include "elements/passports/forms/inspector_pane.h"
#include "hostkit/console.h"
#include "session/project_session.h"

#include <memory>

namespace {

std::unique_ptr<AcPFMReactor>& reactor()
{
    static std::unique_ptr<AcPFMReactor> only;
    return only;
}

// The first member of the selection; the null id when it names nothing.
NcDbObjectId firstOf(const NcSelectionSet& selection)
{
    NcSelectionName name;
    NcDbObjectId id;
    if (ncedSSLength(selection) > 0 && ncedSSName(selection, 0, name) == kPromptNormal)
        ncdbGetObjectId(id, name);
    return id;
}

QString whyNotRead(int elementId)
{
    return session().connection.isOk() ? fill("Элемента с ID %1 нет в базе данных", elementId)
                                       : QStringLiteral("Нет соединения с базой данных");
}

void inspect(NcDbObjectId block, ObjectInspectorPage& page)
{
    const ElementBlock element(block);
    if (element.kind == noKind)
        return page.putText(QStringLiteral("NONE"));
    const Family* family = element.family();
    if (!family)
        return;
    // 0 is no row's key: nothing is loaded then.
    const int id = element.elementKey().value_or(0);
    auto* pane = makeInspectorPane(family->key);
    const bool isRead = pane->load(id);
    pane->setBlock(element, block);
    page.put(pane, isRead ? QString() : whyNotRead(id));
}

void switchOff(const InspectorPlace& place)
{
    removeObjectInspector();
    say("\n Инспектор объектов отключен.");
    if (ObjectInspectorPage* page = place.page())
        page->putNothing();
    place.show(false);
}

void switchOn(const InspectorPlace& place)
{
    reactor() = std::make_unique<AcPFMReactor>(place);
    NcEditor::instance()->addReactor(reactor().get());
    session().inspectorOn = true;
    say("\n Инспектор объектов включен.");
    if (ObjectInspectorPage* page = place.page())
        page->putNothing();
    place.show(true);
    // The command keeps what was selected before it.
    inspectSelection();
}

} // namespace

AcPFMReactor::~AcPFMReactor() { NcEditor::instance()->removeReactor(this); }

void AcPFMReactor::pickfirstModified()
{
    NcSelectionSet selection;
    if (ncedSSGet("_I", {}, selection) == kPromptNormal) {
        if (ObjectInspectorPage* page = place_.page())
            inspect(firstOf(selection), *page);
        ncedSSFree(selection);
        NcEditorReactor2::pickfirstModified();
        return;
    }
    ObjectInspectorPage* page = place_.isVisible() ? place_.page() : nullptr;
    if (page)
        page->putNothing();
}

void toggleObjectInspector(const InspectorPlace& place)
{
    if (session().inspectorOn)
        switchOff(place);
    else
        switchOn(place);
}

void inspectSelection()
{
    if (reactor())
        reactor()->pickfirstModified();
}

void removeObjectInspector()
{
    reactor().reset();
    session().inspectorOn = false;
}
