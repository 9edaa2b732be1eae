// Plays a script: commands, answers to their prompts, what to do in the windows
// that open. The language is told in docs/scripts.md.
#pragma once

#include "console.h"
#include "form_driver.h"
#include "script_text.h"

#include <drawing/prompt_backend.h>

#include <QHash>
#include <memory>

class Watchdog;

struct ScriptFailure {
    QString file;
    int line = 0; // 0 before the first line
    QString text;
    // "file:line: text"
    QString toString() const;
};

// While it plays it is the prompts' back end. It stops at the first thing that
// does not go as written; the running command is then unwound: its prompts are
// cancelled and its windows closed.
class NRX_API ScriptRunner : private PromptBackend, private FormScript {
public:
    ScriptRunner();
    ~ScriptRunner() override;
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    // ${name} in the script; the environment's variables are there too.
    void setVariable(const QString& name, const QString& value) { variables_[name] = value; }
    // The console's text goes here as it comes.
    void setSink(std::function<void(const QString&)> sink) { console_.setSink(std::move(sink)); }
    // Seconds without progress after which a step fails; 60 at first.
    void setStepTimeout(double seconds);
    // For those who know that steps will fail: how often a window at rest, or none, is looked at
    // before what is awaited there is held for missing.
    void setPatience(int looks);
    // Ends the program when its main thread stands still for a step's time.
    void enableWatchdog(std::function<void(const QString&)> report);
    // A verb of the caller's own. It gets the words and returns what is wrong.
    using Verb = std::function<QString(const QStringList& words)>;
    void addVerb(const QString& name, const Verb& verb) { ownVerbs_[name] = verb; }

    // False when something did not go as written.
    bool playFile(const QString& path);
    bool playText(const QString& text, const QString& name);
    const std::optional<ScriptFailure>& failure() const { return failure_; }
    const Console& console() const { return console_; }

private:
    struct Statement {
        QString verb;
        QStringList words;
    };
    friend struct ScriptVerbs;

    // What prompts ask.
    PromptReply ask(const PromptRequest& request) override;
    void print(const QString& text) override;
    void commandFailed(const QString& what) override { commandFailure_ = what; }
    // What windows ask.
    const FormStep* currentStep() override;
    void advance() override;
    void stepFailed(const QString& what, int place) override;
    void settle() override;
    bool commandRuns() const override { return commandDepth_ > 0; }

    bool play();
    void playStatement();
    void playFormSteps();
    void waitForWindows();
    void runCommandLine(const QStringList& words);
    // The statement at hand, null at the end or after a failure.
    const Statement* statement();
    void next();
    bool doNeutral(const Statement& statement);
    bool answerWith(const PromptRequest& request, const Statement& statement, PromptReply& reply);
    bool checkPrompt(const PromptRequest& request, const Statement& statement);
    void spliceInclude(const QString& path);
    bool variable(const QString& name, QString& value) const;
    void fail(const QString& text, int place = -1);
    PromptReply cancelled();

    std::vector<ScriptLine> lines_;
    size_t at_ = 0;
    int parsed_ = -1; // index of the line that statement_ was read from
    Statement statement_;
    FormStep step_;
    QHash<QString, QString> variables_;
    QHash<QString, Verb> ownVerbs_;
    std::optional<ScriptFailure> failure_;
    QString commandFailure_;
    Console console_;
    FormDriver driver_;
    std::unique_ptr<Watchdog> watchdog_;
    double timeout_ = 60.0;
    int patience_ = 0;
    int commandDepth_ = 0;
    int cancels_ = 0;
    bool playing_ = false;
};
