#pragma once
// The page "Проект" of the project settings: how the project is called.

#include "formkit/field_pane.h"

class ProjectPropsForm : public QWidget {
    Q_OBJECT

public:
    explicit ProjectPropsForm(QWidget* parent = nullptr);

    /// Shows what the session holds.
    void refresh();

private slots:
    void btnApplyClick();

private:
    formkit::FieldPane* fields_;
};
