// Where forms open: at the size and place that they had when they were last
// closed, and always whole on the screen. What needs more room than the screen has
// gets scroll bars, so that every button can be reached.
#pragma once

#include <QObject>
#include <QRect>

class QDialog;
class QSettings;

class FormPlaces : public QObject {
    Q_OBJECT
public:
    // Watches all forms of the program; boxes without a name are only fitted.
    explicit FormPlaces(QSettings& settings, QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place(QDialog& form) const;
    void remember(const QDialog& form) const;

    QSettings& settings_;
};

// The place moved, and where need be made smaller, so that it lies in the room.
QRect placeWithin(QRect place, const QRect& room);
// Puts what the form holds into a scrolled area; the row of end buttons at its
// bottom stays below it.
void makeScrollable(QWidget& form);
