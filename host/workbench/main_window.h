// The workbench's window: drawings in tabs, the command line, layers, menus.
#pragma once

#include "desk_prompts.h"

#include <QMainWindow>
#include <QSettings>
#include <memory>

class LayersPanel;
class QLabel;
class QTabWidget;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    // `profile`: file of the settings; empty for the user's own.
    explicit MainWindow(const QString& profile);
    ~MainWindow() override;

    // A command with the words behind it, or the answer to the prompt that waits.
    void runLine(const QString& line);
    // Ends what is going on and runs the command.
    void runCommandByName(const QString& name);
    bool openDrawing(const QString& path);
    // The first line of the command line: what to do next.
    void greet();
    // Plays a script in this window. Empty when all went as written.
    QString playScript(const QString& path, const QVector<QPair<QString, QString>>& variables, double stepTimeout);

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    // Keys that no widget of the window wants reach the command line.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildDocks();
    void buildFileMenu();
    void buildEditMenu();
    void buildDrawMenu();
    void buildViewMenu();
    void addCommand(QMenu* menu, const QString& caption, const QString& command, const QKeySequence& keys = {});
    QAction* addAid(const QString& caption, const QKeySequence& key, bool on, void (*set)(bool));
    void buildCommandMenus();
    void buildStatusBar();
    void connectHost();
    void addDocument(NcApDocument* document);
    void removeDocument(NcApDocument* document);
    void showDocument(NcApDocument* document);
    void showTitles();
    void showCursor(const NcGePoint3d& world);
    void showAids();
    bool takeStrayKey(QKeyEvent* event);
    void finishOrRepeat();
    void connectView(DrawingView* view);
    void closeUntouchedStart();
    DrawingView* currentView() const;
    DrawingView* viewOf(NcApDocument* document) const;

    void runPending();
    void newDrawing();
    void chooseDrawing();
    bool saveDrawing(NcApDocument* document, bool askName);
    void exportDrawing();
    void chooseScript();
    void closeTab(int index);
    bool mayClose(Document& document);
    void noteRecent(const QString& path);
    void fillRecent();

    std::unique_ptr<QSettings> settings_;
    QTabWidget* tabs_;
    CommandLine* line_;
    LayersPanel* layers_;
    DeskPrompts prompts_;
    QLabel* coordinates_ = nullptr;
    QLabel* hint_ = nullptr;
    QMenu* recent_ = nullptr;
    QMenu* panels_ = nullptr;
    QAction* lightGround_ = nullptr;
    QAction *snaps_ = nullptr, *ortho_ = nullptr, *polar_ = nullptr;
    QString lastCommand_; // that Enter or a right click repeats
    QList<QMenu*> commandMenus_;
    QString pending_; // a command that waits for another one to end
    int pendingTries_ = 0;
};
