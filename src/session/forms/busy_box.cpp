#include "session/forms/busy_box.h"

#include "database/sql/busy.h"

#include <QApplication>
#include <QProgressDialog>
#include <nrx/application.h>

namespace {

class BusyBox : public sql::Busy {
public:
    BusyBox()
        : box_(QStringLiteral("Сервер базы данных выполняет запрос…"), QStringLiteral("Прервать"), 0, 0,
               QApplication::activeModalWidget() ? QApplication::activeModalWidget() : ndsw_ncadMainWnd())
    {
        box_.setObjectName(QStringLiteral("BusyBox"));
        box_.setWindowTitle(QStringLiteral("Ожидание"));
        // Nothing else of the program may be touched meanwhile.
        box_.setWindowModality(Qt::ApplicationModal);
        box_.setMinimumDuration(0);
        box_.show();
    }

    bool goOn() override
    {
        QCoreApplication::processEvents();
        return !box_.wasCanceled();
    }

private:
    QProgressDialog box_;
};

} // namespace

void installBusyBox()
{
    sql::setBusyHook([]() -> std::unique_ptr<sql::Busy> {
        if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
            return nullptr;
        return std::make_unique<BusyBox>();
    });
}

void removeBusyBox() { sql::setBusyHook({}); }
