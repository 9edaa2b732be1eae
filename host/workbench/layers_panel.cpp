#include "layers_panel.h"

#include <drawing/host_access.h>
#include <render/entity_figures.h>
#include <ui/color_dialog.h>

#include <QHeaderView>
#include <QPainter>
#include <algorithm>

namespace {

enum Column { ColumnOn, ColumnLock, ColumnColor, ColumnName, ColumnCount };

// A frame tells a white layer from an empty cell.
QIcon colorSwatch(const QColor& color)
{
    QPixmap swatch(24, 14);
    swatch.fill(Qt::gray);
    QPainter(&swatch).fillRect(swatch.rect().adjusted(1, 1, -1, -1), color);
    return swatch;
}

} // namespace

LayersPanel::LayersPanel(QWidget* parent) : QTableWidget(0, ColumnCount, parent)
{
    setObjectName(QStringLiteral("layersTable"));
    setHorizontalHeaderLabels(
        {QStringLiteral("Вкл"), QStringLiteral("Замок"), QStringLiteral("Цвет"), QStringLiteral("Слой")});
    horizontalHeader()->setSectionResizeMode(ColumnName, QHeaderView::Stretch);
    horizontalHeader()->setMinimumSectionSize(20);
    for (const Column column : {ColumnOn, ColumnLock, ColumnColor})
        horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(22);
    setShowGrid(false);
    setIconSize({24, 14});
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    later_.setSingleShot(true);
    later_.setInterval(50);
    connect(&later_, &QTimer::timeout, this, &LayersPanel::fill);
    connect(this, &QTableWidget::itemChanged, this, &LayersPanel::change);
    connect(this, &QTableWidget::cellDoubleClicked, this, &LayersPanel::act);
}

NcDbObjectId LayersPanel::idOf(const QTableWidgetItem* item) const
{
    return {drawing_, item->data(Qt::UserRole).toULongLong()};
}

LayersPanel::~LayersPanel() { setDrawing(nullptr); }

void LayersPanel::setDrawing(NcDbDatabase* drawing)
{
    if (drawing_) {
        auto& listeners = HostAccess::data(*drawing_).listeners;
        listeners.erase(std::remove(listeners.begin(), listeners.end(), static_cast<DrawingListener*>(this)),
                        listeners.end());
    }
    drawing_ = drawing;
    if (drawing_)
        HostAccess::data(*drawing_).listeners.push_back(this);
    fill();
}

// Only layers matter here, and they are few; entities change by the thousand.
void LayersPanel::objectChanged(NcDbObjectId id)
{
    if (HostAccess::objectAs<NcDbLayerTableRecord>(id) || HostAccess::objectAs<NcDbLayerTable>(id))
        later_.start();
}

void LayersPanel::fill()
{
    filling_ = true;
    setRowCount(0);
    const auto* table =
        drawing_ ? HostAccess::objectAs<NcDbLayerTable>(HostAccess::data(*drawing_).layerTable) : nullptr;
    if (table) {
        NcDbObjectIdArray layers = HostAccess::records(*table);
        layers.erase(std::remove_if(layers.begin(), layers.end(), [](const NcDbObjectId& id) { return id.isErased(); }),
                     layers.end());
        setRowCount(int(layers.size()));
        for (int row = 0; row < rowCount(); ++row)
            fillRow(row, layers[size_t(row)]);
        sortItems(ColumnName);
    }
    filling_ = false;
}

void LayersPanel::fillRow(int row, NcDbObjectId id)
{
    const auto* layer = HostAccess::objectAs<NcDbLayerTableRecord>(id);
    for (int column = 0; column < ColumnCount; ++column) {
        auto* item = new QTableWidgetItem;
        item->setData(Qt::UserRole, id.handle());
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        setItem(row, column, item);
    }
    item(row, ColumnOn)->setCheckState(layer->isOff() ? Qt::Unchecked : Qt::Checked);
    item(row, ColumnLock)->setCheckState(layer->isLocked() ? Qt::Checked : Qt::Unchecked);
    item(row, ColumnColor)->setIcon(colorSwatch(figureColor(layer->color()).color));
    item(row, ColumnName)->setText(layer->getName());
    QFont font = item(row, ColumnName)->font();
    font.setBold(drawing_->clayer() == id);
    item(row, ColumnName)->setFont(font);
}

void LayersPanel::change(QTableWidgetItem* item)
{
    NcDbLayerTableRecord* layer = nullptr;
    if (filling_ || !isOk(ncdbOpenObject(layer, idOf(item), kForWrite)))
        return;
    if (item->column() == ColumnOn)
        layer->setIsOff(item->checkState() != Qt::Checked);
    if (item->column() == ColumnLock)
        layer->setIsLocked(item->checkState() == Qt::Checked);
    layer->close();
}

// A double click makes a layer current, or asks for its colour.
void LayersPanel::act(int row, int column)
{
    const NcDbObjectId id = idOf(item(row, ColumnName));
    NcDbLayerTableRecord* layer = nullptr;
    if (column == ColumnName && drawing_) {
        drawing_->setClayer(id);
    } else if (column == ColumnColor && isOk(ncdbOpenObject(layer, id, kForRead))) {
        const NcCmColor color = layer->color();
        layer->close();
        ColorDialog dialog(color, true, false, this);
        if (dialog.exec() == QDialog::Accepted && isOk(ncdbOpenObject(layer, id, kForWrite))) {
            layer->setColor(dialog.color());
            layer->close();
        }
    }
    later_.start();
}
