#pragma once
// The layers of a well as a table that is edited in place.

#include "elements/geology/ground_layers.h"

#include <QAbstractTableModel>

class GroundLayersModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { From, To, Ground, Description, Hatch, ColumnCount };
    enum Role {
        KeyRole = Qt::UserRole, ///< of the ground: the entry's id, -1 for none
        LookRole,               ///< of every cell: the GroundLook of its layer
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// The entries that a layer may be made of.
    void setGrounds(const QVector<GroundElement>& grounds) { grounds_ = grounds; }
    const QVector<GroundElement>& grounds() const { return grounds_; }

    /// As stored: nothing is changed yet.
    void showStored(const GroundLayers& layers);
    /// Layers from elsewhere in the place of all.
    void replaceAll(const GroundLayers& layers);
    /// A metre below the last one; its row.
    int addLayer();
    void removeLayer(int row);

    const GroundLayers& layers() const { return layers_; }
    bool isChanged() const { return changed_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// A depth that is no number, and an entry that is not among the grounds, is refused.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void show(const GroundLayers& layers, bool changed);
    QString textOf(const GroundLayer& layer, int column) const;
    bool setGround(GroundLayer& layer, int id) const;
    bool setText(GroundLayer& layer, int column, const QString& text) const;

    GroundLayers layers_;
    QVector<GroundElement> grounds_;
    bool changed_ = false;
};
