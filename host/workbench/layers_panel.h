// The layers of the current drawing: shown or not, locked or not, their colour and
// line type. What is done with them is one step of undo each.
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
    // Only layers whose name holds the text are listed.
    void setFilter(const QString& text);
    void addNew();
    void renameChosen();
    void eraseChosen();
    void makeChosenCurrent();
    void chooseLineType();

signals:
    void refused(const QString& why);

private:
    void objectChanged(NcDbObjectId id) override;
    void drawingReplaced() override { later_.start(); }
    void fill();
    void fillRow(int row, NcDbObjectId id);
    void change(QTableWidgetItem* item);
    void act(int row, int column);
    void filter();
    void chooseColor(NcDbObjectId id);
    void setLineType(NcDbObjectId id, const QString& name);
    void answer(const QString& fault);
    NcDbObjectId idOf(const QTableWidgetItem* item) const;
    NcDbObjectId chosen() const;

    NcDbDatabase* drawing_ = nullptr;
    QTimer later_;
    bool filling_ = false;
    QString filterText_;
    NcDbObjectId named_; // to be named as soon as it is listed
};
