// The commands that modules and the host itself registered, and their running.
#pragma once

#include "application.h"

#include <deque>

class NcEdCommand {
public:
    CommandInfo info;
    NcCommandHandler handler = nullptr;
    void* uiContext = nullptr;
    int functionCode = 0;
    void* resource = nullptr;
};

struct HostCommand {
    CommandInfo info;
    std::function<void(const QStringList&)> handler;
};

class Commands {
public:
    static Commands& instance();

    NcStatus add(std::unique_ptr<NcEdCommand> command);
    NcStatus removeGroup(const QString& group);
    void addHost(const HostCommand& command);
    const NcEdCommand* find(const QString& name) const;
    const HostCommand* findHost(const QString& name) const;
    std::vector<CommandInfo> list() const;
    std::vector<CommandInfo> listHost() const;

    // The command and the words typed behind it: answers to its prompts, or
    // arguments of a host command.
    CommandOutcome run(const QStringList& words);
    // To be run when no command runs; in `document`, or wherever when null.
    void queue(Document* document, const QStringList& words);
    void runQueue();
    QString active() const { return running_.isEmpty() ? QString() : running_.last(); }

private:
    struct Queued {
        Document* document;
        QStringList words;
    };

    std::vector<std::unique_ptr<NcEdCommand>> commands_;
    std::vector<HostCommand> hostCommands_;
    std::deque<Queued> queue_;
    QStringList running_; // nested: a transparent command within another
    bool drainingQueue_ = false;
};
