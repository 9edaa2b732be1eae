#include "commands.h"

#include "documents.h"
#include "editor_reactors.h"
#include "typed_answers.h"
#include "undo.h"

#include <algorithm>

namespace {

// Without what may stand before a name: '_' takes the global one, '.' says nothing here.
QString bareName(const QString& name)
{
    int at = 0;
    while (at < name.size() && (name[at] == QLatin1Char('_') || name[at] == QLatin1Char('.')))
        ++at;
    return name.mid(at);
}

bool answersTo(const CommandInfo& info, const QString& typed)
{
    const QString bare = bareName(typed);
    const bool globalOnly = typed.left(typed.size() - bare.size()).contains(QLatin1Char('_'));
    return bare.compare(bareName(info.globalName), Qt::CaseInsensitive) == 0
        || info.aliases.contains(bare, Qt::CaseInsensitive)
        || (!globalOnly && bare.compare(info.localName, Qt::CaseInsensitive) == 0);
}

} // namespace

Commands& Commands::instance()
{
    static Commands commands;
    return commands;
}

NcStatus Commands::add(std::unique_ptr<NcEdCommand> command)
{
    if (!command->handler || command->info.globalName.isEmpty())
        return NcStatus::InvalidInput;
    for (const auto& known : commands_)
        if (known->info.globalName.compare(command->info.globalName, Qt::CaseInsensitive) == 0
            && known->info.group.compare(command->info.group, Qt::CaseInsensitive) == 0)
            return NcStatus::Duplicate;
    commands_.push_back(std::move(command));
    emit HostEvents::instance()->commandsChanged();
    return NcStatus::Ok;
}

NcStatus Commands::removeGroup(const QString& group)
{
    const auto first = std::remove_if(commands_.begin(), commands_.end(), [&](const auto& command) {
        return command->info.group.compare(group, Qt::CaseInsensitive) == 0;
    });
    if (first == commands_.end())
        return NcStatus::NotFound;
    commands_.erase(first, commands_.end());
    emit HostEvents::instance()->commandsChanged();
    return NcStatus::Ok;
}

const NcEdCommand* Commands::find(const QString& name) const
{
    for (const auto& command : commands_)
        if (answersTo(command->info, name))
            return command.get();
    return nullptr;
}

const HostCommand* Commands::findHost(const QString& name) const
{
    for (const HostCommand& command : hostCommands_)
        if (answersTo(command.info, name))
            return &command;
    return nullptr;
}

void Commands::addHost(const HostCommand& command)
{
    for (HostCommand& known : hostCommands_) {
        if (answersTo(known.info, command.info.globalName)) {
            known = command;
            return;
        }
    }
    hostCommands_.push_back(command);
}

std::vector<CommandInfo> Commands::list() const
{
    std::vector<CommandInfo> infos;
    for (const auto& command : commands_)
        infos.push_back(command->info);
    return infos;
}

std::vector<CommandInfo> Commands::listHost() const
{
    std::vector<CommandInfo> infos;
    for (const HostCommand& command : hostCommands_)
        infos.push_back(command.info);
    return infos;
}

CommandOutcome Commands::run(const QStringList& words)
{
    if (words.isEmpty())
        return CommandOutcome::Unknown;
    const NcEdCommand* module = find(words.front());
    const HostCommand* own = module ? nullptr : findHost(words.front());
    if (!module && !own)
        return CommandOutcome::Unknown;
    const CommandInfo info = module ? module->info : own->info;
    if (!running_.isEmpty() && !(info.flags & kTransparent))
        return CommandOutcome::Busy;
    // Modules rely on a drawing; the user may have closed the last one.
    if (module && !ncdbHostApplicationServices()->workingDatabase())
        openStartDocument();
    // What the user picked before goes only to a command that asked for it.
    if (module && !(info.flags & kUsePickSet) && running_.isEmpty() && Documents::instance().current()
        && !Documents::instance().current()->pickfirst().empty())
        setPickfirst({});
    // What was done between commands is a step of its own.
    if (running_.isEmpty())
        closeUndoSteps(QStringLiteral(""));
    running_ << info.globalName;
    notifyCommand(info.globalName, true);
    if (module) {
        const NcCommandHandler handler = module->handler;
        const TypedAnswers answers(words.mid(1));
        handler();
    } else {
        const auto handler = own->handler;
        handler(words.mid(1));
    }
    running_.removeLast();
    if (running_.isEmpty())
        closeUndoSteps(info.globalName);
    notifyCommand(info.globalName, false);
    runQueue();
    return CommandOutcome::Done;
}

void Commands::queue(Document* document, const QStringList& words)
{
    if (!words.isEmpty())
        queue_.push_back({document, words});
}

void Commands::runQueue()
{
    if (drainingQueue_ || !running_.isEmpty())
        return;
    drainingQueue_ = true;
    while (!queue_.empty()) {
        const Queued next = queue_.front();
        queue_.pop_front();
        // The document may have been closed meanwhile.
        if (next.document && !isOk(Documents::instance().activate(next.document)))
            continue;
        if (run(next.words) == CommandOutcome::Unknown)
            printToConsole(QStringLiteral("\nНеизвестная команда \"") + next.words.front() + QStringLiteral("\".\n"));
    }
    drainingQueue_ = false;
}

NcStatus NcEdCommandStack::addCommand(const QString& group, const QString& globalName, const QString& localName,
                                      int flags, NcCommandHandler handler, void* uiContext, int functionCode,
                                      void* resource, NcEdCommand** command)
{
    auto made = std::make_unique<NcEdCommand>();
    made->info = {group, globalName, localName.isEmpty() ? globalName : localName, flags, {}};
    made->handler = handler;
    made->uiContext = uiContext;
    made->functionCode = functionCode;
    made->resource = resource;
    NcEdCommand* raw = made.get();
    const NcStatus status = Commands::instance().add(std::move(made));
    if (command)
        *command = isOk(status) ? raw : nullptr;
    return status;
}

NcStatus NcEdCommandStack::removeGroup(const QString& group) { return Commands::instance().removeGroup(group); }

NcEdCommandStack* GetCommandStack()
{
    static NcEdCommandStack stack;
    return &stack;
}

NcStatus NcApDocManager::sendStringToExecute(NcApDocument* document, const QString& text)
{
    Document* target = Documents::instance().known(document);
    if (!target)
        return NcStatus::NotFound;
    const QStringList words = typedWords(text);
    if (words.isEmpty())
        return NcStatus::InvalidInput;
    Commands::instance().queue(target, words);
    Commands::instance().runQueue();
    return NcStatus::Ok;
}

int ncedCommand(const QStringList& words)
{
    if (words.isEmpty() || words.front().isEmpty())
        return kPromptError;
    Commands::instance().queue(Documents::instance().current(), words);
    Commands::instance().runQueue();
    return kPromptNormal;
}

std::vector<CommandInfo> registeredCommands() { return Commands::instance().list(); }

bool hasCommand(const QString& name) { return Commands::instance().find(name) || Commands::instance().findHost(name); }

std::vector<CommandInfo> hostCommands() { return Commands::instance().listHost(); }

void addHostCommand(const QString& name, const std::function<void(const QStringList& arguments)>& handler,
                    const QStringList& aliases, int flags)
{
    Commands::instance().addHost({{QStringLiteral("HOST"), name, name, flags, aliases}, handler});
}

CommandOutcome runCommand(const QString& name) { return Commands::instance().run({name}); }

CommandOutcome runCommandWords(const QStringList& words) { return Commands::instance().run(words); }

QString activeCommand() { return Commands::instance().active(); }

void runQueuedCommands() { Commands::instance().runQueue(); }
