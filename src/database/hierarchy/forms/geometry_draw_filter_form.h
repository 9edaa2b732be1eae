#pragma once
// Asks which stored lines are to be drawn.

#include "database/hierarchy/stored_lines.h"

#include <QDialog>

class QCheckBox;

class GeometryDrawFilterForm : public QDialog {
    Q_OBJECT

public:
    explicit GeometryDrawFilterForm(QWidget* parent = nullptr);

    StoredLines wanted() const;

private:
    QCheckBox* contours_;
    QCheckBox* deformations_;
    QCheckBox* temperatures_;
};
