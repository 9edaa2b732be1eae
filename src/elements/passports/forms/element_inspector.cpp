#include "elements/passports/forms/element_inspector.h"

#include "elements/families/kinds.h"
#include "elements/passports/block_values.h"
#include "elements/passports/forms/inspector_parts.h"
#include "formkit/boxes.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"
#include "hostkit/model_space.h"

#include <QFormLayout>
#include <QScrollArea>
#include <QScrollBar>

using namespace formkit;

ElementInspector::ElementInspector(FamilyKey family, QWidget* parent)
    : InspectorPane(family, parent),
      record_(PassportRecord::withLists(family)),
      fields_(record_),
      part_(makeInspectorPart(record_)),
      apply_(disabled(button("ApplyBtn", "Применить", this, &InspectorPane::apply)))
{
    nameForm(this, record_.family().inspectorName, QString());
    std::vector<Item> groups = {fields_.pane(PassportGroup::Plain)};
    if (formkit::FieldPane* survey = fields_.pane(PassportGroup::Survey))
        groups.push_back(group("Обследование").column({survey}));
    if (formkit::FieldPane* place = fields_.pane(PassportGroup::Place))
        groups.push_back(group("Координаты").column({place}));
    groups.push_back(growing(part_));
    // A palette is often lower than all of this.
    auto* area = named<QScrollArea>("Area");
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(pane(column(groups)));
    area->setMinimumWidth(area->widget()->minimumSizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    layOut(this).column({growing(area), row({stretch(), apply_})});
    for (QFormLayout* form : findChildren<QFormLayout*>())
        form->setRowWrapPolicy(QFormLayout::WrapLongRows);
}

// It shows the record until it goes.
ElementInspector::~ElementInspector() { delete part_; }

bool ElementInspector::loadRow(int elementId)
{
    record_.row.readForInspector(elementId);
    record_.readMeasures();
    fields_.showRow();
    part_->showRecord();
    apply_->setEnabled(record_.row.isRead());
    return record_.row.isRead();
}

bool ElementInspector::applyRow()
{
    const QStringList values = fields_.values();
    const QString before = hasBlock() ? block().name() : record_.row.name();
    const QString taken = record_.row.inspectorFault(before, values);
    if (!taken.isEmpty()) {
        warn(this, taken);
        fields_.setValue(ElementName, before);
        return false;
    }
    const QString wrong = part_->fault();
    if (!wrong.isEmpty()) {
        warn(this, wrong);
        return false;
    }
    if (hasBlock())
        applyToDrawing(values);
    const bool written = record_.row.updateFromInspector(values);
    part_->store();
    // Rotations and the label's properties follow.
    if (hasBlock())
        block().updateRowFull();
    return written;
}

void ElementInspector::applyToDrawing(const QStringList& values)
{
    setBlockValues(block(), values, record_.family());
    const int kind = kindByTypeId(values.value(TypeId));
    if (kind == block().kind || kind == noKind) {
        block().applyToBlock(reference());
        return;
    }
    if (!block().changeKind(kind) || !block().replaceBlock(reference()))
        return;
    setReference(findBlockReference(block().blockName, QStringLiteral("element_id"), QString::number(record_.id())));
}
