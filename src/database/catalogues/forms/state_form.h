#pragma once
// A state of elements: its id, which never changes, its name and its colour.

#include "formkit/record_dialog.h"

class StateForm : public formkit::RecordDialog {
    Q_OBJECT

public:
    explicit StateForm(QWidget* parent = nullptr);

protected:
    void shown() override;
};
