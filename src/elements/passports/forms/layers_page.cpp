#include "elements/passports/forms/layers_page.h"

#include "elements/geology/forms/igs_layer_hatch_delegate.h"
#include "elements/geology/forms/layer_editors.h"
#include "elements/passports/layer_texts.h"
#include "formkit/layout.h"
#include "formkit/table_items.h"
#include "formkit/widgets.h"

#include <QHeaderView>

using namespace formkit;

namespace {

constexpr int kLookRole = Qt::UserRole;
constexpr int kHatchWidth = 110; // pixels
constexpr int kTitleMargins = 6;
constexpr int kNumbers = 3; // the first columns
constexpr double kMillimetresInMetre = 1000.0;
constexpr double kMillimetresInInch = 25.4;
enum LegendColumn { Swatch, Ground };

template <class Editor>
std::unique_ptr<QDialog> makeEditor(int elementId, QWidget* parent)
{
    return std::make_unique<Editor>(elementId, parent);
}

struct LayeredFamily {
    FamilyKey family;
    const char* table;
    std::unique_ptr<QDialog> (*editor)(int elementId, QWidget* parent);
};

const LayeredFamily& layered(FamilyKey family)
{
    static const FamilyTable<LayeredFamily, 2> rows = {
        {FamilyKey::Ts, thermalWellLayers, makeEditor<TSLayerEditorDialog>},
        {FamilyKey::Igs, geologicalWellLayers, makeEditor<IGSLayerEditorDialog>},
    };
    return *rows.find(family);
}

QTableWidgetItem* hatchItem(const GroundElement& ground)
{
    QTableWidgetItem* item = textItem(QString());
    item->setData(kLookRole, QVariant::fromValue(ground.look));
    item->setToolTip(ground.text());
    return item;
}

} // namespace

GroundLayersPage::GroundLayersPage(PassportRecord& record, QWidget* parent)
    : PassportPage(record, parent),
      scale_(combo("ScaleCombo", {{"1:100", 100}, {"1:200", 200}})),
      withLegend_(check("LegendCheck", "Показыать легенду", true)), // users know it spelt so
      table_(table("LayersView", layerTitles())),
      legend_(table("LegendView", {"Штриховка", "ИГЭ"}))
{
    layOut(this).column({
        row({"Масштаб:", scale_, withLegend_, stretch(),
             button("LayerEditorBtn", "Редактор слоёв", this, &GroundLayersPage::editLayers)}),
        row({growing(table_, 5), growing(legend_, 2)}),
    });
    table_->setItemDelegateForColumn(hatchColumn(), new IGSLayerHatchDelegate(kLookRole, table_));
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    table_->setWordWrap(true);
    // Numbers stand narrow below titles of two lines, the description takes the room.
    QHeaderView* titles = table_->horizontalHeader();
    titles->setDefaultAlignment(Qt::AlignCenter | Qt::Alignment(Qt::TextWordWrap));
    titles->setMinimumHeight(2 * titles->fontMetrics().lineSpacing() + kTitleMargins);
    for (int column = 0; column < hatchColumn() - 1; ++column)
        table_->setColumnWidth(column, titles->fontMetrics().averageCharWidth() * (column < kNumbers ? 9 : 15));
    titles->setSectionResizeMode(hatchColumn() - 1, QHeaderView::Stretch);
    table_->setColumnWidth(hatchColumn(), kHatchWidth);
    legend_->setWordWrap(true);
    legend_->setColumnWidth(Swatch, kHatchWidth);
    legend_->horizontalHeader()->setStretchLastSection(true);
    legend_->setItemDelegateForColumn(Swatch, new IGSLayerHatchDelegate(kLookRole, legend_));
    legend_->verticalHeader()->hide();
    // A long name takes as many lines as the width that the page got asks for.
    connect(legend_->horizontalHeader(), &QHeaderView::sectionResized, legend_, &QTableWidget::resizeRowsToContents,
            Qt::QueuedConnection);
    connect(scale_, qOverload<int>(&QComboBox::currentIndexChanged), this, &GroundLayersPage::setRowHeights);
    connect(withLegend_, &QCheckBox::toggled, legend_, &QWidget::setVisible);
}

void GroundLayersPage::showRecord()
{
    readLayers();
    showLayers();
    showLegend();
}

void GroundLayersPage::readLayers()
{
    layers_.clear();
    if (record().row.isRead())
        layers_ = loadGroundColumn(layered(record().family().family).table, record().id()).value_or(GroundLayers());
}

void GroundLayersPage::showLayers()
{
    table_->setRowCount(layers_.size());
    for (int row = 0; row < layers_.size(); ++row) {
        const QStringList texts = layerTexts(layers_[row], record().ground());
        for (int column = 0; column < texts.size(); ++column)
            table_->setItem(row, column, textItem(texts[column]));
        table_->setItem(row, hatchColumn(), hatchItem(layers_[row].ground));
        table_->setVerticalHeaderItem(row, new QTableWidgetItem(layers_[row].ground.code));
    }
    setRowHeights();
}

// To scale on the screen; a thin layer still shows its line of text.
void GroundLayersPage::setRowHeights()
{
    const double pixelsInMetre = kMillimetresInMetre / chosenId(scale_) * logicalDpiY() / kMillimetresInInch;
    const int least = fontMetrics().lineSpacing() + 4;
    for (int row = 0; row < layers_.size(); ++row)
        table_->setRowHeight(row, qMax(least, qRound((layers_[row].to - layers_[row].from) * pixelsInMetre)));
}

void GroundLayersPage::showLegend()
{
    const QVector<GroundElement> grounds = groundsOf(layers_);
    legend_->setRowCount(grounds.size());
    for (int row = 0; row < grounds.size(); ++row) {
        legend_->setItem(row, Swatch, hatchItem(grounds[row]));
        legend_->setItem(row, Ground, textItem(grounds[row].text()));
    }
    legend_->resizeRowsToContents();
}

void GroundLayersPage::editLayers()
{
    if (!record().row.isRead())
        return;
    const std::unique_ptr<QDialog> editor = layered(record().family().family).editor(record().id(), window());
    if (editor->exec() == QDialog::Accepted)
        showRecord();
}
