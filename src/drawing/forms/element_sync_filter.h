// Asks which families are to be brought into the drawing.
#pragma once

#include <QDialog>
#include <QVector>

class QCheckBox;

class ElementSyncFilter : public QDialog {
    Q_OBJECT

public:
    explicit ElementSyncFilter(QWidget* parent = nullptr);

    /// The bits of the families chosen when the dialog was accepted.
    unsigned mask() const { return mask_; }

    void accept() override;

private:
    struct Box {
        QCheckBox* check;
        unsigned bit;
    };

    void checkAll(bool checked);

    QVector<Box> boxes_;
    unsigned mask_ = 0;
};
