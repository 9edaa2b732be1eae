#include "desk.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QThread>

namespace {

constexpr int kStartTime = 40000, kPatience = 30000, kPause = 20; // milliseconds

QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(30000);
    return process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray();
}

} // namespace

// --- the screen

Screen::Screen(const QSize& size)
{
    server_.start(QStringLiteral("Xvfb"),
                  {"-displayfd", "1", "-screen", "0", QStringLiteral("%1x%2x24").arg(size.width()).arg(size.height()),
                   "-dpi", "96", "-nolisten", "tcp"});
    if (!server_.waitForStarted() || !server_.waitForReadyRead(kStartTime))
        return;
    display_ = QLatin1Char(':') + QString::fromLatin1(server_.readAllStandardOutput()).trimmed();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), display_);
    manager_.setProcessEnvironment(environment);
    manager_.start(QStringLiteral("openbox"), QStringList());
    if (!manager_.waitForStarted())
        display_.clear();
}

Screen::~Screen()
{
    for (QProcess* process : {&manager_, &server_}) {
        process->terminate();
        if (!process->waitForFinished(3000))
            process->kill();
        process->waitForFinished(3000);
    }
}

// --- the program

Desk::Desk(const Screen& screen, const QString& folder)
    : environment_(QProcessEnvironment::systemEnvironment()), folder_(folder)
{
    environment_.insert(QStringLiteral("DISPLAY"), screen.display());
    environment_.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment_.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment_.insert(QStringLiteral("HOME"), folder);
    environment_.insert(QStringLiteral("TERVA_EYES"), folder);
}

Desk::~Desk()
{
    if (isRunning())
        kill();
}

bool Desk::start(const QStringList& arguments)
{
    program_ = std::make_unique<QProcess>();
    program_->setProcessEnvironment(environment_);
    program_->setWorkingDirectory(folder_);
    program_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program_->start(QCoreApplication::applicationDirPath() + QStringLiteral("/terva"),
                    QStringList{"--profile", folder_ + QStringLiteral("/settings.ini"), "--module",
                                QCoreApplication::applicationDirPath() + QStringLiteral("/terva.nrx"), "--module",
                                QStringLiteral(EYES_MODULE)}
                        + arguments);
    return program_->waitForStarted() && !find(QStringLiteral("screen")).isEmpty();
}

void Desk::kill()
{
    program_->kill();
    program_->waitForFinished(kPatience);
}

int Desk::ended()
{
    if ((isRunning() && !program_->waitForFinished(kPatience)) || program_->exitStatus() != QProcess::NormalExit)
        return -1;
    return program_->exitCode();
}

// --- eyes

QString Desk::ask(const QString& question)
{
    const QString answer = folder_ + QStringLiteral("/answer"), part = folder_ + QStringLiteral("/question");
    QFile::remove(answer);
    QFile asked(part);
    if (!asked.open(QIODevice::WriteOnly))
        return {};
    asked.write(question.toUtf8());
    asked.close();
    QFile::remove(folder_ + QStringLiteral("/ask"));
    asked.rename(folder_ + QStringLiteral("/ask"));
    QElapsedTimer clock;
    clock.start();
    while (!QFile::exists(answer) && clock.elapsed() < kStartTime && isRunning())
        program_->waitForFinished(kPause / 4); // which also sees that it has ended
    QFile told(answer);
    return told.open(QIODevice::ReadOnly) ? QString::fromUtf8(told.readAll()) : QString();
}

bool Desk::waitFor(const QString& question, const QString& text)
{
    QElapsedTimer clock;
    clock.start();
    QString last;
    do {
        last = ask(question);
        if (last.contains(text))
            return true;
        QThread::msleep(kPause);
    } while (clock.elapsed() < kPatience && isRunning());
    missed_ << QStringLiteral("%1: %2, not %3").arg(question, last.right(300), text);
    return false;
}

QRect Desk::find(const QString& question)
{
    QElapsedTimer clock;
    clock.start();
    do {
        const QStringList numbers = ask(question).split(QLatin1Char(' '));
        if (numbers.size() >= 4)
            return QRect(numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(), numbers[3].toInt());
        QThread::msleep(kPause);
    } while (clock.elapsed() < kPatience && isRunning());
    missed_ << question + QStringLiteral(" is not to be seen; in front: ") + ask(QStringLiteral("title"));
    return {};
}

// --- hands

void Desk::hand(const QStringList& arguments)
{
    QProcess xdotool;
    xdotool.setProcessEnvironment(environment_);
    xdotool.start(QStringLiteral("xdotool"), arguments);
    xdotool.waitForFinished(kPatience);
    if (xdotool.exitCode() != 0)
        missed_ << QString::fromUtf8(xdotool.readAllStandardError());
    ask(QStringLiteral("title")); // the program has taken what came before
}

void Desk::moveTo(const QPoint& at) { hand({"mousemove", QString::number(at.x()), QString::number(at.y())}); }

void Desk::click(const QString& question, int times)
{
    const QRect place = find(question);
    if (place.isEmpty())
        return;
    moveTo(place.center());
    hand({"click", "--repeat", QString::number(times), "--delay", "60", "1"});
}

void Desk::drag(const QPoint& from, const QPoint& to)
{
    moveTo(from);
    hand({"mousedown", "1"});
    moveTo((from + to) / 2);
    moveTo(to);
    hand({"mouseup", "1"});
}

void Desk::keys(const QStringList& names) { hand(QStringList{"key", "--delay", "40"} + names); }

void Desk::type(const QString& text) { hand({"type", "--delay", "25", "--", text}); }

void Desk::enter(const QString& text)
{
    type(text);
    keys({"Return"});
}

void Desk::choose(const QStringList& path)
{
    click(QStringLiteral("menu ") + path.first());
    for (const QString& item : path.mid(1))
        click(QStringLiteral("item ") + item);
}

// --- others' eyes

QJsonObject readDrawing(const QString& path)
{
    return QJsonDocument::fromJson(
               outputOf(QStringLiteral("/usr/bin/python3"), {TERVA_SOURCE_DIR "/tests/day/read_drawing.py", path}))
        .object();
}

QSizeF pageSize(const QString& path)
{
    const QString told = QString::fromUtf8(outputOf(QStringLiteral("pdfinfo"), {path}));
    const auto size = QRegularExpression(QStringLiteral("Page size:\\s+([0-9.]+) x ([0-9.]+) pts")).match(told);
    return QSizeF(size.captured(1).toDouble(), size.captured(2).toDouble()) * 25.4 / 72.0;
}
