#pragma once
// A desk: a screen of its own with a window manager, the program on it, eyes that
// tell where things stand, and the keys and the mouse.

#include <QJsonObject>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QTemporaryDir>
#include <memory>

class Screen {
public:
    explicit Screen(const QSize& size);
    ~Screen();
    /// Empty when there is no screen.
    QString display() const { return display_; }

private:
    QProcess server_, manager_;
    QString display_;
};

class Desk {
public:
    Desk(const Screen& screen, const QString& folder);
    ~Desk();

    /// Starts the program with files or options; false when its window does not come.
    bool start(const QStringList& arguments);
    /// Kills it as a crash does.
    void kill();
    /// Waits until it has ended. Its exit code, or -1.
    int ended();
    bool isRunning() const { return program_ && program_->state() == QProcess::Running; }

    // --- eyes; see eyes_module.cpp for the questions
    QString ask(const QString& question);
    /// Asks until the answer holds the text.
    bool waitFor(const QString& question, const QString& text);
    /// Asks for a place until there is one.
    QRect find(const QString& question);

    // --- hands
    void click(const QString& question, int times = 1);
    void drag(const QPoint& from, const QPoint& to);
    void moveTo(const QPoint& at);
    void keys(const QStringList& names); ///< as xdotool calls them: "ctrl+z"
    void type(const QString& text);
    void enter(const QString& text); ///< and Return behind it
    /// A command of a menu: "Карты", then "TERVA_TEMPERATURE_MAP".
    void choose(const QStringList& path);

    /// What went wrong so far: what was looked for in vain.
    QStringList missed() const { return missed_; }

private:
    void hand(const QStringList& arguments);

    QProcessEnvironment environment_;
    QString folder_;
    std::unique_ptr<QProcess> program_;
    QStringList missed_;
};

/// The drawing as an independent library reads it.
QJsonObject readDrawing(const QString& path);
/// The size of a PDF's first page in millimetres, as an independent program tells it.
QSizeF pageSize(const QString& path);
