#include "application.h"

#include <QPointer>
#include <QWidget>

namespace {

QPointer<QWidget>& mainWindow()
{
    static QPointer<QWidget> window;
    return window;
}

} // namespace

HostEvents* HostEvents::instance()
{
    static HostEvents events;
    return &events;
}

void setMainWindow(QWidget* window) { mainWindow() = window; }

QWidget* ndsw_ncadMainWnd() { return mainWindow(); }
