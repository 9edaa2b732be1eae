#include "elements/passports/forms/inspector_pane.h"

#include "elements/passports/forms/element_inspector.h"

#include <algorithm>
#include <vector>

namespace {

std::vector<InspectorPane*>& livingPanes()
{
    static std::vector<InspectorPane*> panes;
    return panes;
}

} // namespace

InspectorPane::InspectorPane(FamilyKey family, QWidget* parent)
    : QWidget(parent), family_(family), block_(StateColors())
{
    livingPanes().push_back(this);
}

InspectorPane::~InspectorPane()
{
    auto& panes = livingPanes();
    panes.erase(std::remove(panes.begin(), panes.end(), this), panes.end());
}

bool InspectorPane::load(int elementId)
{
    elementId_ = loadRow(elementId) ? elementId : -1;
    return elementId_ != -1;
}

void InspectorPane::setBlock(const ElementBlock& block, NcDbObjectId reference)
{
    block_ = block;
    reference_ = reference;
}

bool InspectorPane::apply()
{
    if (elementId_ == -1 || !applyRow())
        return false;
    emit applied(elementId_);
    return true;
}

InspectorPane* makeInspectorPane(FamilyKey family, QWidget* parent) { return new ElementInspector(family, parent); }

void reloadInspectorPanes(FamilyKey family, int elementId)
{
    const std::vector<InspectorPane*> panes = livingPanes();
    for (InspectorPane* pane : panes) {
        if (pane->family() == family && pane->elementId() == elementId)
            pane->load(elementId);
    }
}
