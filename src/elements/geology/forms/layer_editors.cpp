#include "elements/geology/forms/layer_editors.h"

#include "base/placeholders.h"
#include "elements/geology/layer_sources.h"
#include "formkit/boxes.h"
#include "formkit/modal.h"
#include "formkit/record_dialog.h"
#include "formkit/tab_order.h"
#include "formkit/widgets.h"

using namespace formkit;

namespace {

constexpr int noWell = -1;

/// Asks for the well whose layers are taken over.
class LayerSourceQuestion : public FieldsDialog {
public:
    LayerSourceQuestion(const QVector<LayerSource>& sources, QWidget* parent)
        : FieldsDialog("LayerSourceQuestion", "Скопировать из ИГС",
                       {Field::choice("SourceCombo", "Скважина", [sources] { return choicesOf(sources); })},
                       {ok(), cancel()}, parent)
    { }

    int elementId() const { return fields().text("SourceCombo").toInt(); }

private:
    static Choices choicesOf(const QVector<LayerSource>& sources)
    {
        Choices choices;
        for (const LayerSource& source : sources)
            choices.append({source.text(), source.elementId});
        return choices;
    }
};

} // namespace

TSLayerEditorDialog::TSLayerEditorDialog(int elementId, QWidget* parent)
    : BaseLayerEditorDialog("TSLayerEditorDialog", elementId, parent)
{
    addButton(button("CopyFromIGSBtn", "Скопировать из ИГС", this, &TSLayerEditorDialog::copyFromWell));
    orderTabs(*this);
    reload();
}

void TSLayerEditorDialog::copyFromWell()
{
    if (elementId() == noWell)
        return warn(this, "Не установлен element_id термоскважины", "Ошибка");
    const std::optional<QVector<LayerSource>> sources = loadLayerSources(elementId());
    if (!sources)
        return warn(this, "Ошибка БД", "Ошибка");
    if (sources->isEmpty())
        return warn(this, "Не из чего выбирать");
    const std::optional<int> source = askOver(this, &LayerSourceQuestion::elementId, *sources);
    if (!source || !confirm(this, {"Данное действие сотрет текущие слои.\n Продолжить?", "Подтверждение"}))
        return;
    const std::optional<GroundLayers> taken = loadGroundColumn(geologicalWellLayers, *source);
    if (!taken)
        return warn(this, "Ошибка БД", "Ошибка");
    if (taken->isEmpty())
        return warn(this, "У выбранной скважины нет слоёв", "Результат");
    layers().replaceAll(*taken);
    inform(this, fill("Слои успешно вставлены из геологической скважины (%1 слоёв)", taken->size()), "Успех");
}

IGSLayerEditorDialog::IGSLayerEditorDialog(int elementId, QWidget* parent)
    : BaseLayerEditorDialog("IGSLayerEditorDialog", elementId, parent)
{
    reload();
}
