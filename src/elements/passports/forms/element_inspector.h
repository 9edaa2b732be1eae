#pragma once
// The inspectors of the seven families: one pane and seven rows.

#include "elements/passports/forms/element_fields.h"
#include "elements/passports/forms/inspector_pane.h"

class QPushButton;

/// What an inspector shows below the fields of the row.
class InspectorPart : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
    /// The record's row was read.
    virtual void showRecord() = 0;
    /// What keeps the part from being stored; empty when nothing does.
    virtual QString fault() const { return {}; }
    virtual void store() { }
};

class ElementInspector : public InspectorPane {
    Q_OBJECT

public:
    explicit ElementInspector(FamilyKey family, QWidget* parent = nullptr);
    ~ElementInspector() override;

protected:
    bool loadRow(int elementId) override;
    bool applyRow() override;

private:
    void applyToDrawing(const QStringList& values);

    PassportRecord record_;
    ElementFields fields_;
    InspectorPart* part_;
    QPushButton* apply_;
};

template <FamilyKey key>
class FamilyInspector : public ElementInspector {
public:
    explicit FamilyInspector(QWidget* parent = nullptr) : ElementInspector(key, parent) { }
};

using DMElementInspector = FamilyInspector<FamilyKey::Dm>;
using TSElementInspector = FamilyInspector<FamilyKey::Ts>;
using RPElementInspector = FamilyInspector<FamilyKey::Rp>;
using GGSElementInspector = FamilyInspector<FamilyKey::Ggs>;
using TSGElementInspector = FamilyInspector<FamilyKey::Tsg>;
using TSSElementInspector = FamilyInspector<FamilyKey::Tss>;
using IGSElementInspector = FamilyInspector<FamilyKey::Igs>;
