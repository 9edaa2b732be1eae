// How the window runs commands.
#include "main_window.h"

#include <drawing/typed_answers.h>
#include <script/script_runner.h>

#include <QLabel>
#include <QTimer>
#include <utility>

namespace {

constexpr int kMostTries = 50;
constexpr int kTryMilliseconds = 20;

} // namespace

void MainWindow::runLine(const QString& line)
{
    if (prompts_.take(line))
        return;
    QStringList words = typedWords(line);
    if (words.isEmpty() && !lastCommand_.isEmpty())
        words << lastCommand_;
    if (words.isEmpty())
        return;
    prompts_.console().command(line.trimmed().isEmpty() ? words.first() : line.trimmed());
    if (hasCommand(words.first()) && words.first().compare(QLatin1String("U"), Qt::CaseInsensitive) != 0)
        lastCommand_ = words.first();
    const CommandOutcome outcome = runCommandWords(words);
    if (outcome == CommandOutcome::Unknown)
        prompts_.console().line(QStringLiteral("Неизвестная команда: ") + words.first());
    else if (outcome == CommandOutcome::Busy)
        prompts_.console().line(QStringLiteral("Сначала завершите команду, которая выполняется."));
    else if (activeCommand().isEmpty())
        prompts_.console().line(QString());
}

void MainWindow::greet()
{
    prompts_.console().line(QStringLiteral("Терва готова. Проект открывается в меню «Проект», команды стоят в меню или "
                                           "набираются здесь по имени; Esc отменяет, Enter завершает."));
}

void MainWindow::runCommandByName(const QString& name)
{
    pending_ = name;
    pendingTries_ = 0;
    QTimer::singleShot(0, this, &MainWindow::runPending);
}

void MainWindow::runPending()
{
    if (activeCommand().isEmpty()) {
        runLine(std::exchange(pending_, QString()));
    } else if (++pendingTries_ <= kMostTries) {
        prompts_.cancel();
        QTimer::singleShot(kTryMilliseconds, this, &MainWindow::runPending);
    } else {
        prompts_.console().line(QStringLiteral("Сначала завершите команду, которая выполняется."));
    }
}

QString MainWindow::playScript(const QString& path, const QVector<QPair<QString, QString>>& variables,
                               double stepTimeout)
{
    ScriptRunner runner;
    runner.setStepTimeout(stepTimeout);
    runner.setSink([this](const QString& text) { prompts_.console().print(text); });
    for (const auto& variable : variables)
        runner.setVariable(variable.first, variable.second);
    return runner.playFile(path) ? QString() : runner.failure()->toString();
}

// Enter over the drawing ends what a prompt gathers, or begins the last command anew.
void MainWindow::finishOrRepeat()
{
    if (prompts_.isAsking())
        prompts_.finish();
    else if (!lastCommand_.isEmpty() && activeCommand().isEmpty())
        runCommandByName(lastCommand_);
}
