#include "editor_reactors.h"

#include "application.h"

#include <algorithm>

namespace {

std::vector<NcEditorReactor*>& reactors()
{
    static std::vector<NcEditorReactor*> all;
    return all;
}

std::vector<NcDoubleClickReactor*>& clickReactors()
{
    static std::vector<NcDoubleClickReactor*> all;
    return all;
}

// A reactor may take itself or others out while it is told.
template <class Tell>
void tellAll(const Tell& tell)
{
    const std::vector<NcEditorReactor*> present = reactors();
    for (NcEditorReactor* reactor : present) {
        const auto& now = reactors();
        if (std::find(now.begin(), now.end(), reactor) != now.end())
            tell(*reactor);
    }
}

} // namespace

NcEditor* NcEditor::instance()
{
    static NcEditor editor;
    return &editor;
}

void NcEditor::addReactor(NcEditorReactor* reactor)
{
    auto& all = reactors();
    if (reactor && std::find(all.begin(), all.end(), reactor) == all.end())
        all.push_back(reactor);
}

void NcEditor::removeReactor(NcEditorReactor* reactor)
{
    auto& all = reactors();
    all.erase(std::remove(all.begin(), all.end(), reactor), all.end());
}

void notifyCommand(const QString& name, bool starts)
{
    tellAll([&](NcEditorReactor& reactor) { starts ? reactor.commandWillStart(name) : reactor.commandEnded(name); });
    if (starts)
        emit HostEvents::instance()->commandStarted(name);
    else
        emit HostEvents::instance()->commandEnded(name);
}

void notifyPickfirst()
{
    tellAll([](NcEditorReactor& reactor) {
        if (auto* second = dynamic_cast<NcEditorReactor2*>(&reactor))
            second->pickfirstModified();
    });
    emit HostEvents::instance()->pickfirstModified();
}

void ncedAddDoubleClickReactor(NcDoubleClickReactor* reactor)
{
    auto& all = clickReactors();
    if (reactor && std::find(all.begin(), all.end(), reactor) == all.end())
        all.push_back(reactor);
}

void ncedRemoveDoubleClickReactor(NcDoubleClickReactor* reactor)
{
    auto& all = clickReactors();
    all.erase(std::remove(all.begin(), all.end(), reactor), all.end());
}

bool notifyDoubleClick(NcDbObjectId entity)
{
    const std::vector<NcDoubleClickReactor*> present = clickReactors();
    return std::any_of(present.begin(), present.end(),
                       [entity](NcDoubleClickReactor* reactor) { return reactor->doubleClicked(entity); });
}
