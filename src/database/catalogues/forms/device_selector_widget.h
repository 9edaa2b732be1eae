#pragma once
// Chooses a device; its button opens the catalogue of devices.

#include <QMap>
#include <QStringList>
#include <QWidget>

class QComboBox;

class DeviceSelectorWidget : public QWidget {
    Q_OBJECT

public:
    /// Reads the devices.
    explicit DeviceSelectorWidget(QWidget* parent = nullptr);

    /// -1 when none is chosen.
    int deviceId() const;
    /// An unknown id leaves the choice.
    void setDeviceId(int id);
    /// Name, serial number and description of the chosen device.
    QStringList device() const { return devices_.value(deviceId()); }

    /// Reads the devices anew; the chosen one stays chosen.
    void refresh();

private:
    void openDevices();

    QComboBox* list_;
    QMap<int, QStringList> devices_;
};
