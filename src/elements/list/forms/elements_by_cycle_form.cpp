#include "elements/list/forms/elements_by_cycle_form.h"

#include "elements/list/forms/cycle_table_view.h"
#include "elements/list/forms/hierarchy_combo.h"
#include "formkit/end_buttons.h"
#include "formkit/progress_box.h"
#include "formkit/widgets.h"

using namespace formkit;

namespace {

constexpr int kChoiceLength = 30; // characters

} // namespace

ElementsByCycleForm::ElementsByCycleForm(const Words& words, const Choices& families, QWidget* parent)
    : QDialog(parent),
      words_(words),
      families_(narrowCombo("ElementTypeCombo", kChoiceLength, families)),
      places_(named<HierarchyCombo>("PositionCombo")),
      source_(narrowCombo("BaseCyclesCombo", kChoiceLength, session().cycleEntries(" - "))),
      target_(narrowCombo("CurrentCyclesCombo", kChoiceLength, session().cycleEntries(" - "))),
      table_(words.columns),
      view_(named<CycleTableView>(words.view, &table_))
{
    nameForm(this, words.name, words.title);
    places_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choose(source_, session().baseCycleId);
    choose(target_, session().currentCycleId);
}

void ElementsByCycleForm::finish(std::initializer_list<Item> buttons)
{
    layOut(this).column({
        grid({
            {"Тип элемента ГМН", growing(families_), "Исходный цикл", growing(source_)},
            {"Позиция", places_, words_.target, target_},
        }),
        growing(view_),
        row({row(buttons), stretch(), endButtons(this, {rejects("CloseBtn", "Закрыть")})}),
    });
    resize(920, 560);
    connectChoices();
    reload(CycleTable::Elements::Other);
}

void ElementsByCycleForm::connectChoices()
{
    const auto changed = qOverload<int>(&QComboBox::currentIndexChanged);
    for (QComboBox* combo : {families_, static_cast<QComboBox*>(places_)})
        connect(combo, changed, this, [this] { reload(CycleTable::Elements::Other); });
    for (QComboBox* combo : {source_, target_})
        connect(combo, changed, this, [this] { reload(); });
    connect(view_, &CycleTableView::opened, this, [this](int elementId, int id) { open(elementId, id); });
}

QWidget* ElementsByCycleForm::copyButton(QWidget* button) { return copy_ = button; }

void ElementsByCycleForm::reload(CycleTable::Elements elements)
{
    if (copy_)
        copy_->setEnabled(source() != target());
    work(words_.reading, [this, elements](const ElementProgress& progress) {
        std::optional<CycleRows> rows = readRows(places_->place(), progress);
        if (!rows)
            return;
        table_.setRows(std::move(*rows), elements);
        if (elements == CycleTable::Elements::Other)
            view_->fit();
    });
}

void ElementsByCycleForm::work(const QString& text, const std::function<void(const ElementProgress&)>& steps)
{
    ProgressBox box(this, windowTitle(), text);
    steps([&box](int done, int total) { return box.step(done, total); });
}

QString ElementsByCycleForm::numberOf(int cycleId) { return session().cycles.value(cycleId).value(0); }

CycleRows ElementsByCycleForm::markedRows() const { return view_->markedRows(); }
