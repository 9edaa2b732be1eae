// The properties of what is selected, changed in place; one step of undo each.
#pragma once

#include <drawing/application.h>
#include <drawing/database_data.h>
#include <drawing/entity_properties.h>

#include <QTimer>
#include <QWidget>

class QComboBox;
class QTreeWidget;
class QTreeWidgetItem;

class PropertiesPanel : public QWidget, private DrawingListener {
    Q_OBJECT
public:
    explicit PropertiesPanel(QWidget* parent = nullptr);
    ~PropertiesPanel() override;

    // Null when no drawing is open.
    void setDrawing(Document* document);
    // What the panel is about: the selection, or those of its kind that were chosen.
    NcDbObjectIdArray shown() const;

    // How a value of a property is written, and read back; an invalid one for a
    // text that does not fit.
    static QString textOf(const EntityProperty& property);
    static QVariant valueOf(const EntityProperty& property, const QString& text);

signals:
    // A value that nothing took: why.
    void refused(const QString& why);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void objectChanged(NcDbObjectId) override { later_.start(); }
    void drawingReplaced() override { later_.start(); }
    void fill();
    void fillKinds();
    void fillProperties();
    void fillDrawing();
    QTreeWidgetItem* groupItem(const QString& title);
    void addTold(QTreeWidgetItem* group, const QString& caption, const QString& value);
    void addProperty(const EntityProperty& property);
    QWidget* makeEditor(const EntityProperty& property);
    QWidget* makeChoice(const EntityProperty& property, const QStringList& choices);
    QWidget* makeColor(const EntityProperty& property);
    QWidget* makeField(const EntityProperty& property);
    void apply(const EntityProperty& property, const QVariant& value);
    void forgetDrawing();

    Document* document_ = nullptr;
    QComboBox* kinds_;
    QTreeWidget* tree_;
    QTimer later_;
};
