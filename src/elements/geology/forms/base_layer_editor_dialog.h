#pragma once
// Edits the layers of ground along one well.

#include "elements/geology/ground_layers_model.h"

#include <QDialog>

class QBoxLayout;
class QLabel;
class QPushButton;
class QTableView;

class BaseLayerEditorDialog : public QDialog {
    Q_OBJECT

public:
    int elementId() const { return elementId_; }
    const GroundLayersModel& model() const { return *model_; }

    /// Checks and replaces the stored layers; stays open when that fails.
    void accept() override;
    /// Asks before changes are lost.
    void reject() override;

protected:
    /// Empty until reload(), which an heir calls once it knows its table.
    BaseLayerEditorDialog(const QString& name, int elementId, QWidget* parent);

    virtual const char* layerTable() const = 0;

    /// Shows what is stored; while that cannot be read nothing is saved over it.
    void reload();
    GroundLayersModel& layers() { return *model_; }
    /// Beside the buttons of the table.
    void addButton(QPushButton* button);

private:
    void addLayer();
    void removeLayer();
    int currentRow() const;
    QString firstFault() const;

    int elementId_;
    GroundLayersModel* model_;
    QTableView* table_;
    QLabel* status_;
    QBoxLayout* tableButtons_;
    QPushButton* save_;
};
