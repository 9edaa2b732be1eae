#include "elements/inspections/forms/elements_inspections_form.h"

#include "base/placeholders.h"
#include "elements/inspections/forms/inspection_form.h"
#include "elements/list/forms/cycle_question.h"
#include "elements/measures/forms/measured_families.h"
#include "formkit/boxes.h"
#include "formkit/for_all.h"
#include "formkit/widgets.h"

#include <algorithm>

using namespace formkit;

ElementsInspectionsForm::ElementsInspectionsForm(QWidget* parent)
    : ElementsByCycleForm({"ElementsInspectionsForm",
                           "Управление состоянием элементов ГМН",
                           "InspectionsView",
                           "Текущий цикл",
                           "Чтение ведомостей обследования",
                           {"Имя", "Тек.состояние"}},
                          measuredFamilies(), parent)
{
    finish({
        button("CreateInspectionBTN", "Создать ВО для всего цикла", this, &ElementsInspectionsForm::createInspections),
        copyButton(
            button("CopyInspectionBTN", "Копировать ведомости", this, &ElementsInspectionsForm::copyInspections)),
        button("DeleteInspectionBTN", "Удалить ВО для всего цикла", this, &ElementsInspectionsForm::deleteInspections),
    });
}

const InspectionFamily& ElementsInspectionsForm::family() const
{
    return *inspectionFamily(chosenMeasureFamily(families()).family);
}

std::optional<CycleRows> ElementsInspectionsForm::readRows(const HierarchyPlace& place, const ElementProgress& progress)
{
    return readInspectionRows(family(), place, progress);
}

void ElementsInspectionsForm::open(int elementId, int id)
{
    InspectionForm form(family().family, this);
    if (!form.load(id) || form.exec() != QDialog::Accepted)
        return;
    const CycleRows& rows = table().rows();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [elementId](const CycleRow& r) { return r.elementId == elementId; });
    recomputeState(family(), elementId, row == rows.end() ? session().defaultState : row->stateId);
    reload();
}

void ElementsInspectionsForm::createInspections()
{
    InspectionForm form(family().family, this);
    form.startPattern(target());
    if (form.exec() != QDialog::Accepted)
        return;
    AskedForAll replacing(this);
    work("Создание ведомостей обследования", [&](const ElementProgress& progress) {
        ::createInspections(
            form.record(), markedRows(), [&](const QString& text) { return replacing.agrees(text); }, progress);
    });
    finishBulk();
}

void ElementsInspectionsForm::copyInspections()
{
    if (!confirm(this,
                 fill("Для выделенных элементов будут скопированы ведомости обследования\n из цикла %1 в цикл %2",
                      numberOf(source()), numberOf(target()))))
        return;
    AskedForAll replacing(this);
    work("Копирование ведомостей обследования", [&](const ElementProgress& progress) {
        ::copyInspections(
            family(), markedRows(), {source(), target()}, [&](const QString& text) { return replacing.agrees(text); },
            progress);
    });
    finishBulk();
}

void ElementsInspectionsForm::deleteInspections()
{
    const std::optional<int> cycle = askCycle(this, "Укажите цикл обследования", target());
    if (!cycle
        || !confirm(
            this,
            fill("Для выделенных элементов будут удалены ведомости обследования\n для цикла %1 ", numberOf(*cycle))))
        return;
    ::deleteInspections(family(), markedRows(), *cycle);
    finishBulk();
}

void ElementsInspectionsForm::finishBulk()
{
    recomputeStates(family());
    reload();
}
