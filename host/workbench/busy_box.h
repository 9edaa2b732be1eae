// Work that the window waits for: files read and written, sheets printed. An
// hourglass at first; what lasts longer than half a second shows how far it is
// and may be cancelled.
#pragma once

#include <drawing/long_work.h>

#include <QElapsedTimer>

class QProgressDialog;
class QWidget;

class BusyBox {
public:
    // The title is that of the work; the box stands over the parent.
    BusyBox(QWidget* parent, const QString& title);
    ~BusyBox();
    BusyBox(const BusyBox&) = delete;
    BusyBox& operator=(const BusyBox&) = delete;

    bool cancelled() const { return work_.stopped(); }

    // Milliseconds before the box is shown; tests take them away. Returns those before.
    static int setQuietTime(int milliseconds);

private:
    bool look(double done);
    void show();

    QWidget* parent_;
    QString title_;
    QElapsedTimer since_, looked_;
    bool looking_ = false;
    int shown_ = 0; // steps of the bar
    std::unique_ptr<QProgressDialog> box_;
    LongWork work_;
};

// Work that returns what is wrong, and whether it was cancelled.
std::pair<QString, bool> busyWriting(QWidget* parent, const QString& title, const std::function<QString()>& work);
