#pragma once
// A measurement cycle. Its status can be set once the cycle is stored.

#include "formkit/record_dialog.h"

class CycleForm : public formkit::RecordDialog {
    Q_OBJECT

public:
    explicit CycleForm(QWidget* parent = nullptr);

protected:
    void shown() override;
    bool store() override;

private:
    void startNew();

    bool hasStatus_ = false;
};
