// Which device an exported forecast is said to come from.
#pragma once

#include <QDialog>

class QComboBox;

class DeviceChoice : public QDialog {
    Q_OBJECT

public:
    explicit DeviceChoice(QWidget* parent = nullptr);

    /// "00000" when none is chosen.
    QString serial() const;

private:
    QComboBox* devices_;
};
