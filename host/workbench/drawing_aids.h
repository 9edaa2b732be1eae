// What helps to place points: snapping, ortho, polar. One setting for all drawings.
#pragma once

#include <QObject>

class DrawingAids : public QObject {
    Q_OBJECT
public:
    static DrawingAids& instance();

    bool snaps() const { return snaps_; }
    bool ortho() const { return ortho_; }
    bool polar() const { return polar_; }
    double polarStep() const { return 15.0; } // degrees

    void setSnaps(bool on);
    // Ortho and polar exclude each other.
    void setOrtho(bool on);
    void setPolar(bool on);

signals:
    void changed();

private:
    bool snaps_ = true, ortho_ = false, polar_ = false;
};
