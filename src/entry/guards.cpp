#include "entry/guards.h"

#include "hostkit/console.h"
#include "session/project_session.h"

#include <array>

namespace {

struct GuardRow {
    bool (*check)();
    const char* message;
};

bool connected() { return session().checkConnection(); }
bool positionChosen() { return session().currentPositionId != -1; }
bool always() { return true; }

// In the order of the codes.
const std::array<GuardRow, 10> kGuards = {{
    {always, ""},
    {connected, "\n Не установлено соединение с базой данных"},
    {connected, "Не установлено соединение с базой данных"},
    {connected, "Не установлено соединение с базой данных\n"},
    {connected, "\nОшибка: Нет соединения с базой данных.\n"},
    {connected, "\nОшибка: База данных не подключена.\n"},
    {positionChosen, "\nНе установлена текущая позиция"},
    {positionChosen, "Не выбрана текущая позиция с базой данных"},
    {positionChosen, "\n Не установлена рабочая позиция в проекте"},
    {positionChosen, "Не выбрана текущая позиция"},
}};

const GuardRow& row(Guard guard) { return kGuards[size_t(guard)]; }

} // namespace

bool passes(Guard guard)
{
    if (row(guard).check())
        return true;
    say(QString::fromUtf8(row(guard).message));
    return false;
}

const char* guardMessage(Guard guard) { return row(guard).message; }
