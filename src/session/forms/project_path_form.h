#pragma once
// The page "Пути" of the project settings: the project file and its folders.

#include "formkit/field_pane.h"

class QLabel;

class ProjectPathForm : public QWidget {
    Q_OBJECT

public:
    explicit ProjectPathForm(QWidget* parent = nullptr);

    /// Shows what the session holds.
    void refresh();

private:
    void chooseFile();
    void showFile(const QString& path);
    void apply();

    QLabel* file_;
    formkit::FieldPane* folders_;
};
