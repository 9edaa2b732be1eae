#include "elements/geology/forms/base_layer_editor_dialog.h"

#include "base/placeholders.h"
#include "elements/geology/forms/igs_layer_hatch_delegate.h"
#include "formkit/boxes.h"
#include "formkit/cell_editors.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

#include <QHeaderView>
#include <QTableView>

using namespace formkit;

namespace {

using Model = GroundLayersModel;

constexpr int depthWidth = 150, groundWidth = 220, hatchWidth = 140, rowHeight = 36;
const QString confirmation = QStringLiteral("Подтверждение");

/// What a layer may be made of.
class GroundDelegate : public ChoiceDelegate {
public:
    GroundDelegate(const Model& model, QObject* parent) : ChoiceDelegate(parent), model_(model) { }

protected:
    Choices choicesOf(const QModelIndex&) const override
    {
        Choices choices = {{QStringLiteral("Не указан"), -1}};
        for (const GroundElement& ground : model_.grounds())
            choices.append({ground.text(), ground.id});
        return choices;
    }
    void put(QAbstractItemModel& model, const QModelIndex& cell, const ComboEntry& chosen) const override
    {
        model.setData(cell, chosen.data, Model::KeyRole);
    }

private:
    const Model& model_;
};

QTableView* makeTable(Model* model)
{
    auto* table = named<QTableView>("LayersTable");
    table->setModel(model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                           | QAbstractItemView::AnyKeyPressed);
    for (int column : {Model::From, Model::To}) {
        table->setItemDelegateForColumn(column, new NumberDelegate(table));
        table->setColumnWidth(column, depthWidth);
    }
    table->setItemDelegateForColumn(Model::Ground, new GroundDelegate(*model, table));
    table->setItemDelegateForColumn(Model::Hatch, new IGSLayerHatchDelegate(Model::LookRole, table));
    table->horizontalHeader()->setSectionResizeMode(Model::Description, QHeaderView::Stretch);
    table->setColumnWidth(Model::Ground, groundWidth);
    table->setColumnWidth(Model::Hatch, hatchWidth);
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    return table;
}

} // namespace

BaseLayerEditorDialog::BaseLayerEditorDialog(const QString& name, int elementId, QWidget* parent)
    : QDialog(parent), elementId_(elementId), model_(new Model(this))
{
    nameForm(this, name, "Редактор слоёв");
    layOut(this).column({
        growing(table_ = makeTable(model_)),
        tableButtons_ = row({
            button("AddLayerBtn", "Добавить слой", this, &BaseLayerEditorDialog::addLayer),
            button("DeleteLayerBtn", "Удалить слой", this, &BaseLayerEditorDialog::removeLayer),
        }),
        row({
            growing(status_ = note("StatusLabel")),
            save_ = button("SaveBtn", "Сохранить", this, &BaseLayerEditorDialog::accept),
            button("CloseBtn", "Закрыть", this, &BaseLayerEditorDialog::reject),
        }),
    });
    tableButtons_->addStretch();
    resize(860, 480);
}

void BaseLayerEditorDialog::addButton(QPushButton* button)
{
    tableButtons_->insertWidget(tableButtons_->count() - 1, button);
}

void BaseLayerEditorDialog::reload()
{
    const std::optional<QVector<GroundElement>> grounds = loadGroundElements();
    const std::optional<GroundLayers> stored = loadLayers(layerTable(), elementId_);
    model_->setGrounds(grounds.value_or(QVector<GroundElement>()));
    model_->showStored(stored.value_or(GroundLayers()));
    const bool isRead = grounds && stored;
    save_->setEnabled(isRead);
    status_->setText(isRead ? QString() : QStringLiteral("Слои не прочитаны из базы данных, сохранить их нельзя."));
}

int BaseLayerEditorDialog::currentRow() const { return table_->currentIndex().row(); }

void BaseLayerEditorDialog::addLayer()
{
    const int added = model_->addLayer();
    table_->setCurrentIndex(model_->index(added, Model::To));
}

void BaseLayerEditorDialog::removeLayer()
{
    if (currentRow() >= 0 && confirm(this, {"Удалить выбранный слой?", confirmation}))
        model_->removeLayer(currentRow());
}

QString BaseLayerEditorDialog::firstFault() const
{
    for (int layer = 0; layer < model_->layers().size(); ++layer) {
        const QString fault = layerFault(model_->layers(), layer);
        if (!fault.isEmpty())
            return fill("Ошибка в строке %1: %2", layer + 1, fault);
    }
    return {};
}

void BaseLayerEditorDialog::accept()
{
    if (!save_->isEnabled())
        return;
    const QString fault = firstFault();
    if (!fault.isEmpty())
        return warn(this, fault, "Ошибка валидации");
    QSet<int> known;
    for (const GroundElement& ground : model_->grounds())
        known.insert(ground.id);
    QString problem;
    if (!saveLayers(layerTable(), elementId_, model_->layers(), known, problem))
        return warn(this, problem, "Ошибка");
    inform(this, "Слои успешно сохранены", "Успех");
    QDialog::accept();
}

void BaseLayerEditorDialog::reject()
{
    const Question loss{"Изменения не сохранятся", confirmation, Look::Question, Preset::No};
    if (!model_->isChanged() || confirm(this, loss))
        QDialog::reject();
}
