#pragma once
// TERVA_OBJECT_INSPECTOR: a palette that follows the selection and shows the
// element of the first block in it.

#include <nrx/editor.h>

#include <functional>

class ObjectInspectorPage;

/// Where the inspector shows itself.
struct InspectorPlace {
    std::function<ObjectInspectorPage*()> page; ///< makes the palette on first use; null when it is gone
    std::function<void(bool)> show;
    std::function<bool()> isVisible;
};

/// Told by the host whenever the selection has changed, during commands too. It
/// reads the first block alone, however many are selected, and writes nothing.
class AcPFMReactor : public NcEditorReactor2 {
public:
    explicit AcPFMReactor(const InspectorPlace& place) : place_(place) { }
    ~AcPFMReactor() override;

    void pickfirstModified() override;

private:
    InspectorPlace place_;
};

/// Switches the inspector on or off.
void toggleObjectInspector(const InspectorPlace& place);

/// Shows what is selected now; nothing happens while the inspector is off.
void inspectSelection();

/// Takes the reactor from the host without a word: the module goes.
void removeObjectInspector();
