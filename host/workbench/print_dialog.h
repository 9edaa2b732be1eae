// Printing to scale: what is put on which sheet, with a preview.
#pragma once

#include <render/sheet.h>

#include <QDialog>
#include <QSettings>

class NcDbDatabase;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

// The sheet as it will be; it is pulled with the mouse to another place.
class SheetPreview : public QWidget {
    Q_OBJECT
public:
    explicit SheetPreview(QWidget* parent = nullptr);
    void show(const Sheet& sheet, const DisplayList& list);

signals:
    void centerMoved(const QPointF& center);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent*) override { from_.reset(); }

private:
    double dots() const; // of the screen to a millimetre of the sheet

    Sheet sheet_;
    const DisplayList* list_ = nullptr;
    std::optional<QPoint> from_;
};

class PrintDialog : public QDialog {
    Q_OBJECT
public:
    // What the drawing's window shows stands in the middle at first.
    PrintDialog(NcDbDatabase& drawing, const Sheet& start, const QRectF& seen, QSettings& settings,
                QWidget* parent = nullptr);

    const Sheet& sheet() const { return sheet_; }
    const DisplayList& list() const { return list_; }

signals:
    void pdfWanted();
    void printWanted();

private:
    QLayout* makeFields();
    void addPaperFields(QFormLayout* form);
    QWidget* makeEnds();
    QLineEdit* addField(QLayout* form, const QString& caption, const char* name, QString Sheet::*field);
    QCheckBox* addCheck(QLayout* column, const QString& caption, const char* name, bool Sheet::*field);
    void place(const QRectF& world);
    void fit(const QRectF& world);
    void takeScale(const QString& text);
    void refresh();

    const NcDbDatabase& drawing_;
    QSettings& settings_;
    Sheet sheet_;
    DisplayList list_;
    QRectF seen_;
    SheetPreview* preview_;
    QComboBox *paper_, *direction_, *scale_;
    QLabel* note_;
};
