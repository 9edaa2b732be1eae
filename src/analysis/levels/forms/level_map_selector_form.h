// Lets the user choose one of the colour maps.
#pragma once

#include <QDialog>

class QComboBox;

class LeveMapSelectorForm : public QDialog { // the name is known to the project settings so
    Q_OBJECT
public:
    explicit LeveMapSelectorForm(int id, QWidget* parent = nullptr);

    int levelMapId() const;

private:
    QComboBox* levelMap_;
};
