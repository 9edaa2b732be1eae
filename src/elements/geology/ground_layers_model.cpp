#include "elements/geology/ground_layers_model.h"

#include <cmath>

namespace {

constexpr double firstThickness = 1.0; // of a layer that is added, m

// Centimetres as everybody writes them, millimetres only where there are any.
QString depthText(double depth)
{
    const QString exact = fixed(depth, 3);
    return exact.endsWith(QLatin1Char('0')) ? exact.chopped(1) : exact;
}

bool readDepth(const QString& text, double& depth)
{
    bool isNumber = false;
    const double read = QString(text).trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
    if (!isNumber || !std::isfinite(read))
        return false;
    depth = read;
    return true;
}

} // namespace

void GroundLayersModel::showStored(const GroundLayers& layers) { show(layers, false); }

void GroundLayersModel::replaceAll(const GroundLayers& layers) { show(layers, true); }

void GroundLayersModel::show(const GroundLayers& layers, bool changed)
{
    beginResetModel();
    layers_ = layers;
    changed_ = changed;
    endResetModel();
}

int GroundLayersModel::addLayer()
{
    const int row = layers_.size();
    GroundLayer layer;
    layer.from = layers_.isEmpty() ? 0.0 : layers_.last().to;
    layer.to = layer.from + firstThickness;
    beginInsertRows({}, row, row);
    layers_.append(layer);
    changed_ = true;
    endInsertRows();
    return row;
}

void GroundLayersModel::removeLayer(int row)
{
    if (row < 0 || row >= layers_.size())
        return;
    beginRemoveRows({}, row, row);
    layers_.removeAt(row);
    changed_ = true;
    endRemoveRows();
}

int GroundLayersModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : layers_.size(); }

int GroundLayersModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QVariant GroundLayersModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList titles = {"Глубина от (м)", "Глубина до (м)", "ИГЭ", "Описание", "Штриховка"};
    if (role != Qt::DisplayRole)
        return {};
    return orientation == Qt::Horizontal ? QVariant(titles.value(section)) : QVariant(section + 1);
}

QString GroundLayersModel::textOf(const GroundLayer& layer, int column) const
{
    switch (column) {
    case From: return depthText(layer.from);
    case To: return depthText(layer.to);
    case Ground: return layer.ground.text();
    case Description: return layer.description;
    default: return {};
    }
}

QVariant GroundLayersModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= layers_.size())
        return {};
    const GroundLayer& layer = layers_[index.row()];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return textOf(layer, index.column());
    case KeyRole: return index.column() == Ground ? QVariant(layer.ground.id) : QVariant();
    case LookRole: return QVariant::fromValue(layer.ground.look);
    case Qt::ToolTipRole: return index.column() == Hatch ? QVariant(layer.ground.look.pattern) : QVariant();
    default: return {};
    }
}

bool GroundLayersModel::setGround(GroundLayer& layer, int id) const
{
    if (id == -1) {
        layer.ground = GroundElement();
        return true;
    }
    for (const GroundElement& ground : grounds_) {
        if (ground.id == id) {
            layer.ground = ground;
            return true;
        }
    }
    return false;
}

bool GroundLayersModel::setText(GroundLayer& layer, int column, const QString& text) const
{
    switch (column) {
    case From: return readDepth(text, layer.from);
    case To: return readDepth(text, layer.to);
    case Description: layer.description = text; return true;
    default: return false;
    }
}

bool GroundLayersModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.row() >= layers_.size())
        return false;
    GroundLayer& layer = layers_[index.row()];
    const bool taken = role == KeyRole && index.column() == Ground ? setGround(layer, value.toInt())
        : role == Qt::EditRole                                     ? setText(layer, index.column(), value.toString())
                                                                   : false;
    if (!taken)
        return false;
    changed_ = true;
    emit dataChanged(index, this->index(index.row(), ColumnCount - 1));
    return true;
}

Qt::ItemFlags GroundLayersModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags seen = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.isValid() && index.column() != Hatch ? seen | Qt::ItemIsEditable : seen;
}
