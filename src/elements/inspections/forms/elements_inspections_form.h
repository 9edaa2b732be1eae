#pragma once
// Which state the elements were in at which cycle; creating, copying and
// deleting the inspections of the marked elements.

#include "elements/inspections/inspections_by_cycle.h"
#include "elements/list/forms/elements_by_cycle_form.h"

class ElementsInspectionsForm : public ElementsByCycleForm {
    Q_OBJECT

public:
    /// Reads the inspections of the first family.
    explicit ElementsInspectionsForm(QWidget* parent = nullptr);

protected:
    std::optional<CycleRows> readRows(const HierarchyPlace& place, const ElementProgress& progress) override;
    void open(int elementId, int id) override;

private:
    const InspectionFamily& family() const;
    void createInspections();
    void copyInspections();
    void deleteInspections();
    void finishBulk();
};
