// The hourglass over work that the window waits for: files read and written, sheets printed.
#pragma once

#include <QApplication>

class BusyCursor {
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

template <class Work>
auto busily(const Work& work)
{
    const BusyCursor busy;
    return work();
}
