#pragma once
// The page of the palette "Элемент ГМН": shows one widget at a time.

#include <QWidget>

class QLabel;

class ObjectInspectorPage : public QWidget {
    Q_OBJECT

public:
    explicit ObjectInspectorPage(QWidget* parent = nullptr);

    /// What is shown now.
    QWidget* content() const { return content_; }
    /// Shows the widget in the place of the one before, which goes; a remark
    /// stands above it.
    void put(QWidget* content, const QString& remark = QString());
    void putText(const QString& text);
    /// No element is selected.
    void putNothing();

    /// After another project or connection: what was shown is not of it.
    void refresh();

private:
    QLabel* remark_;
    QWidget* content_ = nullptr;
};
