// The layers of the current drawing: shown or not, locked or not, their colour.
#pragma once

#include <drawing/application.h>
#include <drawing/database_data.h>

#include <QTableWidget>
#include <QTimer>

class LayersPanel : public QTableWidget, private DrawingListener {
    Q_OBJECT
public:
    explicit LayersPanel(QWidget* parent = nullptr);
    ~LayersPanel() override;

    // Null when no drawing is open.
    void setDrawing(NcDbDatabase* drawing);

private:
    void objectChanged(NcDbObjectId id) override;
    void drawingReplaced() override { later_.start(); }
    void fill();
    void fillRow(int row, NcDbObjectId id);
    void change(QTableWidgetItem* item);
    void act(int row, int column);
    NcDbObjectId idOf(const QTableWidgetItem* item) const;

    NcDbDatabase* drawing_ = nullptr;
    QTimer later_;
    bool filling_ = false;
};
