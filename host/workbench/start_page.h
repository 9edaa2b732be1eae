// The first page: recent projects and drawings, and how to begin.
#pragma once

#include <QStringList>
#include <QWidget>

class QLabel;
class QListWidget;
class QVBoxLayout;

class StartPage : public QWidget {
    Q_OBJECT
public:
    explicit StartPage(QWidget* parent = nullptr);

    // The newest first. What is not there any more is listed greyed.
    void setRecent(const QStringList& projects, const QStringList& drawings);

signals:
    void projectChosen(const QString& path);
    void drawingChosen(const QString& path);
    void newProject();
    void openProject();
    void newDrawing();
    void openDrawing();

private:
    QListWidget* addColumn(QLayout* row, const QString& title, const char* name);
    void addButton(QLayout* column, const char* icon, const QString& caption, const char* name,
                   void (StartPage::*chosen)());
    static void fill(QListWidget& list, const QStringList& paths, const QString& icon);

    QListWidget *projects_, *drawings_;
};
