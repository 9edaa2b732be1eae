#pragma once
// The measurement cycles, and which two of them the whole system compares.

#include "formkit/catalogue_list.h"

class QLabel;

class CyclesListForm : public formkit::CatalogueList {
    Q_OBJECT

public:
    explicit CyclesListForm(QWidget* parent = nullptr);

    void refresh() override;

protected:
    void dress(int row, const QString& key) override;
    void addToMenu(QMenu& menu) override;

private:
    void compare(int ProjectSession::*which);

    QLabel* source_;
    QLabel* current_;
};
