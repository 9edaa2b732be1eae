#include "script_runner.h"

#include "script_verbs.h"
#include "watchdog.h"

#include <drawing/application.h>
#include <ui/color_dialog.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <cstdlib>

namespace {

// A command that asks again after so many cancels will never end.
constexpr int kMostCancels = 1000;
// How long a window that was asked for may take to show itself.
constexpr int kWindowGraceMilliseconds = 500;

QString quoted(const QString& text) { return QStringLiteral("«") + text.trimmed() + QStringLiteral("»"); }

} // namespace

QString ScriptFailure::toString() const
{
    return file + QLatin1Char(':') + QString::number(line) + QStringLiteral(": ") + text;
}

ScriptRunner::ScriptRunner() : driver_(*this) { }

ScriptRunner::~ScriptRunner() = default;

void ScriptRunner::setStepTimeout(double seconds)
{
    timeout_ = seconds;
    driver_.setStepTimeout(int(seconds * 1000.0));
    if (watchdog_)
        watchdog_->setLimit(int(seconds * 1000.0));
}

void ScriptRunner::setPatience(int looks)
{
    patience_ = looks;
    driver_.setPatience(looks);
}

void ScriptRunner::enableWatchdog(std::function<void(const QString&)> report)
{
    watchdog_ = std::make_unique<Watchdog>([this, report = std::move(report)] {
        report(QStringLiteral("программа не отвечает, строка сценария ")
               + QString::number(at_ < lines_.size() ? lines_[at_].number : 0));
        std::_Exit(3);
    });
    setStepTimeout(timeout_);
}

bool ScriptRunner::playFile(const QString& path)
{
    QString error;
    lines_.clear();
    failure_.reset();
    if (!readScriptFile(path, lines_, error)) {
        failure_ = ScriptFailure{path, 0, error};
        return false;
    }
    return play();
}

bool ScriptRunner::playText(const QString& text, const QString& name)
{
    failure_.reset();
    lines_ = scriptLines(text, name);
    return play();
}

bool ScriptRunner::play()
{
    if (playing_)
        return false;
    playing_ = true;
    at_ = 0;
    parsed_ = -1;
    cancels_ = 0;
    PromptBackend* before = setPromptBackend(this);
    driver_.start();
    while (!failure_ && at_ < lines_.size())
        playStatement();
    waitForWindows();
    if (!failure_ && activeModalWindow(true))
        fail(QStringLiteral("сценарий кончился, а окно ") + describeWindow(activeModalWindow(true))
             + QStringLiteral(" открыто"));
    driver_.stop();
    setPromptBackend(before);
    playing_ = false;
    return !failure_;
}

// One statement at the top level: no command runs.
void ScriptRunner::playStatement()
{
    const Statement* at = statement();
    if (!at)
        return;
    if (isFormVerb(at->verb))
        return playFormSteps();
    waitForWindows();
    if (failure_)
        return;
    if (at->verb == QLatin1String("command")) {
        const QStringList words = at->words;
        next();
        runCommandLine(words);
    } else if (isAnswerVerb(at->verb)) {
        fail(QStringLiteral("ответ «") + at->verb + QStringLiteral("» без вопроса: команда не выполняется"));
    } else {
        settle();
    }
}

