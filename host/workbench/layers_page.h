// The panel of layers: what is done with them, a filter, the list.
#pragma once

#include <QWidget>

class LayersPanel;
class NcDbDatabase;
class QLabel;
class QLineEdit;
class QToolBar;

class LayersPage : public QWidget {
    Q_OBJECT
public:
    explicit LayersPage(QWidget* parent = nullptr);

    // Null when no drawing is open.
    void setDrawing(NcDbDatabase* drawing);

signals:
    void refused(const QString& why);

private:
    void addTool(QToolBar* bar, const char* icon, const QString& caption, const char* name, void (LayersPanel::*act)());

    LayersPanel* list_;
    QLineEdit* filter_;
};
