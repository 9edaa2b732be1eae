#include "desk_state.h"

#include <commands/host_commands.h>
#include <drawing/application.h>
#include <drawing/module_host.h>

#include <QAction>
#include <QFileInfo>
#include <QWidget>

namespace {

const QString kRefused = QStringLiteral("refused:");

const std::pair<const char*, QString DeskState::*> kFields[] = {
    {"project", &DeskState::project},          {"projectFile", &DeskState::projectFile},
    {"position", &DeskState::position},        {"database", &DeskState::database},
    {"connection", &DeskState::connection},    {"baseCycle", &DeskState::baseCycle},
    {"currentCycle", &DeskState::currentCycle}};

void take(void* context, const char* key, const char* value)
{
    DeskState& state = *static_cast<DeskState*>(context);
    const QString name = QString::fromUtf8(key);
    if (name.startsWith(kRefused))
        state.refusals.insert(name.mid(kRefused.size()), QString::fromUtf8(value));
    for (const auto& field : kFields)
        if (name == QLatin1String(field.first))
            state.*field.second = QString::fromUtf8(value);
}

// An action of the window as a command, for the keyboard and for scripts.
void triggerAction(const QString& name)
{
    QWidget* window = ndsw_ncadMainWnd();
    QAction* action = window ? window->findChild<QAction*>(name) : nullptr;
    if (action)
        action->trigger();
    else
        sayLine(QStringLiteral("Окна нет: работа без окна."));
}

} // namespace

DeskState readDeskState()
{
    using Tell = void (*)(void (*)(void*, const char*, const char*), void*);
    DeskState state;
    if (const auto tell = reinterpret_cast<Tell>(moduleFunction("terva_desk_state"))) {
        tell(take, &state);
        state.known = true;
    }
    return state;
}

bool isDrawingNotStored(const QString& path)
{
    const auto asked = reinterpret_cast<bool (*)(const char*)>(moduleFunction("terva_drawing_not_stored"));
    return asked && asked(path.toUtf8().constData());
}

bool openProjectFile(const QString& path)
{
    const auto open = reinterpret_cast<void (*)(const char*)>(moduleFunction("terva_open_project"));
    if (open)
        open(path.toUtf8().constData());
    return open != nullptr;
}

void registerDeskCommands()
{
    const std::pair<const char*, const char*> actions[] = {{"PROPERTIES", "propertiesAction"},
                                                           {"PRINT", "print"},
                                                           {"STARTPAGE", "startPageAction"},
                                                           {"MANUAL", "manualAction"}};
    for (const auto& row : actions)
        addHostCommand(QString::fromLatin1(row.first),
                       [name = QString::fromLatin1(row.second)](const QStringList&) { triggerAction(name); });
    addHostCommand(QStringLiteral("OPENPROJECT"), [](const QStringList& words) {
        if (words.isEmpty())
            return sayLine(QStringLiteral("Укажите файл проекта: OPENPROJECT \"файл.terva\""));
        if (!QFileInfo(words.first()).isFile())
            return sayLine(QStringLiteral("Файла проекта нет: ") + words.first());
        if (!openProjectFile(words.first()))
            sayLine(QStringLiteral("Проекты открывает модуль, а он не загружен."));
    });
}