// Windows that no command waits for: palettes, boxes opened by them.
void ScriptRunner::playFormSteps()
{
    QElapsedTimer grace;
    grace.start();
    int looks = 0;
    while (!failure_ && currentStep()) {
        const bool any = driver_.hasWindow() || !driver_.isIdle() || step_.verb == QLatin1String("window");
        looks = any ? 0 : looks + 1;
        if (any)
            grace.restart();
        else if (grace.elapsed() > kWindowGraceMilliseconds || (patience_ > 0 && looks > patience_))
            return fail(QStringLiteral("действие «") + step_.verb + QStringLiteral("» без окна: окно не открыто"));
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}

void ScriptRunner::waitForWindows()
{
    while (!driver_.isIdle())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void ScriptRunner::runCommandLine(const QStringList& words)
{
    const int place = int(at_) - 1;
    if (words.size() != 1)
        return fail(QStringLiteral("команда пишется одним словом"), place);
    console_.command(words[0]);
    driver_.touch();
    ++commandDepth_;
    commandFailure_.clear();
    const CommandOutcome outcome = runCommand(words[0]);
    --commandDepth_;
    if (watchdog_)
        watchdog_->beat();
    if (outcome == CommandOutcome::Unknown)
        fail(QStringLiteral("нет команды ") + quoted(words[0]), place);
    else if (outcome == CommandOutcome::Busy)
        fail(QStringLiteral("команда ") + quoted(words[0]) + QStringLiteral(" не выполняется внутри другой"), place);
    else if (!commandFailure_.isEmpty())
        fail(commandFailure_, place);
}

const ScriptRunner::Statement* ScriptRunner::statement()
{
    if (failure_ || at_ >= lines_.size())
        return nullptr;
    if (parsed_ == int(at_))
        return &statement_;
    QString error;
    QStringList words;
    const auto value = [this](const QString& name, QString& text) { return variable(name, text); };
    if (!splitScriptWords(lines_[at_].text, value, words, error)) {
        fail(error);
        return nullptr;
    }
    statement_.verb = words.takeFirst();
    statement_.words = words;
    parsed_ = int(at_);
    if (!isFormVerb(statement_.verb) && !isAnswerVerb(statement_.verb) && !isNeutralVerb(statement_.verb)
        && !ownVerbs_.contains(statement_.verb) && statement_.verb != QLatin1String("command")) {
        fail(QStringLiteral("неизвестное слово «") + statement_.verb + QStringLiteral("»"));
        return nullptr;
    }
    return &statement_;
}

void ScriptRunner::next()
{
    ++at_;
    driver_.touch();
    if (watchdog_)
        watchdog_->beat();
}

// Does the statements that need neither prompt nor window.
void ScriptRunner::settle()
{
    while (const Statement* at = statement()) {
        if (!isNeutralVerb(at->verb) && !ownVerbs_.contains(at->verb))
            return;
        const Statement copy = *at;
        next();
        doNeutral(copy);
    }
}

bool ScriptRunner::doNeutral(const Statement& statement)
{
    const int place = int(at_) - 1;
    QString wrong;
    if (statement.verb == QLatin1String("include"))
        spliceInclude(statement.words.value(0));
    else if (statement.verb == QLatin1String("let") && statement.words.size() == 2)
        setVariable(statement.words[0], statement.words[1]);
    else if (statement.verb == QLatin1String("timeout") && statement.words.size() == 1
             && statement.words[0].toDouble() > 0.0)
        setStepTimeout(statement.words[0].toDouble());
    else if (statement.verb == QLatin1String("echo"))
        console_.line(statement.words.join(QLatin1Char(' ')));
    else if (ownVerbs_.contains(statement.verb))
        wrong = ownVerbs_[statement.verb](statement.words);
    else
        wrong = doCheckVerb(statement.verb, statement.words, console_.sinceCommand());
    if (!wrong.isEmpty())
        fail(wrong, place);
    return wrong.isEmpty();
}

// An included file is looked for beside the file that names it.
void ScriptRunner::spliceInclude(const QString& path)
{
    const int place = int(at_) - 1;
    const QString beside = QFileInfo(lines_[size_t(place)].file).dir().filePath(path);
    std::vector<ScriptLine> inner;
    QString error;
    if (lines_.size() > 1000000 || !readScriptFile(QFileInfo::exists(beside) ? beside : path, inner, error))
        return fail(error.isEmpty() ? QStringLiteral("сценарии включают друг друга без конца") : error, place);
    lines_.insert(lines_.begin() + long(at_), inner.begin(), inner.end());
}

bool ScriptRunner::variable(const QString& name, QString& value) const
{
    const auto own = variables_.constFind(name);
    if (own != variables_.constEnd())
        value = *own;
    else if (qEnvironmentVariableIsSet(name.toUtf8().constData()))
        value = qEnvironmentVariable(name.toUtf8().constData());
    else
        return false;
    return true;
}

void ScriptRunner::fail(const QString& text, int place)
{
    if (!failure_) {
        const size_t index = place >= 0 ? size_t(place) : at_;
        ScriptFailure failure;
        failure.text = text;
        if (index < lines_.size()) {
            failure.file = lines_[index].file;
            failure.line = lines_[index].number;
        } else if (!lines_.empty()) {
            failure.file = lines_.back().file;
            failure.line = lines_.back().number;
        }
        failure_ = failure;
    }
    driver_.closeEverything();
}

// --- prompts

PromptReply ScriptRunner::cancelled()
{
    if (++cancels_ > kMostCancels) {
        std::fprintf(stderr, "%s\n", qPrintable(failure_ ? failure_->toString() : QString()));
        std::_Exit(3);
    }
    console_.answer(QStringLiteral("*Отмена*"));
    return {};
}

PromptReply ScriptRunner::ask(const PromptRequest& request)
{
    if (request.kind == PromptRequest::Color)
        return failure_ ? cancelled() : askColor(request);
    console_.prompt(request.prompt);
    driver_.touch();
    for (;;) {
        settle();
        const Statement* at = statement();
        if (!at) {
            fail(QStringLiteral("запрос ") + quoted(request.prompt) + QStringLiteral(" остался без ответа"));
            return cancelled();
        }
        if (!isAnswerVerb(at->verb)) {
            fail(QStringLiteral("запрос ") + quoted(request.prompt) + QStringLiteral(" остался без ответа, дальше «")
                 + at->verb + QStringLiteral("»"));
            return cancelled();
        }
        const Statement copy = *at;
        next();
        if (copy.verb == QLatin1String("prompt")) {
            if (!checkPrompt(request, copy))
                return cancelled();
            continue;
        }
        PromptReply reply;
        if (!answerWith(request, copy, reply))
            return cancelled();
        return reply;
    }
}

bool ScriptRunner::checkPrompt(const PromptRequest& request, const Statement& statement)
{
    const int place = int(at_) - 1;
    if (statement.words.size() == 1 && request.prompt.contains(statement.words[0]))
        return true;
    fail(QStringLiteral("ожидался запрос ") + quoted(statement.words.join(QLatin1Char(' ')))
             + QStringLiteral(", встречен ") + quoted(request.prompt),
         place);
    return false;
}

bool ScriptRunner::answerWith(const PromptRequest& request, const Statement& statement, PromptReply& reply)
{
    const int place = int(at_) - 1;
    QString echo;
    const QString wrong = makeAnswer(request, statement.verb, statement.words, reply, echo);
    if (!wrong.isEmpty()) {
        fail(QStringLiteral("запрос ") + quoted(request.prompt) + QStringLiteral(": ") + wrong, place);
        return false;
    }
    console_.answer(echo);
    return true;
}

void ScriptRunner::print(const QString& text)
{
    console_.print(text);
    driver_.touch();
    if (watchdog_)
        watchdog_->beat();
}

// --- windows

const FormStep* ScriptRunner::currentStep()
{
    if (watchdog_)
        watchdog_->beat();
    const Statement* at = statement();
    if (!at || !isFormVerb(at->verb))
        return nullptr;
    step_ = {at->verb, at->words, {}, int(at_)};
    if (const QString wrong = checkFormStep(step_); !wrong.isEmpty()) {
        fail(wrong);
        return nullptr;
    }
    return &step_;
}

void ScriptRunner::advance() { next(); }

void ScriptRunner::stepFailed(const QString& what, int place) { fail(what, place); }
