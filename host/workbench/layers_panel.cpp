#include "layers_panel.h"

#include "desk_icons.h"

#include <drawing/entity_properties.h>
#include <drawing/host_access.h>
#include <drawing/layer_operations.h>
#include <drawing/undo.h>
#include <render/entity_figures.h>
#include <ui/color_dialog.h>

#include <QHeaderView>
#include <QMenu>
#include <QPainter>
#include <algorithm>

namespace {

enum Column { ColumnOn, ColumnLock, ColumnColor, ColumnName, ColumnLineType, ColumnCount };
const QString kStep = QStringLiteral("СЛОЙ");

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
    setHorizontalHeaderLabels({QString(), QString(), QString(), QStringLiteral("Слой"), QStringLiteral("Линия")});
    const std::pair<const char*, QString> signs[] = {{"eye", QStringLiteral("Показан")},
                                                     {"lock", QStringLiteral("Закрыт от изменений")},
                                                     {"palette", QStringLiteral("Цвет")}};
    horizontalHeader()->setMinimumSectionSize(20);
    for (const Column column : {ColumnOn, ColumnLock, ColumnColor}) {
        horizontalHeaderItem(column)->setIcon(deskIcon(QString::fromLatin1(signs[column].first)));
        horizontalHeaderItem(column)->setToolTip(signs[column].second);
        horizontalHeader()->setSectionResizeMode(column, QHeaderView::Fixed);
        setColumnWidth(column, column == ColumnColor ? 34 : 26);
    }
    horizontalHeader()->setSectionResizeMode(ColumnName, QHeaderView::Stretch);
    horizontalHeader()->setSectionResizeMode(ColumnLineType, QHeaderView::ResizeToContents);
    setSelectionMode(SingleSelection);
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

// Only layers matter here, and they are few; entities change by the thousand. The
// drawing's own figures, such as the current layer, change with no object told.
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
    filter();
    for (int row = 0; row < rowCount() && !named_.isNull(); ++row)
        if (idOf(item(row, ColumnName)) == named_) {
            named_ = NcDbObjectId();
            setCurrentCell(row, ColumnName);
            renameChosen();
        }
}

// --- what is done with the chosen one

NcDbObjectId LayersPanel::chosen() const
{
    const QTableWidgetItem* item = currentRow() >= 0 ? this->item(currentRow(), ColumnName) : nullptr;
    return item && drawing_ ? idOf(item) : NcDbObjectId();
}

void LayersPanel::answer(const QString& fault)
{
    if (!fault.isEmpty())
        emit refused(fault);
    later_.start();
}

// Made under a free name, which is then typed over.
void LayersPanel::addNew()
{
    if (!drawing_)
        return;
    const UndoGroup group(*drawing_, kStep);
    answer(addLayer(*drawing_, freeLayerName(*drawing_), &named_));
}

void LayersPanel::renameChosen()
{
    if (QTableWidgetItem* name = currentRow() >= 0 ? item(currentRow(), ColumnName) : nullptr) {
        filling_ = true;
        name->setFlags(name->flags() | Qt::ItemIsEditable);
        filling_ = false;
        editItem(name);
    }
}

void LayersPanel::eraseChosen()
{
    if (chosen().isNull())
        return;
    const UndoGroup group(*drawing_, kStep);
    answer(eraseLayer(*drawing_, chosen()));
}

void LayersPanel::makeChosenCurrent()
{
    if (chosen().isNull())
        return;
    const UndoGroup group(*drawing_, kStep);
    drawing_->setClayer(chosen());
    later_.start();
}

void LayersPanel::setLineType(NcDbObjectId id, const QString& name)
{
    const UndoGroup group(*drawing_, kStep);
    NcDbLayerTableRecord* layer = nullptr;
    if (!isOk(ncdbOpenObject(layer, id, kForWrite)))
        return answer(QStringLiteral("Слой занят."));
    layer->setLinetype(name);
    layer->close();
    later_.start();
}

void LayersPanel::chooseLineType()
{
    const NcDbObjectId id = chosen();
    const auto* layer = id.isNull() ? nullptr : HostAccess::objectAs<NcDbLayerTableRecord>(id);
    if (!layer)
        return;
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("layerLineTypes"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const QString& name : lineTypeNames(*drawing_)) {
        if (name == QLatin1String("ByLayer") || name == QLatin1String("ByBlock"))
            continue;
        QAction* action = menu->addAction(lineTypeCaption(name), this, [this, id, name] { setLineType(id, name); });
        action->setCheckable(true);
        action->setChecked(layer->linetype().compare(name, Qt::CaseInsensitive) == 0);
    }
    menu->popup(mapToGlobal(visualItemRect(item(currentRow(), ColumnName)).bottomLeft()));
}

void LayersPanel::setFilter(const QString& text)
{
    filterText_ = text.trimmed();
    filter();
}

void LayersPanel::filter()
{
    for (int row = 0; row < rowCount(); ++row)
        setRowHidden(row, !item(row, ColumnName)->text().contains(filterText_, Qt::CaseInsensitive));
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
    item(row, ColumnName)->setToolTip(layer->getName());
    item(row, ColumnLineType)->setText(lineTypeCaption(layer->linetype()));
    QFont font = item(row, ColumnName)->font();
    font.setBold(drawing_->clayer() == id);
    item(row, ColumnName)->setFont(font);
}

void LayersPanel::change(QTableWidgetItem* item)
{
    if (filling_ || !drawing_)
        return;
    const UndoGroup group(*drawing_, kStep);
    if (item->column() == ColumnName)
        return answer(renameLayer(*drawing_, idOf(item), item->text()));
    NcDbLayerTableRecord* layer = nullptr;
    if (!isOk(ncdbOpenObject(layer, idOf(item), kForWrite)))
        return;
    if (item->column() == ColumnOn)
        layer->setIsOff(item->checkState() != Qt::Checked);
    if (item->column() == ColumnLock)
        layer->setIsLocked(item->checkState() == Qt::Checked);
    layer->close();
}

// A double click makes a layer current, or asks for its colour or line type.
void LayersPanel::act(int row, int column)
{
    if (!drawing_)
        return;
    if (column == ColumnName)
        makeChosenCurrent();
    else if (column == ColumnLineType)
        chooseLineType();
    else if (column == ColumnColor)
        chooseColor(idOf(item(row, ColumnName)));
}

void LayersPanel::chooseColor(NcDbObjectId id)
{
    const auto* present = HostAccess::objectAs<NcDbLayerTableRecord>(id);
    if (!present)
        return;
    ColorDialog dialog(present->color(), true, false, this);
    NcDbLayerTableRecord* layer = nullptr;
    if (dialog.exec() != QDialog::Accepted)
        return;
    const UndoGroup group(*drawing_, kStep);
    if (isOk(ncdbOpenObject(layer, id, kForWrite))) {
        layer->setColor(dialog.color());
        layer->close();
    }
    later_.start();
}
