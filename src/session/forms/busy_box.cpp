#include "session/forms/busy_box.h"

#include "database/sql/busy.h"
#include "formkit/progress_box.h"

#include <QApplication>

namespace {

class BusyBox : public sql::Busy {
public:
    bool goOn() override { return box_.goOn(); }

private:
    formkit::WaitBox box_{"BusyBox", "Ожидание", "Сервер базы данных выполняет запрос…", "Прервать"};
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
