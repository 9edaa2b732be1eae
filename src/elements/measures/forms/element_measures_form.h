#pragma once
// Which measures the elements have in which cycles; copying, deleting and
// exporting those of the marked elements.

#include "elements/list/forms/elements_by_cycle_form.h"

struct MeasureFamily;

class ElementMeasuresForm : public ElementsByCycleForm {
    Q_OBJECT

public:
    /// Reads the measures of the first family.
    explicit ElementMeasuresForm(QWidget* parent = nullptr);

protected:
    std::optional<CycleRows> readRows(const HierarchyPlace& place, const ElementProgress& progress) override;
    void open(int elementId, int id) override;

private:
    const MeasureFamily& family() const;
    void copyMeasures();
    void deleteMeasures();
    void exportMeasures();
};
